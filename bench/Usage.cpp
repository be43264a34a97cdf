// The usage screen beside 24 locked periods and 300,000 purchases: its opening, the lock of a
// period, and the purge of history that lies in another profit center than its part.
#include <unordered_map>

#include "bench/CommitGroups.h"
#include "bench/Pair.h"
#include "bench/RawFile.h"
#include "bench/Stockroom.h"
#include "platform/Progress.h"
#include "store/OpenInventoryDatabase.h"
#include "usage/HistoryIntegrity.h"
#include "usage/KVI_UsageAnalysis.h"

namespace kvi::bench {
namespace {

constexpr int kPeriods = 24;
constexpr int kLocks = 7;  // each needs two stockrooms of its own
constexpr const char* kJoin =
    "SELECT H.Inv_ID FROM I_Master AS M INNER JOIN %T AS H ON H.Inv_ID=trim(M.inv_id) "
    "WHERE H.pcenter<>M.pcenter";

// Every question is answered with Yes.
class Locking : public BenchDesktop {
  Answer ShowBox(const Box&) override { return Answer::Yes; }
};

// The stockroom with its periods, filled once and copied.
class LockedStock : public FilledCopy {
 public:
  explicit LockedStock(const std::string& path) : FilledCopy(path, "usage-filled.mdb", Fill) {}

 private:
  static void Fill(const std::string& path) {
    RawFile file(path);
    file.Run(
        "DELETE FROM HI_Header;DELETE FROM [Historical Inventory];"
        "DELETE FROM Hist_Purchases;BEGIN");
    file.Run("UPDATE I_Master SET cost_per=1.25 WHERE cost_per=0");
    for (int period = 0; period < kPeriods; ++period) {
      char day[16];
      std::snprintf(day, sizeof day, "%d-%02d-01", 2024 + period / 12, period % 12 + 1);
      file.Run(std::string("INSERT INTO HI_Header(F_Date,pcenter) VALUES('") + day + "',0)");
      file.Run(std::string("INSERT INTO [Historical Inventory](F_Date,Inv_ID,pcenter,Amount,Price) "
                           "SELECT '") +
               day + "',inv_id,0,qty_on_hand+" + std::to_string(period) +
               ",cost_per FROM I_Master");
      file.Run(
          "INSERT INTO Hist_Purchases(inv_id,p_date,p_qty,price,TRANS_NUM,pcenter) SELECT "
          "inv_id,'" +
          std::string(day, 8) +
          "'||(10+_rid%18),2,cost_per+0.01,'x',0 FROM I_Master WHERE "
          "_rid%12<5");
    }
    file.Run("COMMIT");
  }
};

class UsageDesk {
 public:
  explicit UsageDesk(const std::string& database) {
    app_.AccessString = "WWWW";
    app_.ItemsAtHand = true;
    app_.CurrentDatabase = jet::Database::Open(database, false);
    RefreshMasterRecordsets(app_);
    app_.screens.Load(Screen());
  }
  KVI_UsageAnalysis& Screen() { return app_.Get<KVI_UsageAnalysis>(); }
  double Open() {
    Screen().Activate();
    return Screen().Spread1.MaxRows();
  }
  double Lock() {
    Screen().LockPeriod();
    return 0;
  }
  double Purge() {
    PurgeForeignHistory(app_.CurrentDatabase, *desktop_.NewProgress("", false));
    return 0;
  }

 private:
  Locking desktop_;
  SystemClock clock_;
  SystemChance chance_;
  Application app_{{desktop_, clock_, chance_, kFolder, ""}};
};

std::string Amount(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

// The same passes on plain SQLite: texts in vectors, figures in one array by part and period.
class RawUsage {
 public:
  explicit RawUsage(const std::string& path) : file_(path) {
    parts_ = file_.Prepare(
        "SELECT name,category,trim(inv_id),how_purchased,cost_per,qty_on_hand FROM I_Master WHERE "
        "pcenter=0 AND active='YES' COLLATE JET1 ORDER BY name,_rid");
    headers_ = file_.Prepare("SELECT F_Date FROM HI_Header WHERE pcenter=0 ORDER BY F_Date");
    levels_ = file_.Prepare(
        "SELECT F_Date,Inv_ID,Amount,Price FROM [Historical Inventory] WHERE pcenter=0 ORDER BY "
        "F_Date");
    purchases_ = file_.Prepare("SELECT inv_id,p_date,p_qty,price,pcenter FROM Hist_Purchases");
    header_ = file_.Prepare("INSERT INTO HI_Header(F_Date,pcenter) VALUES('2026-11-21',0)");
    level_ = file_.Prepare(
        "INSERT INTO [Historical Inventory](F_Date,Inv_ID,pcenter,Amount,Price) "
        "VALUES('2026-11-21',?1,0,?2,?3)");
  }

  double Purge() {
    for (const char* table : {"[Historical Inventory]", "Hist_Purchases"}) {
      std::string sql = kJoin;
      sql.replace(sql.find("%T"), 2, table);
      file_.Walk(sql);
    }
    return 0;
  }
  double Open() {
    Purge();
    for (const char* table : {"[Historical Inventory]", "Hist_Purchases"})
      file_.Walk(std::string("SELECT _rid FROM ") + table + " WHERE Price=0");
    ReadParts();
    days_.clear();
    while (Step(headers_)) days_.push_back(TextOf(headers_, 0));
    const std::size_t periods = days_.size();
    amounts_.assign(rows_.size() * periods, 0);
    prices_ = bought_ = money_ = amounts_;
    ReadLevels(periods);
    ReadPurchases(periods);
    Show(periods);
    return static_cast<double>(rows_.size() + 1);
  }
  double Lock() {
    file_.Run("BEGIN IMMEDIATE");
    Step(header_);
    for (const auto& row : rows_) {
      BindText(level_, 1, row[2]);
      sqlite3_bind_double(level_, 2, std::strtod(row[5].c_str(), nullptr));
      sqlite3_bind_double(level_, 3, std::strtod(row[4].c_str(), nullptr));
      Step(level_);
    }
    file_.Run("COMMIT");
    Open();
    return 0;
  }

 private:
  void ReadParts() {
    rows_.clear();
    partOf_.clear();
    while (Step(parts_)) {
      auto& row = rows_.emplace_back();
      for (int column = 0; column < 4; ++column) row.push_back(TextOf(parts_, column));
      for (int column = 4; column < 6; ++column)
        row.push_back(Amount(sqlite3_column_double(parts_, column)));
      partOf_.emplace(row[2], rows_.size() - 1);
    }
  }
  void ReadLevels(std::size_t periods) {
    while (Step(levels_)) {
      const auto part = partOf_.find(TextOf(levels_, 1));
      if (part == partOf_.end()) continue;
      const auto day = std::lower_bound(days_.begin(), days_.end(), TextOf(levels_, 0));
      const std::size_t at = part->second * periods + static_cast<std::size_t>(day - days_.begin());
      amounts_[at] = sqlite3_column_double(levels_, 2);
      prices_[at] = sqlite3_column_double(levels_, 3);
    }
  }
  void ReadPurchases(std::size_t periods) {
    while (Step(purchases_)) {
      const auto part = partOf_.find(TextOf(purchases_, 0));
      if (part == partOf_.end()) continue;
      const auto day = std::lower_bound(days_.begin(), days_.end(), TextOf(purchases_, 1));
      const std::size_t pair = static_cast<std::size_t>(day - days_.begin());
      if (pair == 0 || pair == periods) continue;
      const double quantity = sqlite3_column_double(purchases_, 2);
      bought_[part->second * periods + pair - 1] += quantity;
      money_[part->second * periods + pair - 1] += quantity * sqlite3_column_double(purchases_, 3);
    }
  }
  void Show(std::size_t periods) {
    for (std::size_t part = 0; part < rows_.size(); ++part)
      for (std::size_t period = 0; period < periods; ++period) {
        const std::size_t at = part * periods + period;
        rows_[part].push_back(Amount(amounts_[at]));
        if (period + 1 == periods) continue;
        rows_[part].push_back(Amount(bought_[at]));
        rows_[part].push_back(Amount(bought_[at] + amounts_[at] - amounts_[at + 1]));
      }
    costs_.assign(periods, 0);
    for (std::size_t at = 0; at < amounts_.size(); ++at)
      if (at % periods + 1 < periods)
        costs_[at % periods] +=
            amounts_[at] * prices_[at] + money_[at] - amounts_[at + 1] * prices_[at + 1];
  }

  RawFile file_;
  sqlite3_stmt *parts_, *headers_, *levels_, *purchases_, *header_, *level_;
  std::vector<std::vector<std::string>> rows_;
  std::unordered_map<std::string, std::size_t> partOf_;
  std::vector<std::string> days_;
  std::vector<double> amounts_, prices_, bought_, money_, costs_;
};

void OpenUsage(benchmark::State& state) {
  const LockedStock stock("usage.mdb");
  UsageDesk desk(stock.Path());
  RawUsage raw(stock.Path());
  RunPair(state, {{[&] { return desk.Open(); }}, {[&] { return raw.Open(); }}, 2});
}
BENCHMARK(OpenUsage)->Name("Open usage: 24 periods, 300,000 purchases")->Apply(AsPair);

void Purge(benchmark::State& state) {
  const LockedStock stock("purge.mdb");
  UsageDesk desk(stock.Path());
  RawUsage raw(stock.Path());
  RunPair(state, {{[&] { return desk.Purge(); }}, {[&] { return raw.Purge(); }}, 2});
}
BENCHMARK(Purge)->Name("Purge foreign history")->Apply(AsPair);

// Each run locks today in a stockroom of its own, and loads the grid again.
void LockPeriod(benchmark::State& state) {
  std::unique_ptr<LockedStock> ours, floor;
  std::unique_ptr<UsageDesk> desk;
  std::unique_ptr<RawUsage> raw;
  RunPair(state, {{[&] { return desk->Lock(); },
                   [&] {
                     desk.reset();
                     ours.reset();
                     ours = std::make_unique<LockedStock>("lock-ours.mdb");
                     desk = std::make_unique<UsageDesk>(ours->Path());
                     desk->Open();
                   }},
                  {[&] { return raw->Lock(); },
                   [&] {
                     raw.reset();
                     floor.reset();
                     floor = std::make_unique<LockedStock>("lock-floor.mdb");
                     raw = std::make_unique<RawUsage>(floor->Path());
                     raw->Open();
                   }},
                  1.5});
}
BENCHMARK(LockPeriod)
    ->Name("Lock a period of 30,000 parts, and show it")
    ->UseManualTime()
    ->Iterations(kLocks);

}  // namespace
}  // namespace kvi::bench
