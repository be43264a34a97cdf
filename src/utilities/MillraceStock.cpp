#include "utilities/MillraceStock.h"

#include <algorithm>
#include <unordered_set>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/StrgSubs.h"
#include "jet/KeyedRows.h"

namespace kvi {

namespace {

constexpr int kNoSuchDatabase = 3343;
constexpr std::size_t kLongestName = 50;
constexpr int kRowsBetweenTellings = 500;

Value AsItIs(const Value& value) {
  return value;
}
// Statements join such texts between quotes, so that no screen lets these
// characters in.
Value Plain(const Value& value) {
  if (value.IsNull()) return value;
  return Trim(StripAmpersands(StripQuotes(value.Text())));
}
Value NameOf(const Value& desc) {
  return desc.IsNull() ? desc : Plain(Left(desc.Text(), kLongestName));
}

}  // namespace

const MillraceStock::Field MillraceStock::kPartFields[] = {
    {"i_num", "inv_id", Plain},       {"desc", "name", NameOf},
    {"desc", "desc", AsItIs},         {"category", "category", Plain},
    {"location", "location", Plain},  {"how_inv", "how_inv", AsItIs},
    {"cost_per", "cost_per", AsItIs}, {"valuation", "valuation", AsItIs},
    {"re_order", "re_order", AsItIs}, {"where1", "where1", Plain},
    {"where2", "where2", Plain},      {"where3", "where3", Plain},
    {"notes", "notes", AsItIs}};
// What that product calls a machine is the group here. No group is made of it.
const MillraceStock::Field MillraceStock::kLineFields[] = {{"i_num", "inv_id", Plain},
                                                           {"machine_id", "rec_id", Plain},
                                                           {"desc", "desc", AsItIs},
                                                           {"qty", "qty", AsItIs},
                                                           {"notes", "notes", AsItIs}};
const MillraceStock::Field MillraceStock::kLocationFields[] = {{"Drop03", "Description", Plain}};
const MillraceStock::Field MillraceStock::kCategoryFields[] = {{"Drop04", "Description", Plain}};

std::span<const MillraceStock::Table> MillraceStock::Tables() {
  static const Table tables[] = {{"Inventory", "SELECT * FROM Inventory;", "I_Master", kPartFields,
                                  false, "DELETE * FROM I_Master;"},
                                 {"Inv_recipe", "SELECT * FROM Inv_recipe;", "Inv_Recipe",
                                  kLineFields, false, "DELETE * FROM Inv_Recipe;"},
                                 {"DropDowns", "SELECT Drop03 FROM DropDowns;", "DD_Inv_Loc",
                                  kLocationFields, true, "DELETE * FROM DD_Inv_Loc;"},
                                 {"DropDowns", "SELECT Drop04 FROM DropDowns;", "DD_Category",
                                  kCategoryFields, true, "DELETE * FROM DD_Category;"}};
  return tables;
}

MillraceStock::MillraceStock(jet::Database& source, jet::Database& target, Progress& progress) {
  Require(source);
  for (const Table& table : Tables()) {
    rows_.push_back(Read(table, source, progress));
    Try(table, rows_.back(), target);
  }
  TryNumbers(rows_.front());
}

void MillraceStock::Require(jet::Database& source) {
  const auto standing = source.TableDefs();
  for (const Table& table : Tables()) {
    const auto found = std::ranges::find_if(
        standing, [&](const jet::TableDef& other) { return EqualsNoCase(other.Name, table.name); });
    if (found == standing.end())
      throw RunTimeError(kNoSuchDatabase, "This is no Millrace Works database: the table " +
                                              std::string(table.name) + " is missing.");
    for (const Field& field : table.fields)
      if (std::ranges::none_of(found->Fields, [&](const jet::FieldDef& other) {
            return EqualsNoCase(other.Name, field.from);
          }))
        throw RunTimeError(kNoSuchDatabase, "This is no Millrace Works database: the field " +
                                                std::string(field.from) + " of " + table.name +
                                                " is missing.");
  }
}

MillraceStock::Rows MillraceStock::Read(const Table& table, jet::Database& source,
                                        Progress& progress) {
  Rows rows;
  auto set = source.OpenRecordset(table.query);
  progress.Begin(std::string("Reading ") + table.name, set.RecordCount());
  for (int done = 1; !set.Eof(); set.MoveNext(), ++done) {
    if (done % kRowsBetweenTellings == 0) progress.Done(done);
    if (table.isList && set[table.fields.front().from].IsNull()) continue;
    std::vector<Value>& row = rows.emplace_back();
    for (const Field& field : table.fields) row.push_back(field.change(set[field.from]));
  }
  return rows;
}

// Our own field takes the value, or tells why not; nothing is written.
void MillraceStock::Try(const Table& table, const Rows& rows, jet::Database& target) {
  auto set = target.OpenRecordset(std::string("SELECT * FROM ") + table.to + " WHERE 0 = 1;");
  set.AddNew();
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (std::size_t field = 0; field < table.fields.size(); ++field) try {
        set.Set(table.fields[field].to, rows[row][field]);
      } catch (const RunTimeError& error) {
        Refuse(table, row, std::string(table.fields[field].from) + ": " + error.Description);
      }
  set.CancelUpdate();
}

void MillraceStock::TryNumbers(const Rows& parts) {
  std::unordered_set<std::string, jet::TextHash, jet::TextEqual> numbers;
  for (std::size_t row = 0; row < parts.size(); ++row) {
    const std::string number = parts[row].front().Text();
    if (number.empty())
      Refuse(Tables().front(), row, "the part has no number");
    else if (!numbers.insert(number).second)
      Refuse(Tables().front(), row, "another part has the number " + number);
  }
}

void MillraceStock::Refuse(const Table& table, std::size_t row, const std::string& reason) {
  offenders_.push_back(std::string(table.name) + ", row " + Str(static_cast<int>(row) + 1) + ": " +
                       reason);
}

void MillraceStock::Write(jet::Database& target, int profitCenter, Progress& progress) const {
  for (const Table& table : Tables()) target.Execute(table.deletion);
  for (std::size_t number = 0; number < rows_.size(); ++number) {
    const Table& table = Tables()[number];
    const Rows& rows = rows_[number];
    progress.Begin(std::string("Writing ") + table.to, static_cast<int>(rows.size()));
    auto set = target.OpenRecordset(std::string("SELECT * FROM ") + table.to + ";");
    for (std::size_t row = 0; row < rows.size(); ++row) {
      set.AddNew();
      for (std::size_t field = 0; field < table.fields.size(); ++field)
        set.Set(table.fields[field].to, rows[row][field]);
      if (!table.isList) set.Set("pcenter", profitCenter);
      if (number == 0) set.Set("active", "YES");
      set.Update();
      if (row % kRowsBetweenTellings == 0) progress.Done(static_cast<int>(row));
    }
  }
}

}  // namespace kvi
