#include "desktop/controls/TextAdapters.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>

#include "desktop/look/Compact.h"
#include "desktop/look/Look.h"
#include "desktop/look/QtText.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/Gestures.h"

namespace kvi {

namespace {

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
  ShowBeginningWhenLeft(shown_);
  connect(&shown_, &QLineEdit::textEdited, this, [this](const QString& text) {
    Hand([&](Gestures& user) { user.Type(control_, FromQt(text)); });
  });
  if (box.Shortcut.empty()) return;
  auto* shortcut = new QShortcut(QKeySequence(ToQt(box.Shortcut)), &window);
  connect(shortcut, &QShortcut::activated, this, [this] { ComeByShortcut(); });
}

// What is being typed elsewhere is in before the field is entered.
void TextAdapter::ComeByShortcut() {
  window_.FinishEditing();
  if (!window_.Input().IsOpen() || !shown_.isEnabled()) return;
  shown_.setFocus(Qt::ShortcutFocusReason);
  shown_.selectAll();
}

bool TextAdapter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return ControlAdapter::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (control_.EnterPressed && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
    Hand([this](Gestures& user) { user.PressEnter(control_); });
    return true;
  }
  if (!control_.EscapePressed || key != Qt::Key_Escape) return false;
  Hand([this](Gestures& user) { user.PressEscape(control_); });
  return true;
}

// The bound holds for typing alone: a longer text of the system's own shows whole.
void TextAdapter::ShowState() {
  const QString text = ToQt(control_.Text);
  const int length = static_cast<int>(text.size());
  const int bound = control_.MaxLength > 0 ? std::max(control_.MaxLength, length) : 32767;
  if (shown_.maxLength() != bound) shown_.setMaxLength(bound);
  if (shown_.text() != text) {
    shown_.setText(text);
    if (!shown_.hasFocus()) shown_.setCursorPosition(0);
  }
  shown_.setReadOnly(control_.Locked);
  shown_.setFocusPolicy(StopOf(control_));
  shown_.setEchoMode(control_.Masked ? QLineEdit::Password : QLineEdit::Normal);
  shown_.setAlignment(control_.RightAligned ? Qt::AlignRight : Qt::AlignLeft);
}

void TextAdapter::Show(Property property) {
  ShowState();
  if (property == Property::Locked) ShowColors();
  if (property == Property::Selection) shown_.setCursorPosition(control_.SelStart);
  if (property == Property::WholeText) shown_.selectAll();
}

void TextAdapter::ShowColors() {
  ControlAdapter::ShowColors();
  ShadeIfLocked(shown_, control_);
}

MemoAdapter::MemoAdapter(TextBox& box, ScreenWindow& window)
    : TypedAdapter(box, new Compact<QPlainTextEdit>(&window), window) {
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

}  // namespace kvi
