#pragma once

#include <QComboBox>

#include "desktop/controls/LetterSearch.h"

namespace kvi {

// A combo box that chooses only what the user means: not by the wheel, nor by leaving it, nor by
// Enter on a text that happens to be an entry.
class ComboWidget : public QComboBox {
 public:
  explicit ComboWidget(QWidget* parent = nullptr);

  // Whether an entry that is activated now was picked.
  bool IsPicking() const { return !passing_; }
  // A typed text as the list completes it; as it is where the last key was no letter at its end.
  QString Completed(const QString& text) const;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void SearchFor(const QString& letter);

  LetterSearch search_;
  bool passing_ = false;
  bool typesLetter_ = false;
};

}  // namespace kvi
