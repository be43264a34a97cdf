#pragma once

#include <string>
#include <vector>

namespace kvi {

class ComboBox;

// The profit centers in the order of the combos that show them. A position and a profit center's
// number are the same only while the numbers are 0, 1, 2 ... without a gap: Main takes the
// position for the number and Utilities looks the number up, which is kept as it stands.
class ProfitCenters {
 public:
  static constexpr int kLastPosition = 5000;

  // A combo that shows the profit centers, for as long as the program runs.
  void ShowIn(ComboBox& combo) { combos_.push_back(&combo); }

  void Clear();
  void Add(const std::string& name, int number);  // raises 9 past the last position
  int Count() const { return static_cast<int>(numbers_.size()); }
  int NumberAt(int position) const;  // raises 9 outside
  // Where the number stands; the number itself when no profit center has it.
  int PositionOf(int number) const;
  // Selects the position in every combo; raises 380 when there is none such.
  void Select(int position);

 private:
  std::vector<ComboBox*> combos_;
  std::vector<int> numbers_;
};

}  // namespace kvi
