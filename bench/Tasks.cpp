// What Utilities does to all parts at once, and the removals.
#include <unistd.h>

#include <filesystem>

#include "bench/CommitGroups.h"
#include "bench/GroupedStock.h"
#include "bench/Pair.h"
#include "store/OpenInventoryDatabase.h"
#include "utilities/BulkTasks.h"
#include "utilities/DeleteAllRecords.h"

namespace kvi::bench {
namespace {

// The program on a scratch file, without its screens.
struct TaskDesk {
  explicit TaskDesk(const std::string& path)
      : app(Surroundings{desktop, clock, chance, kFolder, ""}) {
    app.CurrentDatabase = jet::Database::Open(path, false);
  }
  BenchDesktop desktop;
  SystemClock clock;
  SystemChance chance;
  Application app;
};

// As the button does it.
double Switch(Application& app, const char* to) {
  RefreshItemSet(app);
  return SetInAllParts(app, {{"active", to}}) ? app.ItemSet.RecordCount() : 0;
}

double SwitchFloor(RawFile& file, sqlite3_stmt* rows, sqlite3_stmt* update, const char* to) {
  std::vector<sqlite3_int64> changed;
  double parts = 0;
  for (; Step(rows); ++parts)
    if (TextOf(rows, 1) != to) changed.push_back(sqlite3_column_int64(rows, 0));
  if (changed.empty()) return parts;
  const std::string text = to;
  CommitGroups groups(file);
  for (const sqlite3_int64 key : changed) {
    groups.Next();
    sqlite3_bind_int64(update, 1, key);
    BindText(update, 2, text);
    Step(update);
  }
  groups.Finish();
  return parts;
}

// Each run switches them the other way, or finds nothing to do.
void SwitchParts(benchmark::State& state, bool back, double target) {
  const ScratchCopy ours("switch-ours.mdb"), floor("switch-floor.mdb");
  TaskDesk desk(ours.Path());
  RawFile file(floor.Path());
  sqlite3_stmt* rows =
      file.Prepare("SELECT _rid,active,* FROM I_Master WHERE pcenter=0 ORDER BY name");
  sqlite3_stmt* update = file.Prepare("UPDATE I_Master SET active=?2,_ver=_ver+1 WHERE _rid=?1");
  bool ourTurn = false, floorTurn = false;
  const auto text = [back](bool& turn) { return back && (turn = !turn) ? "YES" : "NO"; };
  RunPair(state, {{[&] { return Switch(desk.app, text(ourTurn)); }},
                  {[&] { return SwitchFloor(file, rows, update, text(floorTurn)); }},
                  target});
}
BENCHMARK_CAPTURE(SwitchParts, back, true, 1.35)->Name("Switch 30,000 parts")->Apply(AsPair);
BENCHMARK_CAPTURE(SwitchParts, nothing, false, 1.2)
    ->Name("Switch 30,000 parts that are so")
    ->Apply(AsPair);

double ItemsFloor(RawFile& file) {
  std::vector<std::pair<sqlite3_int64, std::string>> lines;
  for (sqlite3_stmt* rows =
           file.Prepare("SELECT _rid,inv_id FROM Inv_Recipe WHERE [desc]<>'RECIPE IN RECIPE'");
       Step(rows);)
    lines.emplace_back(sqlite3_column_int64(rows, 0), TextOf(rows, 1));
  sqlite3_stmt* part = file.Prepare("SELECT name,[desc] FROM I_Master WHERE inv_id=?1");
  sqlite3_stmt* update =
      file.Prepare("UPDATE Inv_Recipe SET iname=?2,[desc]=?3,_ver=_ver+1 WHERE _rid=?1");
  CommitGroups groups(file);
  for (const auto& [key, number] : lines) {
    groups.Next();
    BindText(part, 1, number);
    if (!Step(part)) continue;
    const std::string name = TextOf(part, 0), description = TextOf(part, 1);
    sqlite3_reset(part);
    sqlite3_bind_int64(update, 1, key);
    BindText(update, 2, name);
    BindText(update, 3, description);
    Step(update);
  }
  groups.Finish();
  return static_cast<double>(lines.size());
}

void UpdateItems(benchmark::State& state) {
  const GroupedStock ours("items-ours.mdb"), floor("items-floor.mdb");
  TaskDesk desk(ours.Path());
  RawFile file(floor.Path());
  const auto spoil = [](const std::string& path) {
    return [path] {
      RawFile(path).Run("UPDATE Inv_Recipe SET iname='old' WHERE [desc]<>'RECIPE IN RECIPE'");
    };
  };
  const auto lines = [&] {
    return RawFile(ours.Path())
        .Number("SELECT count(*) FROM Inv_Recipe WHERE [desc]<>'RECIPE IN RECIPE'");
  };
  const double count = lines();
  RunPair(state, {{[&] { return UpdatePartGroupItems(desk.app) ? count : 0; }, spoil(ours.Path())},
                  {[&] { return ItemsFloor(file); }, spoil(floor.Path())},
                  1.5});
}
BENCHMARK(UpdateItems)->Name("Part group items of 40,000 lines")->Apply(AsPair);

using Removal = std::function<double(Application& app)>;
using RemovalFloor = std::function<double(RawFile& file)>;

// Each run has a whole file before it, that the disk has taken: else the first commit waits for it.
void Remove(benchmark::State& state, const Removal& ours, const RemovalFloor& floor) {
  const ScratchCopy ourFile("remove-ours.mdb"), floorFile("remove-floor.mdb");
  std::unique_ptr<TaskDesk> desk;
  std::unique_ptr<RawFile> file;
  const auto renew = [](const ScratchCopy& copy) {
    std::filesystem::copy_file(kDatabase, copy.Path(),
                               std::filesystem::copy_options::overwrite_existing);
    ::sync();
  };
  RunPair(state, {{[&] { return ours(desk->app); },
                   [&] {
                     desk.reset();
                     renew(ourFile);
                     desk = std::make_unique<TaskDesk>(ourFile.Path());
                   }},
                  {[&] { return floor(*file); },
                   [&] {
                     file.reset();
                     renew(floorFile);
                     file = std::make_unique<RawFile>(floorFile.Path());
                   }},
                  1.2});
}

double WipeFloor(RawFile& file) {
  std::vector<std::string> tables;
  for (sqlite3_stmt* rows = file.Prepare(
           "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite%' "
           "AND name NOT LIKE 'CW%'");
       Step(rows);)
    tables.push_back(TextOf(rows, 0));
  for (const std::string& table : tables) file.Run("DELETE FROM [" + table + "]");
  return 1;
}
BENCHMARK_CAPTURE(
    Remove, wipe, [](Application& app) { return DeleteAllRecords(app) ? 1.0 : 0; }, WipeFloor)
    ->Name("Wipe 30,000 parts, 300,000 purchases")
    ->Apply(AsPair);

double RemovePartsFloor(RawFile& file) {
  file.Run(
      "BEGIN IMMEDIATE;DELETE FROM I_Master WHERE pcenter=0;DELETE FROM PSO_Master WHERE "
      "pcenter=0;DELETE FROM PSO_Detail WHERE pcenter=0;COMMIT");
  return 1;
}
double RemoveParts(Application& app) {
  return RunTogether(app, {"DELETE * FROM I_Master WHERE Pcenter = 0;",
                           "DELETE * FROM PSO_Master WHERE Pcenter = 0;",
                           "DELETE * FROM PSO_Detail WHERE Pcenter = 0;"});
}
BENCHMARK_CAPTURE(Remove, parts, RemoveParts, RemovePartsFloor)
    ->Name("Delete 30,000 parts")
    ->Apply(AsPair);

double RemovePurchasesFloor(RawFile& file) {
  file.Run("DELETE FROM Hist_Purchases");
  return 1;
}
double RemovePurchases(Application& app) {
  return RunTogether(app, {"DELETE FROM Hist_Purchases"});
}
BENCHMARK_CAPTURE(Remove, purchases, RemovePurchases, RemovePurchasesFloor)
    ->Name("Remove 300,000 purchases")
    ->Apply(AsPair);

}  // namespace
}  // namespace kvi::bench
