#include "desktop/controls/ComboWidget.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "base/Flag.h"

namespace kvi {

namespace {

// These go on from the entry whose text was typed.
bool MovesInList(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
         key == Qt::Key_PageDown || key == Qt::Key_F4;
}

}  // namespace

ComboWidget::ComboWidget(QWidget* parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setInsertPolicy(NoInsert);
}

QString ComboWidget::Completed(const QString& text) const {
  if (!typesLetter_ || text.isEmpty() || lineEdit()->cursorPosition() != text.size()) return text;
  const int entry = findText(text, Qt::MatchStartsWith);
  return entry < 0 ? text : itemText(entry);
}

void ComboWidget::focusInEvent(QFocusEvent* event) {
  search_.Begin();
  QComboBox::focusInEvent(event);
}

void ComboWidget::focusOutEvent(QFocusEvent* event) {
  const Flag passing(passing_);
  QComboBox::focusOutEvent(event);
}

void ComboWidget::keyPressEvent(QKeyEvent* event) {
  const bool letter = LetterSearch::IsLetter(*event);
  if (!isEditable()) {
    // A blank opens the list, unless it goes on with a name.
    if (letter && (event->key() != Qt::Key_Space || search_.IsUnderWay()))
      return SearchFor(event->text());
    search_.Begin();
    return QComboBox::keyPressEvent(event);
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    const Flag passing(passing_);
    return QComboBox::keyPressEvent(event);
  }
  const int typed = MovesInList(event->key()) ? findText(currentText(), Qt::MatchFixedString) : -1;
  if (typed >= 0) setCurrentIndex(typed);
  typesLetter_ = letter;
  QComboBox::keyPressEvent(event);
  typesLetter_ = false;
}

void ComboWidget::SearchFor(const QString& letter) {
  const int found = search_.Find(*this, letter);
  if (found < 0 || found == currentIndex()) return;
  setCurrentIndex(found);
  emit activated(found);
}

}  // namespace kvi
