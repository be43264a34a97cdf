#include "grids/ItemSorts.h"

#include <algorithm>
#include <iterator>

namespace kvi {

namespace {

struct ItemSort {
  const char *choice, *order;
  int column;
};
constexpr ItemSort kItemSorts[] = {
    {"Name", " ORDER BY name", 1},
    {"Description", " ORDER BY [desc], name", 5},
    {"Location", " ORDER BY location, name", 3},
    {"Category", " ORDER BY category, name", 2},
    {"#", " ORDER BY inv_id, name", 4},
    {kSortByLine, " ORDER BY account, name", 0},
};
constexpr int kOffered = 5;

}  // namespace

void OfferItemSorts(ComboBox& combo) {
  combo.Clear();
  for (int sort = 0; sort < kOffered; ++sort) combo.AddItem(kItemSorts[sort].choice);
}

std::string ItemOrder(const std::string& choice) {
  const auto* found = std::ranges::find(kItemSorts, choice, &ItemSort::choice);
  return found == std::end(kItemSorts) ? kItemSorts[0].order : found->order;
}

int ColumnOfSortChoice(const std::string& choice) {
  const auto* found = std::ranges::find(kItemSorts, choice, &ItemSort::choice);
  return found == std::end(kItemSorts) ? 0 : found->column;
}

void ChooseSortOfColumn(ComboBox& combo, int column) {
  for (int entry = 0; entry < combo.ListCount(); ++entry)
    if (ColumnOfSortChoice(combo.List(entry)) == column) return combo.SetListIndex(entry);
}

}  // namespace kvi
