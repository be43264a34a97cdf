// The order screen beside 100 saved orders of 200 lines: the par sheet loaded, an order opened, a
// delivery of 5,000 lines received.
#include <map>

#include "bench/CommitGroups.h"
#include "bench/Pair.h"
#include "bench/Stockroom.h"
#include "ordering/KVI_OrderSystem.h"
#include "store/OpenInventoryDatabase.h"

namespace kvi::bench {
namespace {

constexpr int kOrders = 100, kLines = 200;
constexpr int kDelivered = 5000;  // lines of the order that is received

// Every question but the one about the receipt is declined.
class Receiving : public BenchDesktop {
  Answer ShowBox(const Box& box) override {
    return box.title == "Par Order Sheet" ? Answer::Yes : Answer::No;
  }
};

// The stockroom with its orders, the one of many lines first. It is filled once and copied.
class OrderedStock : public FilledCopy {
 public:
  explicit OrderedStock(const std::string& path) : FilledCopy(path, "orders-filled.mdb", Fill) {}

 private:
  static void Fill(const std::string& path) {
    RawFile file(path);
    file.Run("DELETE FROM PSO_Master;DELETE FROM PSO_Detail;BEGIN");
    for (int id = 1; id <= kOrders; ++id) {
      const std::string number = std::to_string(id);
      file.Run("INSERT INTO PSO_Master(pso_id,pso_name,pcenter) VALUES(" + number + ",'Order " +
               number + "',0)");
      file.Run("INSERT INTO PSO_Detail(pcenter,pso_id,pso_inv_id,pso_qty,pso_price) SELECT 0," +
               number +
               ",inv_id,2,cost_per FROM I_Master WHERE active='YES' COLLATE JET1 ORDER BY "
               "(_rid*" +
               std::to_string(7919 + id) + ")%30011 LIMIT " +
               std::to_string(id == 1 ? kDelivered : kLines));
    }
    file.Run("COMMIT");
  }
};

class OrderDesk {
 public:
  explicit OrderDesk(const std::string& database) {
    app_.AccessString = "WWWW";
    app_.CurrentOrderVendor = "(All Vendors)";
    app_.CurrentDatabase = jet::Database::Open(database, false);
    RefreshMasterRecordsets(app_);
    app_.screens.Load(Screen());
    Screen().Activate();
  }
  KVI_OrderSystem& Screen() { return app_.Get<KVI_OrderSystem>(); }

  double Load() {
    Screen().load_data();
    return Screen().Spread1.MaxRows();
  }
  void ToReceiving(bool onlyOrdered) {
    Screen().ShowAboveZero.Value = onlyOrdered;
    Screen().TabStrip1.Tab = 1;
  }
  double Open() {
    Screen().OpenSavedOrder();
    return Screen().Spread1.MaxRows();
  }
  double Receive() {
    Screen().save_changes();
    return 0;
  }

 private:
  Receiving desktop_;
  SystemClock clock_;
  SystemChance chance_;
  Application app_{{desktop_, clock_, chance_, kFolder, ""}};
};

using Row = std::vector<std::string>;

std::string Amount(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

// The same work on plain SQLite: texts in vectors, an order's lines in a map.
class RawOrders {
 public:
  explicit RawOrders(const std::string& path) : file_(path) {
    list_ = file_.Prepare(
        "SELECT name,category,location,inv_id,[desc],how_purchased,optimal,re_order,qty_on_hand,"
        "cost_per FROM I_Master WHERE pcenter=0 AND active='YES' COLLATE JET1 ORDER BY name,_rid");
    sums_ = file_.Prepare(
        "SELECT pso_inv_id,sum(pso_qty) FROM PSO_Detail WHERE pcenter=0 GROUP BY pso_inv_id");
    lines_ = file_.Prepare(
        "SELECT trim(pso_inv_id),pso_qty,pso_price FROM PSO_Detail WHERE pcenter=0 AND pso_id=1");
    part_ = file_.Prepare("SELECT _rid,qty_on_hand FROM I_Master WHERE inv_id=?1");
    write_ = file_.Prepare(
        "UPDATE I_Master SET cost_per=?2,qty_on_hand=?3,valuation=?4,_ver=_ver+1 WHERE _rid=?1");
    receipt_ = file_.Prepare(
        "INSERT INTO Hist_Purchases(inv_id,p_date,p_qty,TRANS_NUM,price,pcenter,o_qty,o_price) "
        "VALUES(?1,'2026-11-21',?2,'261121000000',?3,0,?2,?3)");
  }

  double Load() {
    std::map<std::string, double> sums;
    while (Step(sums_)) sums.emplace(TextOf(sums_, 0), sqlite3_column_double(sums_, 1));
    rows_.clear();
    while (Step(list_)) {
      Row& row = AddRow();
      const auto found = sums.find(row[3]);
      row.push_back(Amount(found == sums.end() ? 0 : found->second));
    }
    return static_cast<double>(rows_.size());
  }
  double Open(bool onlyOrdered) {
    std::map<std::string, std::pair<double, double>> lines;
    while (Step(lines_))
      lines.emplace(TextOf(lines_, 0),
                    std::pair{sqlite3_column_double(lines_, 1), sqlite3_column_double(lines_, 2)});
    rows_.clear();
    while (Step(list_)) {
      const auto found = lines.find(TextOf(list_, 3));
      if (onlyOrdered && found == lines.end()) continue;
      Row& row = AddRow();
      const auto [quantity, price] =
          found == lines.end() ? std::pair{0.0, sqlite3_column_double(list_, 9)} : found->second;
      row[9] = Amount(quantity);
      row[10] = Amount(price);
      row.push_back(row[9]);
      row.push_back(row[10]);
    }
    return static_cast<double>(rows_.size());
  }
  double Receive() {
    CommitGroups groups(file_);
    for (const Row& row : rows_) {
      groups.Next();
      const double received = std::strtod(row[9].c_str(), nullptr);
      const double cost = std::strtod(row[10].c_str(), nullptr);
      Book(row[3], received, cost);
    }
    groups.Finish();
    file_.Run("DELETE FROM PSO_Master WHERE pso_id=1;DELETE FROM PSO_Detail WHERE pso_id=1");
    Open(false);  // the list shows the next order
    return 0;
  }

 private:
  Row& AddRow() {
    Row& row = rows_.emplace_back();
    for (int column = 0; column < 6; ++column) row.push_back(TextOf(list_, column));
    for (int column = 6; column < 9; ++column)
      row.push_back(Amount(sqlite3_column_double(list_, column)));
    const double missing = sqlite3_column_double(list_, 6) - sqlite3_column_double(list_, 8);
    row.push_back(Amount(missing > 0 ? missing : 0));
    row.push_back(Amount(sqlite3_column_double(list_, 9)));
    return row;
  }
  void Book(const std::string& number, double received, double cost) {
    BindText(part_, 1, number);
    sqlite3_int64 key = 0;
    double level = 0;
    while (Step(part_)) {
      key = sqlite3_column_int64(part_, 0);
      level = sqlite3_column_double(part_, 1) + received;
    }
    sqlite3_bind_int64(write_, 1, key);
    sqlite3_bind_double(write_, 2, cost);
    sqlite3_bind_double(write_, 3, level);
    sqlite3_bind_double(write_, 4, level * cost);
    Step(write_);
    if (received <= 0) return;
    BindText(receipt_, 1, number);
    sqlite3_bind_double(receipt_, 2, received);
    sqlite3_bind_double(receipt_, 3, cost);
    Step(receipt_);
  }

  RawFile file_;
  sqlite3_stmt *list_, *sums_, *lines_, *part_, *write_, *receipt_;
  std::vector<Row> rows_;
};

void LoadParSheet(benchmark::State& state) {
  const OrderedStock stock("orders.mdb");
  OrderDesk desk(stock.Path());
  RawOrders raw(stock.Path());
  RunPair(state, {{[&] { return desk.Load(); }}, {[&] { return raw.Load(); }}, 2});
}
BENCHMARK(LoadParSheet)->Name("Fill the par sheet with 30,000 parts")->Apply(AsPair);

void OpenOrder(benchmark::State& state, bool onlyOrdered) {
  const OrderedStock stock("orders.mdb");
  OrderDesk desk(stock.Path());
  desk.ToReceiving(onlyOrdered);
  RawOrders raw(stock.Path());
  RunPair(state, {{[&] { return desk.Open(); }}, {[&] { return raw.Open(onlyOrdered); }}, 2});
}
BENCHMARK_CAPTURE(OpenOrder, All, false)->Name("Open an order of 5,000 lines")->Apply(AsPair);
BENCHMARK_CAPTURE(OpenOrder, Ordered, true)
    ->Name("Open an order of 5,000 lines, those alone")
    ->Apply(AsPair);

// Each run receives the first order of a stockroom of its own.
void ReceiveOrder(benchmark::State& state) {
  std::unique_ptr<OrderedStock> ours, floor;
  std::unique_ptr<OrderDesk> desk;
  std::unique_ptr<RawOrders> raw;
  RunPair(state, {{[&] { return desk->Receive(); },
                   [&] {
                     desk.reset();
                     ours.reset();
                     ours = std::make_unique<OrderedStock>("receive-ours.mdb");
                     desk = std::make_unique<OrderDesk>(ours->Path());
                     desk->ToReceiving(false);
                   }},
                  {[&] { return raw->Receive(); },
                   [&] {
                     raw.reset();
                     floor.reset();
                     floor = std::make_unique<OrderedStock>("receive-floor.mdb");
                     raw = std::make_unique<RawOrders>(floor->Path());
                     raw->Open(false);
                   }},
                  1.5});
}
BENCHMARK(ReceiveOrder)->Name("Receive 5,000 lines, 30,000 listed")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
