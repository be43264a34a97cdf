#include "desktop/controls/TextAdapters.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QWheelEvent>

#include "base/Flag.h"
#include "desktop/look/Look.h"
#include "desktop/look/QtText.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/Gestures.h"

namespace kvi {

namespace {

// A combo box that neither the wheel nor leaving it makes choose: both would be a Click that the
// user did not mean.
class QuietComboBox : public QComboBox {
 public:
  using QComboBox::QComboBox;
  bool IsLeaving() const { return leaving_; }

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
  void focusOutEvent(QFocusEvent* event) override {
    const Flag leaving(leaving_);
    QComboBox::focusOutEvent(event);
  }

 private:
  bool leaving_ = false;
};

// What cannot be typed into is no stop on the way from field to field; a click still selects in it.
Qt::FocusPolicy StopOf(const TextBox& box) {
  return box.Locked ? Qt::ClickFocus : Qt::StrongFocus;
}

// A locked field looks as if it were part of the panel.
void ShadeIfLocked(QWidget& field, const TextBox& box) {
  if (!box.Locked || box.BackColor != kToolkitColor) return;
  QPalette palette = field.palette();
  palette.setColor(QPalette::Base, kLockedColor);
  field.setPalette(palette);
}

}  // namespace

TextAdapter::TextAdapter(TextBox& box, ScreenWindow& window)
    : TypedAdapter(box, new QLineEdit(&window), window) {
  shown_.setTextMargins(2, 0, 2, 0);
  connect(&shown_, &QLineEdit::textEdited, this, [this](const QString& text) {
    Hand([&](Gestures& user) { user.Type(control_, FromQt(text)); });
  });
}

// The bound holds for typing alone: a longer text of the system's own shows whole.
void TextAdapter::ShowState() {
  const QString text = ToQt(control_.Text);
  const int length = static_cast<int>(text.size());
  const int bound = control_.MaxLength > 0 ? std::max(control_.MaxLength, length) : 32767;
  if (shown_.maxLength() != bound) shown_.setMaxLength(bound);
  if (shown_.text() != text) shown_.setText(text);
  shown_.setReadOnly(control_.Locked);
  shown_.setFocusPolicy(StopOf(control_));
  shown_.setEchoMode(control_.Masked ? QLineEdit::Password : QLineEdit::Normal);
  shown_.setAlignment(control_.RightAligned ? Qt::AlignRight : Qt::AlignLeft);
}

void TextAdapter::Show(Property property) {
  ShowState();
  if (property == Property::Locked) ShowColors();
  if (property == Property::Selection) shown_.setCursorPosition(control_.SelStart);
}

void TextAdapter::ShowColors() {
  ControlAdapter::ShowColors();
  ShadeIfLocked(shown_, control_);
}

MemoAdapter::MemoAdapter(TextBox& box, ScreenWindow& window)
    : TypedAdapter(box, new QPlainTextEdit(&window), window) {
  shown_.setTabChangesFocus(true);
  connect(&shown_, &QPlainTextEdit::textChanged, this, [this] {
    Hand([this](Gestures& user) { user.Type(control_, FromQt(shown_.toPlainText())); });
  });
}

void MemoAdapter::ShowState() {
  const QString text = ToQt(control_.Text).replace("\r\n", "\n");
  if (shown_.toPlainText() != text) {
    const int position = shown_.textCursor().position();
    shown_.setPlainText(text);
    QTextCursor cursor = shown_.textCursor();
    cursor.setPosition(std::min(position, static_cast<int>(text.size())));
    if (shown_.hasFocus()) shown_.setTextCursor(cursor);
  }
  shown_.setReadOnly(control_.Locked);
  shown_.setFocusPolicy(StopOf(control_));
}

void MemoAdapter::Show(Property property) {
  ShowState();
  if (property == Property::Locked) ShowColors();
  if (property != Property::Selection) return;
  QTextCursor cursor = shown_.textCursor();
  cursor.setPosition(std::min(control_.SelStart(), shown_.document()->characterCount() - 1));
  shown_.setTextCursor(cursor);
}

void MemoAdapter::ShowColors() {
  ControlAdapter::ShowColors();
  ShadeIfLocked(shown_, control_);
}

ComboAdapter::ComboAdapter(ComboBox& combo, ScreenWindow& window)
    : TypedAdapter(combo, new QuietComboBox(&window), window) {
  shown_.setFocusPolicy(Qt::StrongFocus);
  shown_.setInsertPolicy(QComboBox::NoInsert);
  shown_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  shown_.setMinimumContentsLength(18);
  shown_.setMaxVisibleItems(18);
  if (IsEditable()) {
    shown_.setEditable(true);
    shown_.lineEdit()->setTextMargins(1, 0, 0, 0);
    // It would put entries into the text that nobody typed.
    shown_.setCompleter(nullptr);
    connect(shown_.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
      Hand([&](Gestures& user) { user.Type(control_, FromQt(text)); });
    });
  }
  connect(&shown_, &QComboBox::activated, this, [this](int index) {
    if (static_cast<QuietComboBox&>(shown_).IsLeaving()) return;
    Hand([&](Gestures& user) { user.Choose(control_, index); });
  });
}

void ComboAdapter::ShowState() {
  if (control_.ListCount() < shown_.count()) shown_.clear();
  for (int i = shown_.count(); i < control_.ListCount(); ++i)
    shown_.addItem(ToQt(control_.List(i)));
  // The toolkit chooses the first entry of an empty list by itself.
  if (shown_.currentIndex() != control_.ListIndex()) shown_.setCurrentIndex(control_.ListIndex());
  const QString text = ToQt(control_.Text);
  if (IsEditable() && shown_.lineEdit()->text() != text) shown_.setEditText(text);
}

}  // namespace kvi
