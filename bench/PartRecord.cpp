// One part on the detail screen: loaded, stepped to and saved.
#include "bench/DetailDesk.h"
#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"

namespace kvi::bench {
namespace {

// The statements of a load, and of the write behind it, as plain SQLite.
class RawDetail {
 public:
  explicit RawDetail(const std::string& path) : file_(path) {
    for (const char* table :
         {"DD_category", "DD_inv_loc", "DD_how_inv", "DD_how_used", "DD_how_purchased"})
      lists_.push_back(file_.Prepare(std::string("SELECT DISTINCT Description FROM ") + table +
                                     " WHERE Description IS NOT NULL ORDER BY Description"));
    for (int vendor = 0; vendor < WorkingItem::kVendors; ++vendor)
      lists_.push_back(file_.Prepare(
          "SELECT DISTINCT Name FROM Vendor_Info WHERE Name IS NOT NULL ORDER BY Name"));
    part_ = file_.Prepare("SELECT * FROM I_Master WHERE trim(inv_id) COLLATE JET1=?1");
    groups_ = file_.Prepare(
        "SELECT R_Master.name FROM R_Master JOIN Inv_Recipe ON R_Master.rec_id=Inv_Recipe.rec_id "
        "WHERE Inv_Recipe.inv_id=?1 ORDER BY R_Master.name");
    receipts_ = file_.Prepare(
        "SELECT p_qty,price FROM Hist_Purchases WHERE inv_id=?1 ORDER BY p_date DESC");
    named_ = file_.Prepare("SELECT inv_id FROM I_Master WHERE trim(name) COLLATE JET1=?1");
    write_ = file_.Prepare(Write());
    for (sqlite3_stmt* rows = file_.Prepare("SELECT inv_id FROM I_Master WHERE pcenter=0 "
                                            "ORDER BY name,_rid");
         Step(rows);)
      numbers_.push_back(TextOf(rows, 0));
  }

  double Load(int stride) {
    for (std::size_t step = 0; step < kParts; ++step)
      LoadOne(numbers_[step * static_cast<std::size_t>(stride) % numbers_.size()]);
    return kParts;
  }
  double Save() {
    for (std::size_t step = 0; step < kParts; ++step) {
      const std::string& number = numbers_[step * kStride % numbers_.size()];
      LoadOne(number);
      Read(named_, "Part " + number);
      const std::vector<std::string> values = Read(part_, number);
      sqlite3_bind_text(write_, 1, number.data(), static_cast<int>(number.size()), SQLITE_STATIC);
      for (int column = 2; column < static_cast<int>(values.size()); ++column)
        sqlite3_bind_text(write_, column, values[static_cast<std::size_t>(column)].data(), -1,
                          SQLITE_STATIC);
      Step(write_);
    }
    return kParts;
  }

 private:
  // Every field of the row, the keys left out.
  std::string Write() {
    std::string sql = "UPDATE I_Master SET _ver=_ver+1";
    for (int column = 2; column < sqlite3_column_count(part_); ++column)
      if (const std::string name = sqlite3_column_name(part_, column); name != "inv_id")
        sql += ",[" + name + "]=?" + std::to_string(column);
    return sql + " WHERE inv_id=?1";
  }
  static std::vector<std::string> Read(sqlite3_stmt* rows, const std::string& key) {
    sqlite3_bind_text(rows, 1, key.data(), static_cast<int>(key.size()), SQLITE_STATIC);
    std::vector<std::string> texts;
    while (Step(rows))
      for (int column = 0; column < sqlite3_column_count(rows); ++column)
        texts.push_back(TextOf(rows, column));
    return texts;
  }
  void LoadOne(const std::string& number) {
    for (sqlite3_stmt* list : lists_) {
      std::vector<std::string> entries;
      while (Step(list)) entries.push_back(TextOf(list, 0));
    }
    Read(part_, number);
    Read(groups_, number);
    Read(receipts_, number);
  }

  RawFile file_;
  std::vector<sqlite3_stmt*> lists_;
  sqlite3_stmt *part_, *groups_, *receipts_, *named_, *write_;
  std::vector<std::string> numbers_;
};

// The same stockroom with fewer parts.
void Thin(const std::string& path, int parts) {
  jet::Database database = jet::Database::Open(path, false);
  jet::WriteBatch batch(database);
  jet::Recordset items = database.OpenRecordset("SELECT * FROM I_Master;");
  for (int row = 0; !items.Eof(); items.MoveNext(), ++row)
    if (row >= parts) items.Delete();
  batch.Finish();
}

constexpr double kBesideRaw = 2, kBesideSmall = 2;

void LoadPart(benchmark::State& state) {
  DetailDesk desk(kDatabase);
  RawDetail raw(kDatabase);
  RunPair(state, {{[&] { return desk.Load(); }}, {[&] { return raw.Load(kStride); }}, kBesideRaw});
}
BENCHMARK(LoadPart)->Name("Load 100 of 30,000 parts")->Apply(AsPair);

void StepParts(benchmark::State& state) {
  DetailDesk desk(kDatabase);
  RawDetail raw(kDatabase);
  RunPair(state, {{[&] { return desk.StepOn(); }}, {[&] { return raw.Load(1); }}, kBesideRaw});
}
BENCHMARK(StepParts)->Name("Step along 100 of 30,000 parts")->Apply(AsPair);

void SavePart(benchmark::State& state) {
  const ScratchCopy ours("save-ours.mdb"), floor("save-floor.mdb");
  DetailDesk desk(ours.Path());
  RawDetail raw(floor.Path());
  RunPair(state, {{[&] { return desk.Save(); }}, {[&] { return raw.Save(); }}, kBesideRaw});
}
BENCHMARK(SavePart)->Name("Load and save 100 of 30,000 parts")->Apply(AsPair);

// The floor here is ourselves with 1,500 parts: the cost must not grow with the table.
void LoadGrowth(benchmark::State& state) {
  const ScratchCopy copy("small.mdb");
  Thin(copy.Path(), 1500);
  DetailDesk large(kDatabase), small(copy.Path());
  RunPair(state, {{[&] { return large.Load(); }}, {[&] { return small.Load(); }}, kBesideSmall});
}
BENCHMARK(LoadGrowth)->Name("Load 100 parts of 30,000 beside 1,500")->Apply(AsPair);

void StepGrowth(benchmark::State& state) {
  const ScratchCopy copy("small.mdb");
  Thin(copy.Path(), 1500);
  DetailDesk large(kDatabase), small(copy.Path());
  RunPair(state,
          {{[&] { return large.StepOn(); }}, {[&] { return small.StepOn(); }}, kBesideSmall});
}
BENCHMARK(StepGrowth)->Name("Step 100 parts of 30,000 beside 1,500")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
