#include "partgroups/UpdatePartGroupCosts.h"

#include <functional>
#include <optional>
#include <string>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/Application.h"
#include "frame/GENERAL.h"
#include "security/CheckAccess.h"

namespace kvi {

namespace {

using ExtendedCost = std::function<double(const jet::Recordset& line)>;

constexpr int kInvalidUseOfNull = 94;
constexpr const char* kNestedLine = "RECIPE IN RECIPE";

bool IsNested(const jet::Recordset& line) {
  return EqualsNoCase(Trim(line.Text("desc")), kNestedLine);
}

bool MayUpdate(const Application& app) {
  if (CheckAccess(app.AccessString, kPartGroupModule, kWriteAccess)) return true;
  app.desktop.MsgBox({.text = "Current security clearance is READ ONLY for part groups.\n\n"
                              "Changes NOT Saved"});
  return false;
}

bool WantsToUpdate(Desktop& desktop) {
  if (desktop.MsgBox({.text = "This option will update all of your part groups to the latest "
                              "costs.  \n\nAre you sure you want to continue?",
                      .buttons = Buttons::YesNo,
                      .icon = Icon::Question}) == Answer::Yes)
    return true;
  desktop.MsgBox({.text = "Part groups NOT updated."});
  return false;
}

// The item's cost per used unit; nothing when its units do not give one. The first quotient goes
// through its text and keeps 15 digits.
std::optional<double> CostPerUsedUnit(const jet::Recordset& item) {
  if (item.Number("hu_qty") <= 0 || item["hi_qty"].IsNull()) return std::nullopt;
  if (item["cost_per"].IsNull()) return 0;
  const double inventoried = ValOf(Divide(item.Number("cost_per"), item.Number("hi_qty")));
  return Divide(inventoried, ValOf(item["hu_qty"]));
}

// The cost lives across the lines: one whose item gives none takes the cost of the line before it.
// Before the first cost there is Null.
void CostPartLines(jet::Recordset& lines, jet::Recordset& items) {
  Value cost;
  for (; !lines.Eof(); lines.MoveNext()) {
    if (IsNested(lines)) continue;
    lines.Edit();
    items.FindFirst("INV_ID = '" + Trim(lines.Text("inv_id")) + "'");
    std::string unit;
    if (items.NoMatch()) {
      cost = 0.0;
    } else {
      if (const auto own = CostPerUsedUnit(items)) cost = *own;
      unit = items.Text("how_used");
    }
    lines.Set("cost_per", cost);
    lines.Set("how_used", unit);
    lines.Update();
  }
}

// Writes to each group the sum over its lines. They belong to it by their number alone, so groups
// of one number in two profit centers share them.
void RollUp(jet::Database& database, jet::Recordset& groups, const ExtendedCost& extendedCost) {
  for (; !groups.Eof(); groups.MoveNext()) {
    groups.Edit();
    jet::Recordset lines = database.OpenRecordset("SELECT * FROM INV_RECIPE WHERE REC_ID = '" +
                                                  groups.Text("REC_ID") + "'");
    double sum = 0;
    for (; !lines.Eof(); lines.MoveNext()) sum += extendedCost(lines);
    groups.Set("cost", sum);
    groups.Update();
  }
}

double Amount(const Value& value) {
  if (value.IsNull()) throw RunTimeError(kInvalidUseOfNull);
  return value.Number();
}

// The yield enters here alone, and so reaches only what nested lines are given.
ExtendedCost WithYield(jet::Database& database) {
  return [&database](const jet::Recordset& line) {
    constexpr double kWhole = 100;
    const double plain = Amount(line["qty"]) * Amount(line["cost_per"]);
    return plain * kWhole / GetItemYield(database, line.Text("inv_id"));
  };
}

double WithoutYield(const jet::Recordset& line) {
  return ValOf(line["cost_per"]) * ValOf(line["qty"]);
}

// The number of the group nested in a line. The cut is four characters short of the marker, so a
// line that carries it finds no group and costs 0; only a bare number resolves.
std::string NestedNumber(const std::string& inv_id) {
  constexpr std::size_t kCut = 11;
  const bool marked = inv_id.find(" (part group #)") != std::string::npos;
  return marked ? Left(inv_id, Len(inv_id) - kCut) : inv_id;
}

void CostNestedLines(jet::Database& database, jet::Recordset& groups) {
  jet::Recordset lines =
      database.OpenRecordset("SELECT * FROM Inv_Recipe where desc = 'RECIPE IN RECIPE'");
  for (; !lines.Eof(); lines.MoveNext()) {
    lines.Edit();
    groups.FindFirst("REC_ID = '" + NestedNumber(lines.Text("inv_id")) + "'");
    lines.Set("cost_per", groups.NoMatch() ? Value(0.0) : groups["cost"]);
    lines.Update();
  }
}

// One roll-up, one copy into the nested lines, one roll-up: a fixed sequence, without recursion.
void RunPasses(jet::Database& database, jet::Recordset& lines, jet::Recordset& items) {
  jet::WriteBatch batch(database);
  CostPartLines(lines, items);
  jet::Recordset groups = database.OpenRecordset("SELECT * FROM R_MASTER");
  RollUp(database, groups, WithYield(database));
  CostNestedLines(database, groups);
  groups = database.OpenRecordset("SELECT * FROM R_MASTER");
  RollUp(database, groups, WithoutYield);
  batch.Finish();
}

}  // namespace

void UpdatePartGroupCosts(Application& app) {
  if (!MayUpdate(app) || !WantsToUpdate(app.desktop)) return;
  // Not restored by its scope: a failure leaves the pointer busy.
  app.desktop.SetPointer(MousePointer::Hourglass);
  app.ItemSet = app.CurrentDatabase.OpenRecordset("SELECT * FROM I_Master;");
  jet::Recordset lines = app.CurrentDatabase.OpenRecordset("SELECT * FROM Inv_Recipe;");
  const bool hasLines = !(lines.Bof() && lines.Eof());
  if (hasLines) RunPasses(app.CurrentDatabase, lines, app.ItemSet);
  app.desktop.SetPointer(MousePointer::Default);
  if (hasLines) app.desktop.MsgBox({.text = "Part Groups updated."});
}

}  // namespace kvi
