#include "sample/OldProducts.h"

#include <fstream>
#include <functional>

#include "base/RunTimeError.h"
#include "sample/SampleStockroom.h"
#include "sample/oldfiles/WriteDatabase.h"
#include "store/Schema.h"

namespace kvi {
namespace {

namespace fs = std::filesystem;
using jetfile::ColumnType;
using jetfile::JetFileWriter;
using jetfile::Version;

constexpr SampleOptions kPlainbookStock{120, 4};

void AddMillraceParts(JetFileWriter& writer) {
  writer.Begin({"Inventory",
                {{"i_num", ColumnType::Text, 15},
                 {"desc", ColumnType::Text, 100},
                 {"category"},
                 {"location"},
                 {"how_inv", ColumnType::Text, 10},
                 {"cost_per", ColumnType::Currency},
                 {"valuation", ColumnType::Currency},
                 {"re_order", ColumnType::Single},
                 {"where1"},
                 {"where2"},
                 {"where3"},
                 {"notes", ColumnType::Memo}},
                {{"PrimaryKey", {"i_num"}, true}}});
  const auto add = [&](const char* number, const char* name, const char* category,
                       const char* location, double cost, double value, double reOrder,
                       const Value& notes = {}) {
    writer.Add({number, name, category, location, "each", cost, value, reOrder, "Harbour Bearings",
                "N/A", "N/A", notes});
  };
  add("1001", "Bearing 6204-2RS", "Bearings", "Rack A1", 4.85, 58.2, 6);
  add("1002", "Bearing 6205-2RS", "Bearings", "Rack A1", 5.6, 44.8, 6);
  add("1003", "Pillow block UCP 205", "Bearings", "Rack A2", 18.9, 37.8, 2,
      "Grease every 500 hours. The one of the main shaft runs hot: see the log of the second "
      "shift.");
  add("1101", "V-belt A 42", "Drives", "Rack B1", 7.25, 72.5, 4);
  add("1102", "V-belt B 68", "Drives", "Rack B1", 11.4, 57, 4);
  add("1103", "Roller chain 10B-1, 5 m", "Drives", "Rack B2", 39.5, 79, 1);
  add("1201", "Hydraulic hose 1/2 in, 2 m", "Hydraulics", "Cage", 27.3, 109.2, 2);
  add("1202", "Seal kit, cylinder 63 mm", "Hydraulics", "Cage", 33.75, 67.5, 1);
  add("1301", "Contactor 24 V, 18 A", "Electrical", "Drawer 3", 41.2, 123.6, 2);
  add("1302", "Limit switch, roller lever", "Electrical", "Drawer 3", 16.8, 84, 3,
      "Replaces the old type; the plate needs two new holes.");
}

void AddMillraceLists(JetFileWriter& writer) {
  writer.Begin({"Inv_recipe",
                {{"i_num", ColumnType::Text, 15},
                 {"machine_id", ColumnType::Text, 15},
                 {"desc"},
                 {"qty", ColumnType::Double},
                 {"notes", ColumnType::Memo}}});
  writer.Add({"1001", "SAW-1", "Bearing 6204-2RS", 4, {}});
  writer.Add({"1101", "SAW-1", "V-belt A 42", 2, "Always change both."});
  writer.Add({"1003", "LATHE-2", "Pillow block UCP 205", 2, {}});
  writer.Add({"1302", "LATHE-2", "Limit switch, roller lever", 1, {}});
  writer.Begin({"DropDowns", {{"Drop03"}, {"Drop04"}}});
  for (const auto& [place, category] : {std::pair<Value, Value>{"Rack A1", "Bearings"},
                                        {"Rack A2", "Drives"},
                                        {"Rack B1", "Hydraulics"},
                                        {"Rack B2", "Electrical"},
                                        {"Cage", {}},
                                        {"Drawer 3", {}}})
    writer.Add({place, category});
}

std::string Millrace() {
  JetFileWriter writer(Version::Jet3);
  AddMillraceParts(writer);
  AddMillraceLists(writer);
  return writer.Finish();
}

// An inventory as this program keeps it, but for the fields that came later.
std::string Plainbook(const fs::path& scratch) {
  std::error_code ignored;
  fs::remove(scratch, ignored);
  jet::Database stock = CreateInventoryDatabase(scratch.string());
  FillSampleStockroom(stock, kPlainbookStock);
  std::string file = jetfile::JetFileOf(stock, Version::Jet4, {"BarCodeScan", "CorpInventoryItem"});
  stock.Close();
  for (const char* end : {"", "-journal"}) fs::remove(scratch.string() + end, ignored);
  return file;
}

}  // namespace

std::vector<SetUpFile> LayOldProducts(const fs::path& folder) {
  std::vector<SetUpFile> files;
  const auto lay = [&](const char* name, const std::function<std::string()>& make) {
    const fs::path path = fs::absolute(folder).lexically_normal() / name;
    const bool stands = fs::exists(fs::symlink_status(path));
    if (!stands) {
      std::ofstream file(path, std::ios::binary);
      file << make();
      file.close();
      if (!file) throw RunTimeError(75, path.string() + " could not be written.");
    }
    files.push_back({path, !stands});
  };
  lay("MILLRACE.MDB", Millrace);
  lay("PBI_DATA.MDB", [&] { return Plainbook(folder / "PBI_DATA.new"); });
  return files;
}

}  // namespace kvi
