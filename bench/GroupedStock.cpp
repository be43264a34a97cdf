#include "bench/GroupedStock.h"

namespace kvi::bench {
namespace {

constexpr int kGroups = 2000, kLines = 20;
const std::string kNestedLine = "RECIPE IN RECIPE", kPartLine = "a part of it";

std::vector<std::string> PartNumbers(RawFile& file) {
  std::vector<std::string> numbers;
  for (sqlite3_stmt* rows = file.Prepare("SELECT inv_id FROM I_Master WHERE hu_qty>0 AND hi_qty>0");
       Step(rows);)
    numbers.push_back(TextOf(rows, 0));
  return numbers;
}

}  // namespace

// Every group's first line nests the next group; the parts come from all over the table.
GroupedStock::GroupedStock(const std::string& path) : ScratchCopy(path) {
  constexpr std::size_t kStride = 7919;
  RawFile file(path);
  const std::vector<std::string> numbers = PartNumbers(file);
  sqlite3_stmt* header = file.Prepare(
      "INSERT INTO R_Master(rec_id,pcenter,name,category,notes,cost) "
      "VALUES(?1,0,'Machine '||?1||' overhaul','Overhaul kits','Twice a year.',12.5)");
  sqlite3_stmt* line = file.Prepare(
      "INSERT INTO Inv_Recipe(rec_id,inv_id,[desc],qty,cost_per,pcenter) VALUES(?1,?2,?3,0.5,0,0)");
  file.Run("BEGIN;DELETE FROM R_Master;DELETE FROM Inv_Recipe");
  std::size_t next = 0;
  for (int group = 1; group <= kGroups; ++group) {
    const std::string id = std::to_string(group), nested = std::to_string(group % kGroups + 1);
    BindText(header, 1, id);
    Step(header);
    for (int count = 0; count < kLines; ++count) {
      next = (next + kStride) % numbers.size();
      BindText(line, 1, id);
      BindText(line, 2, count == 0 ? nested : numbers[next]);
      BindText(line, 3, count == 0 ? kNestedLine : kPartLine);
      Step(line);
    }
  }
  file.Run("COMMIT");
}

}  // namespace kvi::bench
