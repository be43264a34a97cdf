#include <iterator>
#include <utility>

#include "base/Flag.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "frame/Wording.h"
#include "grids/PaintingOff.h"
#include "grids/SprdSubs.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/PartGroupLine.h"
#include "store/DropDown.h"
#include "store/SaveRecord.h"

// What the builder shows: the stored group, and what its lines can be made from.
namespace kvi {

namespace {

constexpr double kHeadingHeight = 700;  // twips

struct ListColumn {
  const char* heading;
  double width = Spread::kDefaultColWidth;  // twips
  CellAlign align = CellAlign::Left;
};
constexpr ListColumn kPartColumns[] = {
    {"Part #", 900},
    {"Name", 1800},
    {"Description", 1800},
    {"'How Used'", 1300},
    {"Cost Per 'HU'", 1300, CellAlign::Right},
    {"Location", 1100},
    {"Category"},
};
constexpr ListColumn kGroupColumns[] = {
    {"Name"},         {"Category"},
    {"Part group #"}, {"Cost ($)", Spread::kDefaultColWidth, CellAlign::Right},
    {"Notes"},
};

template <class Columns>
void Head(Spread& grid, const Columns& columns) {
  grid.SetMaxCols(static_cast<int>(std::size(columns)));
  grid.SetRowHeight(0, kHeadingHeight);
  int col = 0;
  for (const ListColumn& column : columns) {
    grid.SetHeading(++col, column.heading);
    grid.SetColWidth(col, column.width);
    grid.SetAlign(Block::Column(col), column.align);
  }
}

// Blank where the units give no cost.
std::string CostShown(const jet::Recordset& part) {
  if (part.Number("hi_qty") == 0) return "";
  const auto cost = CostPerUsedUnit(part["cost_per"], part["hi_qty"], part["hu_qty"]);
  return cost ? Format(*cost, "#####0.0000") : "";
}

void ShowPart(Spread& grid, int row, const jet::Recordset& part) {
  int col = 0;
  for (const char* field : {"inv_id", "name", "desc", "how_used"})
    grid.SetText(row, ++col, part.Text(field));
  grid.SetText(row, ++col, CostShown(part));
  for (const char* field : {"Location", "Category"}) grid.SetText(row, ++col, part.Text(field));
}

void ShowGroup(Spread& grid, int row, const jet::Recordset& group) {
  int col = 0;
  for (const char* field : {"name", "category", "rec_id"})
    grid.SetText(row, ++col, group.Text(field));
  grid.SetText(row, ++col, Format(group["cost"], "####0.0000"));
  grid.SetText(row, ++col, group.Text("notes"));
}

// The rows of a statement, each shown by `show`. Where the walk fails, those behind stay blank.
void FillList(Spread& grid, Application& app, const std::string& sql,
              void (*show)(Spread&, int, const jet::Recordset&)) {
  const PaintingOff hidden(grid);
  ClearGrid(grid);
  const jet::ReadTogether reads(app.CurrentDatabase);
  jet::Recordset rows = app.CurrentDatabase.OpenRecordset(sql);
  grid.SetMaxRows(rows.RecordCount());
  const auto progress = ReadingList(grid, app.desktop, rows.RecordCount());
  for (int row = 1; !rows.Eof(); rows.MoveNext(), progress->Done(row++)) show(grid, row, rows);
  grid.SetKind(Block::All(), CellKind::Static);
  ShadeGridRows(grid, app.UseColors);
  GoToFirstCell(grid);
}

}  // namespace

// The flag comes last: filling the fields is a change of each.
void KVI_PGDetail::load_data() {
  const Hourglass busy(app_.desktop);
  const LoadStatements run(app_.desktop);
  Label12.Caption = kPartGroup + " #";
  Label6.Caption = kPartGroup + " Name";
  Label3.Caption = kPartGroup + " Category";
  Label10.Caption = kPartGroup + " Notes";
  Label1.Caption = "Current " + kPartGroup + " List";
  run([&] { FillCategories(); });
  run([&] { FillAvailable(); });
  missing_ = !IsNew();
  ShowEntries({});
  run([&] {
    if (missing_) LoadGroup();
  });
  if (missing_) ShowHeader({.number = rec_id.Text});
  lineChanged_ = false;
  ShowRow(Spread1);
  if (HasLine(1)) Say("Type every quantity: a line without one is saved with 0.");
}

// The group is read whole before anything of it is shown.
void KVI_PGDetail::LoadGroup() {
  const jet::ReadTogether reads(app_.CurrentDatabase);
  const PartGroupHeader header = ReadHeader(app_.PartGroupSet);
  stored_ = LinesOfGroup(header.number, app_.CurrentProfitCenter);
  const auto entries = ReadEntries(app_.CurrentDatabase, stored_, app_.ItemSet);
  ShowHeader(header);
  ShowEntries(entries);
  missing_ = false;
}

void KVI_PGDetail::ShowHeader(const PartGroupHeader& header) {
  rec_id.Text = header.number;
  rname.Text = header.name;
  rec_cat.Text = header.category;
  notes.Text = header.notes;
}

void KVI_PGDetail::FillCategories() {
  const Flag setting(settingUp_);
  FillDropDown(app_.CurrentDatabase, CatCombo, "DD_category");
  CatCombo.AddItem(kAllCategories);
  CatCombo.Text = kAllCategories;
}

// (Columns keep the widths that the user gave them while the same is listed.)
void KVI_PGDetail::StandUnder(Listed listed, const std::string& caption) {
  const PaintingOff hidden(Spread2);
  const bool parts = listed == Listed::Parts;
  if (std::exchange(listed_, listed) != listed) {
    if (parts)
      Head(Spread2, kPartColumns);
    else
      Head(Spread2, kGroupColumns);
  }
  Label2.Caption = caption;
  CatLabel.Visible = CatCombo.Visible = parts;
}

void KVI_PGDetail::ListParts() {
  StandUnder(Listed::Parts, "Available General Inventory");
  FillAvailable();
}

void KVI_PGDetail::ListGroups() {
  StandUnder(Listed::Groups, "Available " + kPartGroups);
  FillAvailable();
}

void KVI_PGDetail::SortBy(const MenuItem& entry) {
  for (MenuItem* other : {&m_s_name, &m_s_id, &m_s_cat}) other->Checked = other == &entry;
  FillAvailable();
}

void KVI_PGDetail::FillAvailable() {
  const Hourglass busy(app_.desktop);
  scan.Forget();
  if (listed_ == Listed::Groups)
    FillAvailableGroups();
  else if (!FillAvailableParts())
    Inform("There are no items to display for the selected category.");
}

bool KVI_PGDetail::FillAvailableParts() {
  std::string sql =
      "SELECT * FROM I_Master WHERE active = 'YES' AND pcenter = " + Str(app_.CurrentProfitCenter);
  const std::string category = Trim(CatCombo.Text());
  if (!category.empty() && category != kAllCategories) sql += " AND Category = '" + category + "' ";
  if (m_s_name.Checked)
    sql += " ORDER BY name, inv_id ";
  else if (m_s_id.Checked)
    sql += " ORDER BY inv_id ";
  else if (m_s_cat.Checked)
    sql += " ORDER BY category, name ";
  FillList(Spread2, app_, sql, ShowPart);
  for (const MenuItem* entry : {&m_s_name, &m_s_id, &m_s_cat})
    if (entry->Checked) Spread2.MarkSorted(SortColumn(*entry));
  return Spread2.MaxRows() > 0;
}

void KVI_PGDetail::FillAvailableGroups() {
  std::string sql = "SELECT * FROM R_Master where pcenter = " + Str(app_.CurrentProfitCenter);
  if (m_s_name.Checked)
    sql += " ORDER BY name";
  else if (m_s_id.Checked)
    sql += " ORDER BY rec_id";
  else if (m_s_cat.Checked)
    sql += " ORDER BY category";
  FillList(Spread2, app_, sql, ShowGroup);
}

}  // namespace kvi
