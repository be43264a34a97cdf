#include "desktop/controls/ControlAdapter.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QShortcutEvent>
#include <QWidget>
#include <algorithm>

#include "base/Flag.h"
#include "desktop/controls/WindowInput.h"
#include "desktop/look/Panel.h"
#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/Controls.h"
#include "platform/Gestures.h"
#include "platform/Screen.h"

namespace kvi {

namespace {

// A caption as it is spoken; empty where it has no word ("+").
QString Spoken(const QString& caption) {
  QString words = PlainCaption(caption).trimmed();
  while (words.endsWith(':') || words.endsWith(' ')) words.chop(1);
  const bool isWord =
      std::any_of(words.begin(), words.end(), [](QChar c) { return c.isLetterOrNumber(); });
  return isWord ? words : QString();
}

}  // namespace

ControlAdapter::ControlAdapter(Control& control, QWidget* widget, ScreenWindow& window)
    : QObject(&window), window_(window), tied_(control), widget_(widget) {
  if (widget_ == nullptr) return;
  widget_->setObjectName(ToQt(control.Name()));
  widget_->installEventFilter(this);
}

void ControlAdapter::PropertyChanged(Property property) {
  Showing([&] {
    switch (property) {
      case Property::Enabled:
        return ShowEnabled();
      case Property::Visible:
        return ShowVisible();
      case Property::BackColor:
      case Property::ForeColor:
        ShowColors();
        return window_.ShowColors();
      case Property::Caption:
        Show(property);
        return ShowName();
      default:
        return Show(property);
    }
  });
}

void ControlAdapter::TakeFocus() {
  if (widget_ != nullptr) widget_->setFocus(Qt::OtherFocusReason);
}

void ControlAdapter::ShowAll() {
  Showing([&] {
    ShowState();
    ShowEnabled();
    ShowVisible();
    ShowColors();
    ShowName();
  });
}

void ControlAdapter::ShowColorsAgain() {
  Showing([&] { ShowColors(); });
}

void ControlAdapter::AddCompanion(QWidget& companion) {
  companions_.push_back(&companion);
}

void ControlAdapter::SetLabel(const QString& label) {
  label_ = label;
  ShowName();
}

void ControlAdapter::ShowName() {
  if (widget_ == nullptr || tied_.Kind() == ControlKind::Label) return;
  const auto* captioned = dynamic_cast<const Captioned*>(&tied_);
  const QString tip = ToQt(tied_.Tip);
  QString name;
  for (const QString& words :
       {ToQt(tied_.SpokenName), captioned == nullptr ? QString() : ToQt(captioned->Caption), label_,
        tip})
    if (name.isEmpty()) name = Spoken(words);
  widget_->setAccessibleName(name);
  // Of a combo it is the line edit that tells of typing.
  if (const auto* combo = qobject_cast<QComboBox*>(widget_); combo && combo->lineEdit())
    combo->lineEdit()->setAccessibleName(name);
  widget_->setAccessibleDescription(tip == name ? QString() : tip);
  widget_->setToolTip(tip);
}

void ControlAdapter::ShowEnabled() {
  if (widget_ != nullptr) widget_->setEnabled(tied_.Enabled);
}

void ControlAdapter::ShowVisible() {
  if (widget_ != nullptr) widget_->setVisible(tied_.Visible);
  for (QWidget* companion : companions_) companion->setVisible(tied_.Visible);
}

// Fields: the text on the field's own ground.
void ControlAdapter::ShowColors() {
  if (widget_ == nullptr) return;
  QPalette palette;
  const QColor ground = BackdropColor(tied_.BackColor, tied_.ForeColor);
  const QColor ink = ClassicColor(tied_.ForeColor);
  if (ground.isValid()) palette.setColor(QPalette::Base, ground);
  if (ink.isValid()) palette.setColor(QPalette::Text, ink);
  widget_->setPalette(palette);
}

// A widget signal while the control is being shown is an echo. A window that the gesture closed
// shows nothing any more; its controls may be gone.
void ControlAdapter::Hand(const std::function<void(Gestures&)>& gesture) {
  if (showing_) return;
  const QPointer<ControlAdapter> self(this);
  WindowInput& input = window_.Input();
  input.Hand([&](Gestures& gestures) {
    gesture(gestures);
    if (self && input.IsOpen()) Showing([&] { ShowState(); });
  });
}

QColor ControlAdapter::Backdrop() const {
  return Panel::BackdropOf(*widget_);
}

// The toolkit's own press by access key comes a tenth of a second late and leaves the focus where
// it was. Here the focus goes first, so that whatever is being typed elsewhere is in before the
// click; after an action it goes back to where the user works, unless the action sent it elsewhere.
bool ControlAdapter::PressByAccessKey(const QShortcutEvent& event) {
  auto* button = qobject_cast<QAbstractButton*>(widget_);
  if (button == nullptr || event.isAmbiguous()) return false;
  const QPointer<QWidget> before = window_.FocusedField();
  const QPointer<ControlAdapter> self(this);
  button->setFocus(Qt::ShortcutFocusReason);
  if (button->isEnabled()) button->click();
  const bool isAction =
      tied_.Kind() == ControlKind::ActionLabel || tied_.Kind() == ControlKind::Button;
  if (isAction && self && before && window_.Input().IsOpen() && window_.FocusedField() == widget_ &&
      before->isEnabled() && before->isVisible())
    before->setFocus(Qt::OtherFocusReason);
  return true;
}

bool ControlAdapter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Shortcut && PressByAccessKey(*static_cast<QShortcutEvent*>(event)))
    return true;
  const bool comes = event->type() == QEvent::Enter;
  if ((comes || event->type() == QEvent::Leave) && window_.Input().IsOpen() &&
      (tied_.Kind() == ControlKind::ActionLabel || tied_.MouseMove)) {
    Hand([this, comes](Gestures& user) {
      if (comes)
        user.MoveOver(tied_);
      else
        user.MoveOver(tied_.Owner());
    });
  }
  return QObject::eventFilter(watched, event);
}

void ControlAdapter::Showing(const std::function<void()>& show) {
  const Flag showing(showing_);
  show();
}

void ShowBeginningWhenLeft(QLineEdit& field) {
  QObject::connect(&field, &QLineEdit::editingFinished, &field, [&field] {
    if (!field.hasFocus()) field.setCursorPosition(0);
  });
}

}  // namespace kvi
