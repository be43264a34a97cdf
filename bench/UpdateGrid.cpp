// The update screen: its list loaded, its variances worked out, a count and a delivery saved.
#include "bench/CommitGroups.h"
#include "bench/Pair.h"
#include "bench/Stockroom.h"
#include "bench/UpdateDesk.h"

namespace kvi::bench {
namespace {

using Row = std::vector<std::string>;

// The same work on plain SQLite: texts in vectors, a part found by its number and written.
class RawUpdate {
 public:
  explicit RawUpdate(const std::string& path) : file_(path) {
    list_ = file_.Prepare(
        "SELECT name,category,location,inv_id,[desc],how_purchased,qty_on_hand,cost_per FROM "
        "I_Master WHERE pcenter=0 AND active='YES' COLLATE JET1 ORDER BY name,_rid");
    part_ = file_.Prepare("SELECT _rid,qty_on_hand,cost_per FROM I_Master WHERE inv_id=?1");
    count_ =
        file_.Prepare("UPDATE I_Master SET qty_on_hand=?2,valuation=?3,_ver=_ver+1 WHERE _rid=?1");
    price_ = file_.Prepare(
        "UPDATE I_Master SET qty_on_hand=?2,valuation=?3,cost_per=?4,_ver=_ver+1 WHERE _rid=?1");
    receipt_ = file_.Prepare(
        "INSERT INTO Hist_Purchases(inv_id,p_date,p_qty,TRANS_NUM,price) "
        "VALUES(?1,'2026-11-21',?2,'Spdy:2611210000',?3)");
    Load();
  }

  double Load() {
    rows_.clear();
    while (Step(list_)) {
      Row& row = rows_.emplace_back();
      for (int column = 0; column < 6; ++column) row.push_back(TextOf(list_, column));
      const std::string quantity = Amount("%.2f", sqlite3_column_double(list_, 6));
      row.insert(row.end(), {quantity, quantity, "0.0", "0.0"});
      row.push_back(Amount("%.2f", sqlite3_column_double(list_, 7)));
    }
    return static_cast<double>(rows_.size());
  }
  double Recalculate() {
    for (Row& row : rows_) {
      const double held = std::strtod(row[6].c_str(), nullptr);
      const double counted = std::strtod(row[7].c_str(), nullptr);
      row[8] = Amount("%.1f", counted - held);
      row[9] = Amount("%.1f", counted == 0 ? 0 : (counted - held) * 100 / counted);
    }
    return static_cast<double>(rows_.size());
  }
  double SaveCount() {
    CommitGroups groups(file_);
    for (const Row& row : rows_) {
      groups.Next();
      const Part part = Find(row[3]);
      const double quantity = std::strtod(row[7].c_str(), nullptr);
      Write(count_, part.key, quantity, quantity * part.cost);
    }
    groups.Finish();
    return Load();
  }
  double SaveDelivery() {
    CommitGroups groups(file_);
    int line = 0;
    for (const Row& row : rows_) {
      groups.Next();
      const Part part = Find(row[3]);
      const double added = ++line <= kBought ? 2 : 0;
      const double cost = std::strtod(row[10].c_str(), nullptr);
      sqlite3_bind_double(price_, 4, cost);
      Write(price_, part.key, part.quantity + added, (part.quantity + added) * cost);
      if (added <= 0) continue;
      BindText(receipt_, 1, row[3]);
      sqlite3_bind_double(receipt_, 2, added);
      sqlite3_bind_double(receipt_, 3, cost);
      Step(receipt_);
    }
    groups.Finish();
    return static_cast<double>(rows_.size());
  }

 private:
  struct Part {
    sqlite3_int64 key = 0;
    double quantity = 0, cost = 0;
  };

  static std::string Amount(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
  }
  Part Find(const std::string& number) {
    BindText(part_, 1, number);
    Part part;
    while (Step(part_))
      part = {sqlite3_column_int64(part_, 0), sqlite3_column_double(part_, 1),
              sqlite3_column_double(part_, 2)};
    return part;
  }
  static void Write(sqlite3_stmt* update, sqlite3_int64 key, double quantity, double valuation) {
    sqlite3_bind_int64(update, 1, key);
    sqlite3_bind_double(update, 2, quantity);
    sqlite3_bind_double(update, 3, valuation);
    Step(update);
  }

  RawFile file_;
  sqlite3_stmt *list_, *part_, *count_, *price_, *receipt_;
  std::vector<Row> rows_;
};

void LoadUpdateGrid(benchmark::State& state) {
  UpdateDesk desk(kDatabase);
  RawUpdate raw(kDatabase);
  RunPair(state, {{[&] { return desk.Load(); }}, {[&] { return raw.Load(); }}, 3});
}
BENCHMARK(LoadUpdateGrid)->Name("Fill the update list with 30,000 parts")->Apply(AsPair);

void Recalculate(benchmark::State& state) {
  UpdateDesk desk(kDatabase);
  RawUpdate raw(kDatabase);
  RunPair(state, {{[&] { return desk.Recalculate(); }}, {[&] { return raw.Recalculate(); }}, 3});
}
BENCHMARK(Recalculate)->Name("Work out 30,000 variances")->Apply(AsPair);

void SaveCount(benchmark::State& state) {
  const ScratchCopy ours("count-ours.mdb"), floor("count-floor.mdb");
  UpdateDesk desk(ours.Path());
  RawUpdate raw(floor.Path());
  RunPair(state, {{[&] { return desk.Save(); }}, {[&] { return raw.SaveCount(); }}, 2});
}
BENCHMARK(SaveCount)->Name("Save a count of 30,000 parts")->Apply(AsPair);

void SaveDelivery(benchmark::State& state) {
  const ScratchCopy ours("delivery-ours.mdb"), floor("delivery-floor.mdb");
  UpdateDesk desk(ours.Path());
  desk.Screen().TabStrip1.Tab = 1;
  RawUpdate raw(floor.Path());
  RunPair(state, {{[&] { return desk.Save(); }, [&] { desk.TypeDelivery(); }},
                  {[&] { return raw.SaveDelivery(); }},
                  2});
}
BENCHMARK(SaveDelivery)->Name("Save a delivery of 5,000 lines, 30,000 listed")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
