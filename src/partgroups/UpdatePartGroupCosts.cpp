#include "partgroups/UpdatePartGroupCosts.h"

#include <functional>
#include <string>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/Application.h"
#include "frame/BulkWalk.h"
#include "frame/GENERAL.h"
#include "frame/Wording.h"
#include "jet/KeyedRows.h"
#include "partgroups/PartGroupLine.h"
#include "security/CheckAccess.h"

namespace kvi {

namespace {

constexpr int kInvalidUseOfNull = 94;

// What the passes need of a part. Its cost per used unit is worked out where a line asks for it: a
// part that has none stops nobody before.
struct Part {
  Value cost_per, hi_qty, hu_qty;
  std::string how_used;
  double yield;
};
using Parts = jet::KeyedRows<Part>;

struct Line {
  Value qty, cost_per;
  std::string inv_id;
};
using Lines = jet::KeyedRows<Line>;

using ExtendedCost = std::function<double(const Line& line)>;

bool MayUpdate(const Application& app) {
  if (CheckAccess(app.AccessString, kPartGroupModule, kWriteAccess)) return true;
  app.desktop.MsgBox({.text = "Current security clearance is READ ONLY for " + kPartGroupsLower +
                              ".\n\nChanges NOT Saved"});
  return false;
}

bool WantsToUpdate(Desktop& desktop) {
  if (desktop.MsgBox({.text = "This option will update all of your " + kPartGroupsLower +
                              " to the latest costs.  \n\nAre you sure you want to continue?",
                      .buttons = Buttons::YesNo,
                      .icon = Icon::Question}) == Answer::Yes)
    return true;
  desktop.MsgBox({.text = "Part groups NOT updated."});
  return false;
}

// By number, whatever the profit center: of two parts of one number the first wins.
Parts ReadParts(jet::Recordset& items) {
  Parts parts;
  for (; !items.Eof(); items.MoveNext())
    parts.Add(items["INV_ID"], {items["cost_per"], items["hi_qty"], items["hu_qty"],
                                items.Text("how_used"), YieldOf(items["Yield"])});
  return parts;
}

// By the number of their group alone, so groups of one number in two profit centers share them.
Lines ReadLines(jet::Database& database) {
  Lines lines;
  jet::Recordset rows = database.OpenRecordset("SELECT * FROM INV_RECIPE");
  for (; !rows.Eof(); rows.MoveNext())
    lines.Add(rows["REC_ID"], {rows["qty"], rows["cost_per"], rows.Text("inv_id")});
  return lines;
}

// The cost lives across the lines: one whose item gives none takes the cost of the line before it.
// Before the first cost there is Null.
void CostPartLines(jet::Database& database, jet::Recordset& lines, const Parts& parts,
                   Progress& progress) {
  Value cost;
  progress.Begin("Lines", lines.RecordCount());
  const auto costLine = [&](jet::Recordset& line) {
    if (IsNestedLine(line.Text("desc"))) return RowEnd::Leave;
    const Part* part = parts.FirstOf(Trim(line.Text("inv_id")));
    if (!part)
      cost = 0.0;
    else if (const auto own = CostPerUsedUnit(part->cost_per, part->hi_qty, part->hu_qty))
      cost = *own;
    line.Set("cost_per", cost);
    line.Set("how_used", part ? part->how_used : "");
    return RowEnd::Write;
  };
  WalkAndChange(database, lines, costLine, {}, &progress);
}

// Writes to each group the sum over its lines, and tells the sums by the groups' numbers.
jet::KeyedRows<double> RollUp(jet::Database& database, const ExtendedCost& extendedCost,
                              Progress& progress) {
  const Lines lines = ReadLines(database);
  jet::KeyedRows<double> costs;
  jet::Recordset groups = database.OpenRecordset("SELECT * FROM R_MASTER");
  progress.Begin("Groups", groups.RecordCount());
  const auto sumUp = [&](jet::Recordset& group) {
    double sum = 0;
    for (const Line& line : lines.Of(group.Text("REC_ID"))) sum += extendedCost(line);
    group.Set("cost", sum);
    costs.Add(group["REC_ID"], sum);
    return RowEnd::Write;
  };
  WalkAndChange(database, groups, sumUp, {}, &progress);
  return costs;
}

double Amount(const Value& value) {
  if (value.IsNull()) throw RunTimeError(kInvalidUseOfNull);
  return value.Number();
}

// The yield enters here alone, and so reaches only what nested lines are given. It is found by the
// number as it stands, where the cost is found by the trimmed one.
ExtendedCost WithYield(const Parts& parts) {
  return [&parts](const Line& line) {
    const double plain = Amount(line.qty) * Amount(line.cost_per);
    const Part* part = parts.FirstOf(line.inv_id);
    return plain * kWholeYield / (part ? part->yield : kWholeYield);
  };
}

double WithoutYield(const Line& line) {
  return ValOf(line.cost_per) * ValOf(line.qty);
}

void CostNestedLines(jet::Database& database, const jet::KeyedRows<double>& groupCosts) {
  jet::Recordset lines =
      database.OpenRecordset("SELECT * FROM Inv_Recipe where desc = 'RECIPE IN RECIPE'");
  WalkAndChange(database, lines, [&](jet::Recordset& line) {
    const double* cost = groupCosts.FirstOf(NestedNumber(line.Text("inv_id")));
    line.Set("cost_per", cost ? *cost : 0);
    return RowEnd::Write;
  });
}

// One roll-up, one copy into the nested lines, one roll-up: a fixed sequence, without recursion.
void RunPasses(jet::Database& database, jet::Recordset& lines, jet::Recordset& items,
               Progress& progress) {
  const Parts parts = ReadParts(items);
  jet::WriteBatch batch(database);
  CostPartLines(database, lines, parts, progress);
  CostNestedLines(database, RollUp(database, WithYield(parts), progress));
  RollUp(database, WithoutYield, progress);
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
  if (hasLines) {
    const auto progress = app.desktop.NewProgress(kPartGroups, false);
    RunPasses(app.CurrentDatabase, lines, app.ItemSet, *progress);
  }
  app.desktop.SetPointer(MousePointer::Default);
  if (hasLines) app.desktop.MsgBox({.text = kPartGroups + " updated."});
}

}  // namespace kvi
