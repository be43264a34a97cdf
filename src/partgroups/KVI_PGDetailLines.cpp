#include <algorithm>
#include <iterator>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "frame/Wording.h"
#include "grids/PaintingOff.h"
#include "grids/SprdSubs.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/PartGroupLine.h"

// The lines of the group: shown, added, taken away, and each one's share of the cost.
namespace kvi {

namespace {

constexpr double kHeadingHeight = 700;  // twips
// The grid never runs full.
constexpr int kFewestRows = 500, kSpareRows = 100;

struct LineColumn {
  const char* heading;
  double width;  // twips
};
constexpr LineColumn kColumns[] = {
    {"Part #", 1000},      {"Name", 1800},
    {"'How Used'", 1000},  {"Quantity", Spread::kDefaultColWidth},
    {"Cost Per", 1000},    {"% of Total Cost", Spread::kDefaultColWidth},
    {"Description", 1800}, {"Notes", 2800},
};

// Where a cell of a part goes in a line.
struct CopiedCell {
  int from, to;
};
constexpr CopiedCell kCopiedCells[] = {{1, KVI_PGDetail::kNumberColumn},
                                       {2, KVI_PGDetail::kNameColumn},
                                       {3, KVI_PGDetail::kDescriptionColumn},
                                       {4, KVI_PGDetail::kHowUsedColumn},
                                       {5, KVI_PGDetail::kCostColumn}};

void ClearSelection(Spread& grid) {
  grid.SetSelectedBlocks({});
  // (The view learns it by the active cell.)
  grid.SetActiveCell(grid.ActiveRow(), grid.ActiveCol());
}

}  // namespace

void KVI_PGDetail::SetUpLines() {
  Spread1.SetMaxCols(static_cast<int>(std::size(kColumns)));
  Spread1.SetRowHeight(0, kHeadingHeight);
  int col = 0;
  for (const LineColumn& column : kColumns) {
    Spread1.SetHeading(++col, column.heading);
    Spread1.SetColWidth(col, column.width);
  }
  LockGrid(Spread1);
  for (const int typed : {kQuantityColumn, kNotesColumn})
    Spread1.SetLock(Block::Column(typed), false);
  Spread1.SetKind(Block::Column(kQuantityColumn), CellKind::Number);
  Spread1.SetAlign({1, kQuantityColumn, -1, kPercentColumn}, CellAlign::Right);
}

// The quantities come up empty, and the shares with them, as the users know it: whoever saves a
// group types them first.
void KVI_PGDetail::ShowEntries(const std::vector<PartGroupEntry>& entries) {
  const PaintingOff hidden(Spread1);
  ClearGrid(Spread1);
  Spread1.SetMaxRows(std::max(kFewestRows, static_cast<int>(entries.size()) + kSpareRows));
  int row = 0;
  for (const PartGroupEntry& entry : entries) {
    ++row;
    Spread1.SetText(row, kNumberColumn, entry.inv_id);
    Spread1.SetText(row, kNameColumn, entry.iname);
    Spread1.SetText(row, kHowUsedColumn, entry.how_used);
    Spread1.SetText(row, kCostColumn, Format(entry.cost_per, "#####0.0000"));
    Spread1.SetText(row, kDescriptionColumn, entry.desc);
    Spread1.SetText(row, kNotesColumn, entry.notes);
  }
  ShadeGridRows(Spread1, app_.UseColors);
  for (const int typed : {kQuantityColumn, kNotesColumn})
    Spread1.SetBackColor(Block::Column(typed), kBrightCyan);
  CalcLinePercents();
  GoToFirstCell(Spread1);
}

std::vector<PartGroupEntry> KVI_PGDetail::Entries() const {
  std::vector<PartGroupEntry> entries;
  for (int row = 1; row <= Spread1.MaxRows(); ++row) {
    if (!HasLine(row)) continue;
    const auto cell = [&](int col) { return Spread1.Text(row, col); };
    entries.push_back({.inv_id = cell(kNumberColumn),
                       .iname = cell(kNameColumn),
                       .how_used = cell(kHowUsedColumn),
                       .qty = Val(cell(kQuantityColumn)),
                       .cost_per = Val(cell(kCostColumn)),
                       .desc = cell(kDescriptionColumn),
                       .notes = cell(kNotesColumn)});
  }
  return entries;
}

int KVI_PGDetail::EmptyLine(int from) {
  int row = from;
  while (row <= Spread1.MaxRows() && HasLine(row)) ++row;
  if (row >= Spread1.MaxRows()) Spread1.SetMaxRows(row + kSpareRows);
  return row;
}

void KVI_PGDetail::CopyToLine(int row, int part) {
  if (row >= Spread1.MaxRows()) Spread1.SetMaxRows(row + kSpareRows);
  for (const CopiedCell& cell : kCopiedCells)
    Spread1.SetText(row, cell.to, Spread2.Text(part, cell.from));
  Spread1.SetText(row, kQuantityColumn, "0");
}

// Several parts go to the rows from the first empty one on, without a look at what stands there:
// into a gap they overwrite the lines behind it.
void KVI_PGDetail::AddSelected() {
  if (Spread2.ActiveRow() < 1) return;
  const std::vector<Block> blocks = Spread2.SelectedBlocks();
  if (blocks.empty()) return AddItemLine();
  const PaintingOff hidden(Spread1);
  int row = EmptyLine();
  for (const Block& block : blocks)
    for (int part = block.row; part <= block.row2; ++part) CopyToLine(row++, part);
  Spread1.SetActiveCell(row - 1, kQuantityColumn);
  ClearSelection(Spread2);
  LinesChanged();
}

// The new line comes in sight, its quantity next.
void KVI_PGDetail::AddItemLine() {
  const int row = EmptyLine();
  CopyToLine(row, Spread2.ActiveRow());
  Spread1.SetActiveCell(row, kQuantityColumn);
  LinesChanged();
}

void KVI_PGDetail::add_to_rec_wi() {
  if (Spread2.ActiveRow() < 1) return;
  int row = std::max(Spread1.ActiveRow(), 1);
  if (HasLine(row) && !AskYesNo("You are on a row which currently has an item.  Would you like to "
                                "overwrite this item?",
                                kPartGroup + " Builder"))
    row = EmptyLine();
  CopyToLine(row, Spread2.ActiveRow());
  GoToRow(Spread1, EmptyLine(row));
  LinesChanged();
}

void KVI_PGDetail::add_rec_to_rec_wi() {
  AddGroupLine(kNestedSuffix);
}

void KVI_PGDetail::AddBareGroup() {
  AddGroupLine("");
}

void KVI_PGDetail::AddGroupLine(const std::string& suffix) {
  const int group = Spread2.ActiveRow();
  if (group < 1) return;
  const int row = EmptyLine();
  Spread1.SetText(row, kNumberColumn, Spread2.Text(group, 3) + suffix);
  Spread1.SetText(row, kNameColumn, Spread2.Text(group, 1));
  Spread1.SetText(row, kDescriptionColumn, kNestedMark);
  Spread1.SetText(row, kHowUsedColumn, "Units");
  Spread1.SetText(row, kQuantityColumn, "0");
  Spread1.SetText(row, kCostColumn, Spread2.Text(group, 4));
  LinesChanged();
}

// Rows that were selected stay, empty, until the next load; the active one alone is taken out.
void KVI_PGDetail::RemoveLines() {
  if (!AskToRemove("Are you sure you want to remove the current selected row from the " +
                   kPartGroupLower + "'s inventory list?"))
    return;
  const Hourglass busy(app_.desktop);
  const PaintingOff hidden(Spread1);
  const std::vector<Block> blocks = Spread1.SelectedBlocks();
  for (const Block& block : blocks) Spread1.ClearText({block.row, 1, block.row2, -1});
  if (blocks.empty() && Spread1.ActiveRow() > 0) Spread1.DeleteRow(Spread1.ActiveRow());
  ClearSelection(Spread1);
  LinesChanged();
  calc_data();
}

void KVI_PGDetail::LinesChanged() {
  lineChanged_ = true;
  CalcLinePercents();
  ShowRow(Spread1);
}

// Of the lines down to the first gap. Without a total the shares stay as they were.
void KVI_PGDetail::CalcLinePercents() {
  const PaintingOff hidden(Spread1);
  const auto extension = [this](int row) {
    return Val(Spread1.Text(row, kQuantityColumn)) * Val(Spread1.Text(row, kCostColumn));
  };
  double total = 0;
  int end = 1;
  for (; !Trim(Spread1.Text(end, kNumberColumn)).empty(); ++end) total += extension(end);
  if (total <= 0) return;
  for (int row = 1; row < end; ++row)
    Spread1.SetText(row, kPercentColumn, Format(100 * extension(row) / total, "####0.00"));
}

}  // namespace kvi
