#include <array>
#include <cctype>
#include <set>
#include <utility>

#include "base/Date.h"
#include "base/Text.h"
#include "sample/Directory.h"
#include "sample/Stockroom.h"

namespace kvi {
namespace {

using stockroom::Part;
using stockroom::Source;

using Field = std::pair<std::string_view, Value>;
using Fields = std::vector<Field>;

// Appends rows to one table.
class TableWriter {
 public:
  TableWriter(jet::Database& database, std::string_view table)
      : rows_(database.OpenRecordset("SELECT * FROM [" + std::string(table) + "]")) {}

  void Add(const Fields& fields) {
    rows_.AddNew();
    for (const auto& [field, value] : fields) rows_.Set(field, value);
    rows_.Update();
  }

 private:
  jet::Recordset rows_;
};

double Money(int cents) {
  return cents / 100.0;
}

Date DateOf(long day) {
  return AddDays(Date{}, day);
}

// An absent text stands in the file as Null, or as "N/A" in a vendor's place.
Value TextOrNull(std::string_view text) {
  return text.empty() ? Value() : Value(text);
}

Value VendorOrNone(const Source& source, std::size_t index) {
  if (!source.Vendor.empty()) return source.Vendor;
  return index % 3 == 0 ? Value("N/A") : Value();
}

// What years of use and an older program left behind, on every so many of the parts that are kept
// by the piece. The repair at the next start mends some of it.
struct Hole {
  std::size_t Every, At;
  std::string_view Name;
  Value Content;
};

void MakeHoles(std::size_t index, const Part& part, Fields& fields) {
  static const Hole kHoles[] = {
      {97, 3, "desc", {}},        {113, 11, "re_order", {}},    {151, 7, "hu_qty", {}},
      {181, 29, "how_used", {}},  {89, 13, "w1_id", {}},        {127, 17, "location", ""},
      {211, 19, "Price2", {}},    {223, 23, "VendorOptNo", {}}, {263, 41, "how_purchased", ""},
      {307, 37, "valuation", {}}, {131, 43, "optimal", {}},     {173, 31, "category", {}}};
  if (part.Pack != &packing::kEach) return;
  for (const Hole& hole : kHoles)
    if (index % hole.Every == hole.At) fields.emplace_back(hole.Name, hole.Content);
}

Fields PartRow(const Part& part, std::size_t index) {
  const double onHand = part.OnHand / 100.0;
  const auto& [first, second, third] = part.Sources;
  const Packing& pack = *part.Pack;
  return {{"inv_id", part.InvId},
          {"pcenter", part.ProfitCenter},
          {"name", part.Name},
          {"desc", part.Description},
          {"category", part.Category->Name},
          {"location", part.Location},
          {"account", part.Account},
          {"how_purchased", pack.Purchased},
          {"how_inv", pack.Counted},
          {"how_used", pack.Used},
          {"hi_qty", pack.PerPurchased},
          {"hu_qty", pack.PerCounted},
          {"cost_per", Money(part.Cents)},
          {"qty_on_hand", onHand},
          {"re_order", part.ReOrder},
          {"optimal", part.Par},
          {"valuation", part.OnHand * part.Cents / 10000.0},
          {"active", part.Active ? "YES" : "NO"},
          {"where1", VendorOrNone(first, index)},
          {"where2", VendorOrNone(second, index)},
          {"where3", VendorOrNone(third, index)},
          {"w1_id", TextOrNull(first.Number)},
          {"w2_id", TextOrNull(second.Number)},
          {"w3_id", TextOrNull(third.Number)},
          {"Price1", Money(first.Cents)},
          {"Price2", Money(second.Cents)},
          {"Price3", Money(third.Cents)},
          {"VendorOptNo", part.SourceInUse},
          {"notes", TextOrNull(part.Notes)},
          {"Yield", pack.Yield > 0 ? Value(pack.Yield) : Value()},
          {"BarCodeScan", TextOrNull(part.BarCode)},
          {"CorpInventoryItem", part.Corporate}};
}

void WriteParts(jet::Database& database, const Stockroom& room) {
  TableWriter parts(database, "I_Master");
  for (std::size_t i = 0; i < room.Parts.size(); ++i) {
    Fields row = PartRow(room.Parts[i], i);
    MakeHoles(i, room.Parts[i], row);
    parts.Add(row);
  }
}

// Purchase entry knows neither a profit center nor what was ordered.
void WritePurchases(jet::Database& database, const Stockroom& room) {
  TableWriter purchases(database, "Hist_Purchases");
  for (const auto& purchase : room.Purchases) {
    Fields row{{"inv_id", purchase.Of->InvId},
               {"p_date", DateOf(purchase.Day)},
               {"p_qty", purchase.Quantity},
               {"price", Money(purchase.Cents)},
               {"TRANS_NUM", purchase.TransNum}};
    if (purchase.Received) {
      row.emplace_back("pcenter", purchase.Of->ProfitCenter);
      row.emplace_back("o_qty", purchase.OrderedQuantity);
      row.emplace_back("o_price", Money(purchase.OrderedCents));
    }
    purchases.Add(row);
  }
}

void WriteLockedPeriods(jet::Database& database, const Stockroom& room) {
  std::set<std::pair<long, int>> locked;
  TableWriter levels(database, "Historical Inventory");
  for (const auto& level : room.Levels) {
    locked.emplace(level.Day, level.Of->ProfitCenter);
    levels.Add({{"F_Date", DateOf(level.Day)},
                {"Inv_ID", level.Of->InvId},
                {"pcenter", level.Of->ProfitCenter},
                {"Amount", level.Level / 100.0},
                {"Price", Money(level.Cents)}});
  }
  TableWriter headers(database, "HI_Header");
  for (const auto& [day, center] : locked)
    headers.Add({{"F_Date", DateOf(day)}, {"pcenter", center}});
}

void WritePartGroups(jet::Database& database, const Stockroom& room) {
  TableWriter groups(database, "R_Master"), lines(database, "Inv_Recipe");
  for (const auto& group : room.Groups) {
    groups.Add({{"rec_id", group.RecId},
                {"pcenter", group.ProfitCenter},
                {"name", group.Name},
                {"category", group.Category},
                {"notes", TextOrNull(group.Notes)},
                {"cost", group.Cost}});
    for (const auto& line : group.Lines)
      lines.Add({{"rec_id", group.RecId},
                 {"pcenter", group.ProfitCenter},
                 {"inv_id", line.InvId},
                 {"iname", line.Name},
                 {"how_used", line.HowUsed},
                 {"qty", line.Quantity},
                 {"cost_per", line.CostPer},
                 {"desc", line.Description}});
  }
}

void WriteOrders(jet::Database& database, const Stockroom& room) {
  TableWriter orders(database, "PSO_Master"), lines(database, "PSO_Detail");
  for (const auto& order : room.Orders) {
    orders.Add({{"pso_id", order.Id},
                {"pso_name", order.Name},
                {"pso_date", DateOf(order.Day)},
                {"pcenter", order.ProfitCenter}});
    for (const auto& line : order.Lines)
      lines.Add({{"pso_id", order.Id},
                 {"pso_inv_id", line.InvId},
                 {"pso_qty", line.Quantity},
                 {"pso_price", line.Cents == 0 ? Value() : Value(Money(line.Cents))},
                 {"pcenter", order.ProfitCenter}});
  }
  TableWriter invoices(database, "Invoice");
  for (const auto& invoice : room.Invoices)
    invoices.Add({{"Vendor", invoice.Vendor},
                  {"Number", invoice.Number},
                  {"Date", DateOf(invoice.Day)},
                  {"date_due", DateOf(invoice.Due)},
                  {"amount", Money(invoice.Cents)},
                  {"adj_amount", Money(invoice.AdjustedCents)}});
}

std::string Phone(const Vendor& vendor, std::size_t index, int line) {
  const std::string last = std::to_string(100 + (index * 7 + static_cast<std::size_t>(line)) % 100);
  return "(" + std::string(vendor.AreaCode) + ") 555-0" + last;
}

// A box left empty on the vendor screen is stored as one blank.
void WriteVendors(jet::Database& database) {
  TableWriter rows(database, "Vendor_Info");
  const auto contacts = ContactNames();
  for (std::size_t i = 0; i < Vendors().size(); ++i) {
    const Vendor& vendor = Vendors()[i];
    const std::string web(vendor.Web);
    const bool twoContacts = i % 3 != 0;
    rows.Add({{"Name", vendor.Name},
              {"Address", vendor.Street},
              {"City", vendor.City},
              {"State", vendor.State},
              {"Zip", vendor.Zip},
              {"Fax", i % 4 == 1 ? " " : Phone(vendor, i, 2)},
              {"EmailAddress", "orders@" + web + ".example"},
              {"Contact1", contacts[i * 7 % contacts.size()]},
              {"Phone1", Phone(vendor, i, 0)},
              {"Contact2", twoContacts ? contacts[(i * 7 + 3) % contacts.size()] : " "},
              {"Phone2", twoContacts ? Phone(vendor, i, 1) : " "},
              {"VendorCode", vendor.Code},
              {"VendorID", i % 5 == 2 ? " " : std::to_string(20410 + i * 37)},
              {"VendorURL", "www." + web + ".example"},
              {"VendorUserName", i % 2 == 0 ? " " : "stockroom"}});
  }
}

void WriteEmployees(jet::Database& database) {
  struct Right {
    char Letter;
    std::string_view Read, Write;
  };
  constexpr Right kRights[] = {{'I', "ReadInv", "WriteInv"},   {'R', "ReadRecipe", "WriteRecipe"},
                               {'P', "ReadPSO", "WritePSO"},   {'S', "ReadSpeedy", "WriteSpeedy"},
                               {'H', "ReadHist", "WriteHist"}, {'T', "ReadPrint", "WritePrint"},
                               {'U', "ReadUtil", "WriteUtil"}};
  TableWriter rows(database, "EmployeeDB");
  for (const Employee& employee : Employees()) {
    Fields row{{"E_Code", employee.Code}, {"E_Name", employee.Name}, {"E_SL", employee.Level}};
    for (const Right& right : kRights) {
      const bool full = employee.Rights.find(right.Letter) != std::string_view::npos;
      const char small = static_cast<char>(std::tolower(right.Letter));
      row.emplace_back(right.Write, full);
      row.emplace_back(right.Read, full || employee.Rights.find(small) != std::string_view::npos);
    }
    rows.Add(row);
  }
}

void WriteDropLists(jet::Database& database, const Stockroom& room) {
  using List = std::set<std::string, std::less<>>;
  List categories, locations, groupCategories, purchased, counted, used;
  for (const Category& category : Categories()) categories.emplace(category.Name);
  for (const auto& families : {MechanicalFamilies(), FacilityFamilies()}) {
    for (const Family& family : families) {
      purchased.emplace(family.Pack.Purchased);
      counted.emplace(family.Pack.Counted);
      used.emplace(family.Pack.Used);
    }
  }
  for (const Part& part : room.Parts) locations.insert(part.Location);
  for (const auto& group : room.Groups) groupCategories.emplace(group.Category);
  const std::pair<std::string_view, const List&> lists[] = {
      {"DD_category", categories},     {"DD_inv_loc", locations}, {"DD_rg_cat", groupCategories},
      {"DD_how_purchased", purchased}, {"DD_how_inv", counted},   {"DD_how_used", used}};
  for (const auto& [table, list] : lists) {
    TableWriter rows(database, table);
    for (const std::string& description : list) rows.Add({{"Description", description}});
  }
}

void WriteProfitCenters(jet::Database& database) {
  TableWriter rows(database, "PCenter");
  int number = 0;
  for (const auto& name : ProfitCenterNames()) rows.Add({{"pcenter", number++}, {"name", name}});
}

}  // namespace

void WriteStockroom(jet::Database& database, const Stockroom& room) {
  WriteProfitCenters(database);
  WriteVendors(database);
  WriteEmployees(database);
  WriteDropLists(database, room);
  WriteParts(database, room);
  WritePurchases(database, room);
  WriteLockedPeriods(database, room);
  WritePartGroups(database, room);
  WriteOrders(database, room);
}

}  // namespace kvi
