// The four passes of the part group costs, over 2,000 groups of 20 lines, one of them nested.
#include <cmath>

#include "bench/CommitGroups.h"
#include "bench/GroupedStock.h"
#include "bench/Pair.h"
#include "partgroups/UpdatePartGroupCosts.h"

namespace kvi::bench {
namespace {

// The passes as plain SQLite.
class Floor {
 public:
  explicit Floor(const std::string& path) : file_(path) {}

  void Run() {
    CommitGroups groups(file_);
    CostParts(groups);
    RollUp(groups, true);
    CostNested(groups);
    RollUp(groups, false);
    groups.Finish();
  }

 private:
  void CostParts(CommitGroups& groups) {
    std::vector<std::pair<sqlite3_int64, std::string>> lines;
    while (Step(partLines_))
      lines.emplace_back(sqlite3_column_int64(partLines_, 0), TextOf(partLines_, 1));
    for (const auto& [key, number] : lines) {
      groups.Next();
      BindText(part_, 1, number);
      double cost = 0;
      std::string unit;
      if (Step(part_)) {
        cost = sqlite3_column_double(part_, 0) / sqlite3_column_double(part_, 1) /
               sqlite3_column_double(part_, 2);
        unit = TextOf(part_, 3);
      }
      sqlite3_reset(part_);
      sqlite3_bind_double(writePart_, 1, cost);
      BindText(writePart_, 2, unit);
      sqlite3_bind_int64(writePart_, 3, key);
      Step(writePart_);
    }
  }

  double Yield(const std::string& number) {
    BindText(yield_, 1, number);
    const double yield = Step(yield_) ? sqlite3_column_double(yield_, 0) : 0;
    sqlite3_reset(yield_);
    return yield > 0 ? yield : 100;
  }

  void RollUp(CommitGroups& groups, bool withYield) {
    std::vector<std::pair<sqlite3_int64, std::string>> all;
    while (Step(allGroups_))
      all.emplace_back(sqlite3_column_int64(allGroups_, 0), TextOf(allGroups_, 1));
    for (const auto& [key, number] : all) {
      groups.Next();
      double sum = 0;
      BindText(lines_, 1, number);
      while (Step(lines_)) {
        const double plain = sqlite3_column_double(lines_, 0) * sqlite3_column_double(lines_, 1);
        sum += withYield ? plain * 100 / Yield(TextOf(lines_, 2)) : plain;
      }
      sqlite3_bind_double(writeGroup_, 1, sum);
      sqlite3_bind_int64(writeGroup_, 2, key);
      Step(writeGroup_);
    }
  }

  void CostNested(CommitGroups& groups) {
    std::vector<std::pair<sqlite3_int64, std::string>> lines;
    while (Step(nestedLines_))
      lines.emplace_back(sqlite3_column_int64(nestedLines_, 0), TextOf(nestedLines_, 1));
    for (const auto& [key, number] : lines) {
      groups.Next();
      BindText(group_, 1, number);
      const double cost = Step(group_) ? sqlite3_column_double(group_, 0) : 0;
      sqlite3_reset(group_);
      sqlite3_bind_double(writeNested_, 1, cost);
      sqlite3_bind_int64(writeNested_, 2, key);
      Step(writeNested_);
    }
  }

  RawFile file_;
  sqlite3_stmt* partLines_ =
      file_.Prepare("SELECT _rid,inv_id FROM Inv_Recipe WHERE [desc]<>'RECIPE IN RECIPE'");
  sqlite3_stmt* nestedLines_ =
      file_.Prepare("SELECT _rid,inv_id FROM Inv_Recipe WHERE [desc]='RECIPE IN RECIPE'");
  sqlite3_stmt* part_ =
      file_.Prepare("SELECT cost_per,hi_qty,hu_qty,how_used FROM I_Master WHERE inv_id=?1");
  sqlite3_stmt* writePart_ =
      file_.Prepare("UPDATE Inv_Recipe SET cost_per=?1,how_used=?2,_ver=_ver+1 WHERE _rid=?3");
  sqlite3_stmt* allGroups_ = file_.Prepare("SELECT _rid,rec_id FROM R_Master");
  sqlite3_stmt* lines_ =
      file_.Prepare("SELECT qty,cost_per,inv_id FROM Inv_Recipe WHERE rec_id=?1");
  sqlite3_stmt* yield_ = file_.Prepare("SELECT Yield FROM I_Master WHERE inv_id=?1");
  sqlite3_stmt* writeGroup_ =
      file_.Prepare("UPDATE R_Master SET cost=?1,_ver=_ver+1 WHERE _rid=?2");
  sqlite3_stmt* group_ = file_.Prepare("SELECT cost FROM R_Master WHERE rec_id=?1");
  sqlite3_stmt* writeNested_ =
      file_.Prepare("UPDATE Inv_Recipe SET cost_per=?1,_ver=_ver+1 WHERE _rid=?2");
};

// Says yes to everything.
class Willing : public BenchDesktop {
  Answer ShowBox(const Box&) override { return Answer::Yes; }
};

double Sum(const std::string& path) {
  return std::round(RawFile(path).Number("SELECT 100*sum(cost) FROM R_Master"));
}

void CostGroups(benchmark::State& state) {
  const GroupedStock ours("cost-ours.mdb"), other("cost-floor.mdb");
  Willing desktop;
  SystemClock clock;
  SystemChance chance;
  Application app(Surroundings{desktop, clock, chance, kFolder, ""});
  app.AccessString = "WWWW";
  app.CurrentDatabase = jet::Database::Open(ours.Path(), false);
  Floor floor(other.Path());
  const Side ourSide{[&] {
    UpdatePartGroupCosts(app);
    return 0;
  }};
  const Side floorSide{[&] {
    floor.Run();
    return 0;
  }};
  ourSide.run();
  floorSide.run();
  if (Sum(ours.Path()) != Sum(other.Path())) return state.SkipWithError("the costs differ");
  RunPair(state, {ourSide, floorSide, 1.5});
}
BENCHMARK(CostGroups)->Name("Cost 2,000 part groups of 20 lines")->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
