#include "utilities/ImportPlainbook.h"

#include <filesystem>

#include "base/RunTimeError.h"
#include "store/BackUp.h"
#include "store/ConvertInventory.h"
#include "store/Restore.h"
#include "store/Schema.h"

namespace kvi {

namespace {

namespace fs = std::filesystem;

constexpr int kPathFileAccess = 75, kDuplicateKey = 3022, kNoSuchDatabase = 3343;
constexpr const char* kBackUpFile = "KV_Inventory_Backup.MDB";

// Periods are found by their day. Where one was locked twice on a day it is one
// period.
void CutToDays(jet::Database& database, const std::string& table) {
  auto rows = database.OpenRecordset("SELECT * FROM " + table + ";");
  for (; !rows.Eof(); rows.MoveNext()) {
    const Value& locked = rows["F_Date"];
    if (!locked.IsDate() || !locked.AsDate().HasTime()) continue;
    try {
      const Date day = locked.AsDate().WithoutTime();
      rows.Edit();
      rows.Set("F_Date", day);
      rows.Update();
    } catch (const RunTimeError& error) {
      if (error.Number != kDuplicateKey) throw;
      rows.Delete();
    }
  }
}

jet::Conversion ConvertJetFile(const std::string& from, const std::string& password,
                               const std::string& to, Progress& progress) {
  const std::string& parts = Schema().front().Name;
  jet::Conversion protocol = ConvertInventory(
      {.From = from, .Password = password, .Progress = TablesOn(progress, "Reading")}, to);
  if (!protocol.HasTable(parts))
    throw RunTimeError(kNoSuchDatabase, "This is no Plainbook Inventory database: the table " +
                                            parts + " is missing.");
  return protocol;
}

}  // namespace

jet::Conversion ConvertPlainbook(const std::string& from, const std::string& password,
                                 const std::string& to, Progress& progress) {
  jet::Conversion protocol;
  if (jet::IsJetFile(from)) {
    protocol = ConvertJetFile(from, password, to, progress);
  } else {
    RequireInventoryFile(from);
    jet::Database::Open(from, false).CopyTo(to);
  }
  jet::Database made = jet::Database::Open(to, false);
  jet::WriteBatch batch(made);
  for (const char* table : {"HI_Header", "[Historical Inventory]"}) CutToDays(made, table);
  batch.Finish();
  return protocol;
}

void BackUpForPlainbook(jet::Database& database) {
  const fs::path path = fs::path(database.Path()).parent_path() / kBackUpFile;
  const fs::path unfinished = path.string() + ".new";
  std::error_code error;
  fs::remove(unfinished, error);
  CopyAndCheck(database, unfinished);
  fs::rename(unfinished, path, error);
  if (error) throw RunTimeError(kPathFileAccess, path.string() + ": " + error.message());
}

}  // namespace kvi
