// The part group screens: the builder opened beside 30,000 parts, the list of 2,000 groups, a group
// of 100 lines saved.
#include "bench/GroupedStock.h"
#include "bench/Pair.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/KVI_PGSummary.h"
#include "store/OpenInventoryDatabase.h"

namespace kvi::bench {
namespace {

constexpr int kSavedLines = 100;

class GroupDesk {
 public:
  explicit GroupDesk(const std::string& database) {
    app_.AccessString = "WWWW";
    app_.CurrentDatabase = jet::Database::Open(database, false);
    RefreshMasterRecordsets(app_);
    app_.screens.Load(List());
    app_.screens.Load(Builder());
    // The group of the set's first row.
    Builder().SetCaption("Part Group Detail");
  }
  KVI_PGSummary& List() { return app_.Get<KVI_PGSummary>(); }
  KVI_PGDetail& Builder() { return app_.Get<KVI_PGDetail>(); }

  double Load() {
    List().LoadPartGroupList();
    return List().Spread1.MaxRows();
  }
  double Open() {
    Builder().Activate();
    int lines = 1;
    while (!Builder().Spread1.Text(lines, 1).empty()) ++lines;
    return Builder().Spread2.MaxRows() + lines - 1;
  }
  // Each save writes other quantities.
  void TypeLines() {
    ++saves_;
    for (int row = 1; row <= kSavedLines; ++row) {
      for (int col = 1; col <= 5; ++col)
        Builder().Spread1.SetText(row, col, col == 4 ? std::to_string(saves_ + row) : "7.25");
      Builder().Spread1.SetText(row, 7, "a part of it");
    }
  }
  double Save() {
    Builder().SavePartGroup();
    return Builder().LineChanged() ? 1 : 0;
  }

 private:
  int saves_ = 0;
  BenchDesktop desktop_;
  SystemClock clock_;
  SystemChance chance_;
  Application app_{{desktop_, clock_, chance_, kFolder, ""}};
};

using Row = std::vector<std::string>;

std::string Amount(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.4f", value);
  return text;
}

// The same work on plain SQLite: texts in vectors.
class RawGroups {
 public:
  explicit RawGroups(const std::string& path) : file_(path) {}

  double Load() {
    rows_.clear();
    while (Step(list_))
      rows_.push_back({TextOf(list_, 0), TextOf(list_, 1), TextOf(list_, 2),
                       Amount(sqlite3_column_double(list_, 3)), TextOf(list_, 4)});
    return static_cast<double>(rows_.size());
  }
  double Open() {
    while (Step(categories_)) TextOf(categories_, 0);
    rows_.clear();
    while (Step(parts_)) {
      Row& row = AddTexts(parts_, 4);
      const double perUsed = sqlite3_column_double(parts_, 4) / sqlite3_column_double(parts_, 5) /
                             sqlite3_column_double(parts_, 6);
      row.push_back(Amount(perUsed));
      row.push_back(TextOf(parts_, 7));
      row.push_back(TextOf(parts_, 8));
    }
    const std::string number = FirstNumber();
    BindText(lines_, 1, number);
    while (Step(lines_)) {
      Row& row = AddTexts(lines_, 5);
      BindText(name_, 1, row[0]);
      if (Step(name_)) row[1] = TextOf(name_, 0);
      sqlite3_reset(name_);
      row.push_back(Amount(sqlite3_column_double(lines_, 5)));
    }
    return static_cast<double>(rows_.size());
  }
  double Save() {
    file_.Run("BEGIN IMMEDIATE");
    const std::string number = FirstNumber();
    std::vector<sqlite3_int64> keys;
    BindText(keys_, 1, number);
    while (Step(keys_)) keys.push_back(sqlite3_column_int64(keys_, 0));
    for (const sqlite3_int64 key : keys) {
      sqlite3_bind_int64(delete_, 1, key);
      Step(delete_);
    }
    ++saves_;
    BindText(insert_, 1, number);
    for (int row = 1; row <= kSavedLines; ++row) {
      sqlite3_bind_double(insert_, 2, saves_ + row);
      Step(insert_);
    }
    file_.Run("COMMIT");
    return 0;
  }

 private:
  std::string FirstNumber() {
    Step(header_);
    std::string number = TextOf(header_, 0);
    sqlite3_reset(header_);
    return number;
  }
  Row& AddTexts(sqlite3_stmt* statement, int count) {
    Row& row = rows_.emplace_back();
    row.reserve(8);
    for (int column = 0; column < count; ++column) row.push_back(TextOf(statement, column));
    return row;
  }

  RawFile file_;
  sqlite3_stmt* list_ = file_.Prepare(
      "SELECT name,category,rec_id,cost,notes FROM R_Master WHERE pcenter=0 ORDER BY name,_rid");
  sqlite3_stmt* categories_ = file_.Prepare(
      "SELECT DISTINCT Description FROM DD_category WHERE Description IS NOT NULL "
      "ORDER BY Description");
  sqlite3_stmt* parts_ = file_.Prepare(
      "SELECT inv_id,name,[desc],how_used,cost_per,hi_qty,hu_qty,location,category FROM I_Master "
      "WHERE active='YES' COLLATE JET1 AND pcenter=0 ORDER BY name,inv_id,_rid");
  sqlite3_stmt* header_ = file_.Prepare(
      "SELECT rec_id,name,category,notes FROM R_Master WHERE pcenter=0 ORDER BY name,_rid LIMIT 1");
  sqlite3_stmt* lines_ = file_.Prepare(
      "SELECT inv_id,iname,how_used,[desc],notes,cost_per FROM Inv_Recipe WHERE rec_id=?1 AND "
      "pcenter=0 ORDER BY inv_id,_rid");
  sqlite3_stmt* name_ = file_.Prepare("SELECT name FROM I_Master WHERE inv_id=?1 AND pcenter=0");
  sqlite3_stmt* keys_ = file_.Prepare("SELECT _rid FROM Inv_Recipe WHERE rec_id=?1 AND pcenter=0");
  sqlite3_stmt* delete_ = file_.Prepare("DELETE FROM Inv_Recipe WHERE _rid=?1");
  sqlite3_stmt* insert_ = file_.Prepare(
      "INSERT INTO Inv_Recipe(pcenter,rec_id,inv_id,iname,how_used,qty,cost_per,[desc],notes) "
      "VALUES(0,?1,'7.25','7.25','7.25',?2,7.25,'a part of it','')");
  std::vector<Row> rows_;
  int saves_ = 0;
};

void LoadGroups(benchmark::State& state) {
  const GroupedStock stock("groups.mdb");
  GroupDesk desk(stock.Path());
  RawGroups raw(stock.Path());
  RunPair(state, {{[&] { return desk.Load(); }}, {[&] { return raw.Load(); }}, 2});
}
BENCHMARK(LoadGroups)->Name("List 2,000 part groups")->Apply(AsPair);

void OpenBuilder(benchmark::State& state) {
  const GroupedStock stock("groups.mdb");
  GroupDesk desk(stock.Path());
  RawGroups raw(stock.Path());
  RunPair(state, {{[&] { return desk.Open(); }}, {[&] { return raw.Open(); }}, 2});
}
BENCHMARK(OpenBuilder)->Name("Open the builder beside 30,000 parts")->Apply(AsPair);

void SaveGroup(benchmark::State& state) {
  const GroupedStock ours("groups-ours.mdb"), floor("groups-floor.mdb");
  GroupDesk desk(ours.Path());
  desk.Open();
  RawGroups raw(floor.Path());
  RunPair(
      state,
      {{[&] { return desk.Save(); }, [&] { desk.TypeLines(); }}, {[&] { return raw.Save(); }}, 2});
}
BENCHMARK(SaveGroup)->Name("Save a part group of 100 lines")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
