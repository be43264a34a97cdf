#include "desktop/controls/LetterSearch.h"

#include <QComboBox>
#include <QKeyEvent>

namespace kvi {

namespace {

// From the entry behind `index` on and around; -1 when none begins so.
int FindBehind(const QComboBox& list, int index, const QString& text) {
  const int count = list.count();
  for (int step = 1; step <= count; ++step) {
    const int entry = (index + step) % count;
    if (list.itemText(entry).startsWith(text, Qt::CaseInsensitive)) return entry;
  }
  return -1;
}

}  // namespace

bool LetterSearch::IsLetter(const QKeyEvent& key) {
  constexpr auto kCommands = Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier;
  return !(key.modifiers() & kCommands) && !key.text().isEmpty() && key.text()[0].isPrint();
}

int LetterSearch::Find(const QComboBox& list, const QString& letter) {
  QString wanted = typed_ + letter;
  int found = FindBehind(list, -1, wanted);
  if (found < 0) {
    wanted = letter;
    found = FindBehind(list, list.currentIndex(), wanted);
  }
  if (found >= 0) typed_ = wanted;
  return found;
}

int LetterSearch::TakeBack(const QComboBox& list) {
  typed_.chop(1);
  return IsUnderWay() ? FindBehind(list, -1, typed_) : -1;
}

}  // namespace kvi
