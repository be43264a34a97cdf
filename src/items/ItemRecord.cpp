#include "items/ItemRecord.h"

#include <iterator>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "frame/StrgSubs.h"
#include "items/ItemPicture.h"

namespace kvi {

namespace {

constexpr const char* kPriceMask = "###0.00";
constexpr double kLeastQuantity = 0.00001;

struct ShownText {
  const char* field;
  Observed<std::string>& text;
  bool onlyIfFilled = false;
};

std::vector<ShownText> ShownTexts(WorkingItem& item) {
  return {{"name", item.iname.Text},
          {"category", item.category.Text, true},
          {"location", item.location.Text, true},
          {"desc", item.desc.Text},
          {"how_used", item.how_used.Text, true},
          {"how_inv", item.how_inv.Text, true},
          {"how_purchased", item.how_purchased.Text, true},
          {"where1", item.where1.Text, true},
          {"w1_id", item.v_id1.Text},
          {"where2", item.where2.Text, true},
          {"w2_id", item.v_id2.Text},
          {"where3", item.where3.Text, true},
          {"w3_id", item.v_id3.Text},
          {"notes", item.notes.Text}};
}

// A price as it is kept, with two decimals. The mask leaves a text that is more than a number as it
// is ("12.345 each"), so its number goes through it again.
double Price(const Value& price) {
  return Val(Format(Val(Format(price, kPriceMask)), kPriceMask));
}

std::string Unit(ComboBox& unit) {
  if (Trim(unit.Text()).empty()) unit.Text = "each";
  return Trim(unit.Text());
}

double Quantity(TextBox& quantity) {
  if (Val(quantity.Text()) < kLeastQuantity) quantity.Text = "1";
  return Val(quantity.Text());
}

double Cost(const std::string& text) {
  const std::string cost = Trim(text);
  return Val(cost.starts_with("$") ? cost.substr(1) : cost);
}

// The third vendor is never stored as chosen: the second one's button is asked twice.
int VendorOptNo(const WorkingItem& item) {
  if (item.VendorOpt1.Value) return 1;
  if (item.VendorOpt2.Value) return 2;
  return item.VendorOpt2.Value ? 3 : 0;
}

struct SavedField {
  const char* name;
  Value (*value)(WorkingItem& item);
};

// In the order of the writing. One blank stays behind the scan number and the picture's path.
constexpr SavedField kSavedFields[] = {
    {"category", [](WorkingItem& item) -> Value { return Trim(item.category.Text()); }},
    {"location", [](WorkingItem& item) -> Value { return Trim(item.location.Text()); }},
    {"inv_id", [](WorkingItem& item) -> Value { return Trim(item.i_num.Text()); }},
    {"name", [](WorkingItem& item) -> Value { return StripAmpersands(item.iname.Text()); }},
    {"desc", [](WorkingItem& item) -> Value { return item.desc.Text(); }},
    {"how_inv", [](WorkingItem& item) -> Value { return Unit(item.how_inv); }},
    {"how_used", [](WorkingItem& item) -> Value { return Unit(item.how_used); }},
    {"how_purchased", [](WorkingItem& item) -> Value { return Unit(item.how_purchased); }},
    {"hu_qty", [](WorkingItem& item) -> Value { return Quantity(item.hu_qty); }},
    {"hi_qty", [](WorkingItem& item) -> Value { return Quantity(item.hi_qty); }},
    {"cost_per", [](WorkingItem& item) -> Value { return Cost(item.hp_cost_per.Text); }},
    {"qty_on_hand", [](WorkingItem& item) -> Value { return Val(item.qty_on_hand.Text()); }},
    // The plain product, whatever valuation method is set; a cost with a "$" counts as 0 here.
    {"valuation",
     [](WorkingItem& item) -> Value {
       return Val(item.hp_cost_per.Text()) * Val(item.qty_on_hand.Text());
     }},
    {"re_order", [](WorkingItem& item) -> Value { return Val(item.re_order.Text()); }},
    {"BarCodeScan",
     [](WorkingItem& item) -> Value { return Trim(item.BarCodeScanId.Text()) + " "; }},
    {"where1", [](WorkingItem& item) -> Value { return Trim(item.where1.Text()); }},
    {"where2", [](WorkingItem& item) -> Value { return Trim(item.where2.Text()); }},
    {"where3", [](WorkingItem& item) -> Value { return Trim(item.where3.Text()); }},
    {"w1_id", [](WorkingItem& item) -> Value { return item.v_id1.Text(); }},
    {"w2_id", [](WorkingItem& item) -> Value { return item.v_id2.Text(); }},
    {"w3_id", [](WorkingItem& item) -> Value { return item.v_id3.Text(); }},
    {"notes", [](WorkingItem& item) -> Value { return item.notes.Text(); }},
    {"optimal", [](WorkingItem& item) -> Value { return Val(item.optimal.Text()); }},
    {"active", [](WorkingItem& item) -> Value { return item.active_i.Value ? "YES" : "NO"; }},
    {"CorpInventoryItem", [](WorkingItem& item) -> Value { return item.rbCII.Value(); }},
    {"picpath", [](WorkingItem& item) -> Value { return item.picpath.Text() + " "; }},
    {"Price1", [](WorkingItem& item) -> Value { return Price(item.Price1.Text()); }},
    {"Price2", [](WorkingItem& item) -> Value { return Price(item.Price2.Text()); }},
    {"Price3", [](WorkingItem& item) -> Value { return Price(item.Price3.Text()); }},
    {"VendorOptNo", [](WorkingItem& item) -> Value { return VendorOptNo(item); }},
};

}  // namespace

void FetchWhole(const jet::Recordset& row) {
  if (row.Eof()) return;
  for (const jet::FieldDef& field : row.Fields()) row[field.Name];
}

void ShowTexts(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run) {
  for (const ShownText& shown : ShownTexts(item))
    run([&] {
      const std::string text = row.Text(shown.field);
      if (!shown.onlyIfFilled || !Trim(text).empty()) shown.text = text;
    });
  run([&] { item.BarCodeScanId.Text = Trim(row.Text("BarCodeScan")); });
  run([&] {
    const bool active = EqualsNoCase(row.Text("active"), "YES");
    (active ? item.active_i : item.n_active_i).Value = true;
  });
  run([&] { ShowPicture(item, row.Text("picpath")); });
}

void ShowCorporateFlag(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run) {
  run([&] {
    const bool corporate = row["CorpInventoryItem"].Boolean();
    (corporate ? item.rbCII : item.rbNCII).Value = true;
  });
}

void ShowNumbers(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run) {
  run([&] { item.hp_cost_per.Text = row.Text("cost_per"); });
  run([&] { item.qty_on_hand.Text = Format(row.Number("qty_on_hand"), "####0.00"); });
  run([&] {
    item.valuation.Text = Str(Val(item.hp_cost_per.Text()) * Val(item.qty_on_hand.Text()));
  });
  run([&] { item.re_order.Text = row.Text("re_order"); });
  run([&] { item.hu_qty.Text = Str(row.Number("hu_qty")); });
  run([&] { item.hi_qty.Text = Str(row.Number("hi_qty")); });
  run([&] { item.optimal.Text = Str(row.Number("optimal")); });
}

void ShowPrices(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run) {
  for (int n = 1; n <= WorkingItem::kVendors; ++n) {
    const WorkingItem::Vendor vendor = item.VendorOf(n);
    run([&] { vendor.Price.Text = Str(Price(row["Price" + Str(n)])); });
    vendor.VendorOpt.Value = false;
  }
  run([&] {
    const double chosen = row.Number("VendorOptNo");
    for (int n = 1; n <= WorkingItem::kVendors; ++n)
      if (chosen == n) item.VendorOf(n).VendorOpt.Value = true;
  });
}

void ShowPlainNumbers(WorkingItem& item, const jet::Recordset& row, const LoadStatements& run) {
  run([&] { item.hp_cost_per.Text = row.Text("cost_per"); });
  run([&] { item.qty_on_hand.Text = row.Text("qty_on_hand"); });
  run([&] { item.valuation.Text = row.Text("valuation"); });
  run([&] { item.re_order.Text = row.Text("re_order"); });
  run([&] { item.hu_qty.Text = row.Text("hu_qty"); });
  run([&] { item.hi_qty.Text = row.Text("hi_qty"); });
  run([&] { item.optimal.Text = row.Text("optimal"); });
}

void WriteFields(WorkingItem& item, int profitCenter, jet::Recordset& row) {
  row.Set("pcenter", profitCenter);
  for (const SavedField& field : kSavedFields) row.Set(field.name, field.value(item));
}

}  // namespace kvi
