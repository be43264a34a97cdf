#include "labels/LabelSheet.h"

namespace kvi {

namespace {

constexpr double Mm(double millimetres) {
  return millimetres / 25.4;
}

// A printer of single labels feeds each as a page of its own.
constexpr LabelSheet kSheets[] = {{"l7160",
                                   "Avery L7160: A4, 3 x 7 labels of 63.5 x 38.1 mm",
                                   {Mm(210), Mm(297)},
                                   3,
                                   7,
                                   Mm(63.5),
                                   Mm(38.1),
                                   Mm(7.2),
                                   Mm(15.15),
                                   Mm(66),
                                   Mm(38.1)},
                                  {"5160",
                                   "Avery 5160: letter, 3 x 10 labels of 2 5/8 x 1 in",
                                   {8.5, 11},
                                   3,
                                   10,
                                   2.625,
                                   1,
                                   0.1875,
                                   0.5,
                                   2.75,
                                   1},
                                  {"single",
                                   "Label printer: single labels of 2 1/4 x 1 1/4 in",
                                   {2.25, 1.25},
                                   1,
                                   1,
                                   2.25,
                                   1.25,
                                   0,
                                   0,
                                   2.25,
                                   1.25}};

}  // namespace

std::span<const LabelSheet> LabelSheets() {
  return kSheets;
}

const LabelSheet* FindLabelSheet(std::string_view name) {
  for (const LabelSheet& sheet : kSheets)
    if (sheet.name == name) return &sheet;
  return nullptr;
}

}  // namespace kvi
