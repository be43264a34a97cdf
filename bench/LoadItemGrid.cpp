// The list of the parts: 21 texts of each in the grid.
#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"
#include "items/KVI_InventorySummary.h"

namespace kvi::bench {
namespace {

using Rows = std::vector<std::vector<std::string>>;

double Ours(KVI_InventorySummary& screen) {
  screen.LoadItemGrid();
  double size = 0;
  for (int row = 1; row <= screen.Spread1.MaxRows(); ++row)
    for (int col = 1; col <= screen.Spread1.MaxCols(); ++col)
      size += static_cast<double>(screen.Spread1.Text(row, col).size());
  return size;
}

// How a column is shown, beside its texts.
constexpr const char* kColumns[][2] = {
    {"name", ""},         {"category", ""},      {"location", ""},       {"inv_id", ""},
    {"[desc]", ""},       {"how_purchased", ""}, {"cost_per", "$ %.4f"}, {"qty_on_hand", "%.2f"},
    {"how_inv", ""},      {"hi_qty", "%.2f"},    {"how_used", ""},       {"hu_qty", "%.2f"},
    {"re_order", "%.2f"}, {"optimal", "%.2f"},   {"active", ""},         {"where1", ""},
    {"w1_id", ""},        {"where2", ""},        {"w2_id", ""},          {"where3", ""},
    {"w3_id", ""}};

constexpr int kActive = 14;

std::string Query() {
  std::string columns;
  for (const auto& column : kColumns)
    columns += (columns.empty() ? "" : ",") + std::string(column[0]);
  return "SELECT " + columns + " FROM I_Master WHERE pcenter=0 ORDER BY name,_rid";
}

std::string CellOf(sqlite3_stmt* parts, int column) {
  const char* format = kColumns[column][1];
  if (column == kActive) {
    const std::string active = TextOf(parts, column);
    return sqlite3_stricmp(active.c_str(), "YES") == 0 ? "Active" : "Not-Active";
  }
  if (*format == '\0' || sqlite3_column_type(parts, column) == SQLITE_NULL)
    return TextOf(parts, column);
  char text[64];
  std::snprintf(text, sizeof text, format, sqlite3_column_double(parts, column));
  return text;
}

double Floor(sqlite3_stmt* parts, Rows& rows) {
  while (Step(parts)) {
    auto& row = rows.emplace_back();
    row.reserve(std::size(kColumns));
    for (int column = 0; column < static_cast<int>(std::size(kColumns)); ++column)
      row.push_back(CellOf(parts, column));
  }
  double size = 0;
  for (const auto& row : rows)
    for (const std::string& text : row) size += static_cast<double>(text.size());
  return size;
}

void LoadItemGrid(benchmark::State& state) {
  Desk desk;
  desk.App().CurrentDatabase = jet::Database::Open(kDatabase, false);
  auto& screen = desk.App().Get<KVI_InventorySummary>();
  desk.App().screens.Load(screen);
  RawFile file(kDatabase);
  sqlite3_stmt* parts = file.Prepare(Query());
  Rows rows;
  RunPair(state, {{[&] { return Ours(screen); }, [&] { screen.Spread1.SetMaxRows(0); }},
                  {[&] { return Floor(parts, rows); }, [&] { rows.clear(); }},
                  3});
}
BENCHMARK(LoadItemGrid)->Name("Fill the list with 30,000 parts")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
