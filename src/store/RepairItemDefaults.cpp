#include "store/RepairItemDefaults.h"

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/BulkWalk.h"

namespace kvi {

namespace {

constexpr int kDuplicateKey = 3022;
constexpr double kLeastUsedQuantity = 0.0001;

bool IsBlank(const Value& value) {
  return value.IsNull() || Trim(value.Text()).empty();
}
bool IsTooSmall(const Value& value) {
  return value.IsNull() || value.Number() < kLeastUsedQuantity;
}
bool IsMissing(const Value& value) {
  return value.IsNull();
}

struct Repair {
  const char* field;
  bool (*hole)(const Value&);
  const char* filling;
};

constexpr Repair kRepairs[] = {
    {"how_used", IsBlank, "each"},   {"how_inv", IsBlank, "each"}, {"hu_qty", IsTooSmall, "1"},
    {"qty_on_hand", IsMissing, "0"}, {"re_order", IsMissing, "0"}, {"valuation", IsMissing, "0"},
    {"cost_per", IsMissing, "0"},
};

// Each hole is a write of its own: one that fails leaves the row its other fillings. A row without
// a hole is not locked.
void RepairRow(jet::Recordset& items) {
  for (const Repair& repair : kRepairs) {
    const auto hasHole = [&](const jet::Recordset& row) { return repair.hole(row[repair.field]); };
    const auto fill = [&](jet::Recordset& row) {
      if (!hasHole(row)) return RowEnd::Leave;
      row.Set(repair.field, repair.filling);
      return RowEnd::Write;
    };
    ChangeRow(items, fill, hasHole);
  }
}

}  // namespace

void RepairItemDefaults(jet::Database& database, Desktop& desktop) {
  try {
    jet::Recordset items = database.OpenRecordset("SELECT * FROM I_Master;");
    jet::WriteBatch batch(database);
    for (; !items.Eof(); items.MoveNext()) RepairRow(items);
    batch.Finish();
  } catch (const RunTimeError& error) {
    desktop.MsgBox({.text = Str(error.Number) + " " + error.Description, .icon = Icon::Error});
  }
}

void EnsureBaseRecord(jet::Database& database, jet::Recordset& items) {
  items = database.OpenRecordset("SELECT * FROM I_Master;");
  items.AddNew();
  items.Set("inv_id", "999999");
  items.Set("name", "Base Record");
  items.Set("category", "KVI always needs one record");
  items.Set("active", "NO");
  try {
    items.Update();
  } catch (const RunTimeError& error) {
    if (error.Number != kDuplicateKey) throw;
    items.CancelUpdate();
  }
}

}  // namespace kvi
