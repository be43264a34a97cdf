#pragma once

#include <string>
#include <vector>

#include "jet/Database.h"
#include "labels/LabelSheet.h"
#include "platform/Surface.h"

namespace kvi {

class Progress;

// What a bin label tells of its part. Levels are in purchased units.
struct BinLabel {
  std::string name, number, location, unit;
  double par = 0, reOrder = 0;
  std::string code;  // what a scanner shall read: the part's bar code, or else its number
};

// The labels of the parts that a query of the part master gives, in its order.
std::vector<BinLabel> ReadBinLabels(jet::Database& database, const std::string& partsQuery);

// Those of these numbers, in their order.
std::vector<BinLabel> InOrderOf(std::vector<BinLabel> labels,
                                const std::vector<std::string>& numbers);

struct LabelChoice {
  const LabelSheet* sheet = nullptr;
  int firstPlace = 1;  // on a sheet that was begun before; places count along the lines
  bool withQR = false;
};

// How many sheets so many labels take.
int SheetsFor(std::size_t labels, const LabelChoice& choice);

// Draws one sheet, from 0 on. A code that would come out too fine for a scanner is left out.
void DrawLabelSheet(Surface& paper, const std::vector<BinLabel>& labels, const LabelChoice& choice,
                    int sheet);

// The labels whose code does not go on such a sheet.
std::vector<std::string> UnreadableCodes(const std::vector<BinLabel>& labels,
                                         const LabelChoice& choice);

// Prints all sheets, each a document of its own; false when the user cancelled between two.
bool PrintBinLabels(Desktop& desktop, const std::vector<BinLabel>& labels,
                    const LabelChoice& choice);

}  // namespace kvi
