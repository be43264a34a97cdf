#pragma once

#include <QString>

class QComboBox;
class QKeyEvent;

namespace kvi {

// Letters typed on a list that has no text of its own: each narrows what those before it found. One
// that leads nowhere begins anew, behind the chosen entry, so that the same letter goes from entry
// to entry.
class LetterSearch {
 public:
  // Whether a key types a letter, digit or sign, and is no command.
  static bool IsLetter(const QKeyEvent& key);

  void Begin() { typed_.clear(); }
  bool IsUnderWay() const { return !typed_.isEmpty(); }
  // The entry to go to after one more letter; -1 where none begins so.
  int Find(const QComboBox& list, const QString& letter);
  // The same after the last letter was taken back.
  int TakeBack(const QComboBox& list);

 private:
  QString typed_;
};

}  // namespace kvi
