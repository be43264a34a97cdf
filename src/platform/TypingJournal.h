#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace kvi {

// What a person typed into a grid since its last load, so that it can be counted and taken back.
// Rows are known by their identity, whatever place they move to; the grid that owns the journal
// forgets a row before it ends.
class TypingJournal {
 public:
  struct Change {
    const void* row;
    int col;
    std::string before;
    int gesture;
  };

  // What is noted from here on is taken back together.
  void BeginGesture() { ++gesture_; }
  void Note(const void* row, int col, std::string before);
  // The changes of the last gesture, the last one first; empty when there is none.
  std::vector<Change> TakeLast();

  void ForgetCell(const void* row, int col);
  void ForgetRow(const void* row);
  void Clear();

  // The rows that hold something typed.
  int RowCount() const { return static_cast<int>(changesOfRow_.size()); }
  bool Holds(const void* row) const { return changesOfRow_.contains(row); }
  // Raised by Clear: changes taken before it belong to rows that may be gone.
  int Load() const { return load_; }

 private:
  void Uncount(const void* row);

  std::vector<Change> changes_;
  std::unordered_map<const void*, int> changesOfRow_;
  int gesture_ = 0;
  int load_ = 0;
};

}  // namespace kvi
