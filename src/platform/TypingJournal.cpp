#include "platform/TypingJournal.h"

#include <utility>

namespace kvi {

void TypingJournal::Note(const void* row, int col, std::string before) {
  changes_.push_back({row, col, std::move(before), gesture_});
  ++changesOfRow_[row];
}

std::vector<TypingJournal::Change> TypingJournal::TakeLast() {
  std::vector<Change> taken;
  while (!changes_.empty() && (taken.empty() || changes_.back().gesture == taken[0].gesture)) {
    Uncount(changes_.back().row);
    taken.push_back(std::move(changes_.back()));
    changes_.pop_back();
  }
  return taken;
}

void TypingJournal::ForgetCell(const void* row, int col) {
  if (!Holds(row)) return;
  std::erase_if(changes_, [&](const Change& change) {
    const bool gone = change.row == row && change.col == col;
    if (gone) Uncount(row);
    return gone;
  });
}

void TypingJournal::ForgetRow(const void* row) {
  if (changesOfRow_.erase(row) == 0) return;
  std::erase_if(changes_, [&](const Change& change) { return change.row == row; });
}

void TypingJournal::Clear() {
  changes_.clear();
  changesOfRow_.clear();
  ++load_;
}

void TypingJournal::Uncount(const void* row) {
  const auto found = changesOfRow_.find(row);
  if (--found->second == 0) changesOfRow_.erase(found);
}

}  // namespace kvi
