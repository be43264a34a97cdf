#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "jet/Conversion.h"
#include "jet/file/OldFile.h"
#include "jet/sqlite/NewTable.h"
#include "jet/sqlite/OldTable.h"
#include "jet/sqlite/SqliteTables.h"

namespace kvi::jet {
namespace {

namespace fs = std::filesystem;

constexpr int kRowsBetweenTellings = 500;
constexpr int kBadName = 3075, kTwiceDefined = 3191, kDamaged = 3049;

const TableDef* Find(const std::vector<TableDef>& tables, const std::string& name) {
  const auto found = std::ranges::find_if(
      tables, [&](const TableDef& table) { return EqualsNoCase(table.Name, name); });
  return found == tables.end() ? nullptr : &*found;
}

// Goes through a file table by table, into a database or into nothing.
class Converter {
 public:
  Converter(const ConversionOrder& order, SqliteConnection* to)
      : order_(order), to_(to), file_(order.From, order.Password) {
    result_.Format = file_.VersionName();
    for (const std::string& line : file_.Damage())
      result_.Losses.push_back("The list of tables: " + line);
    for (const jetfile::Object& object : file_.Objects())
      if (object.kind == jetfile::Object::Kind::Table && !order.Schema.empty() &&
          EqualsNoCase(object.Name, order.Schema.front().Name))
        schema_ = order.Schema;
  }

  Conversion Run() {
    for (const jetfile::Object& object : file_.Objects()) {
      if (object.kind == jetfile::Object::Kind::Table)
        TakeTable(object);
      else if (object.kind == jetfile::Object::Kind::Linked)
        result_.Losses.push_back(object.Name + " is in another file: " + object.Place);
      else
        result_.Notes.push_back(object.Name + " is a query and was not taken");
    }
    if (to_ != nullptr) MakeMissingTables();
    if (file_.Pages().WasWritten())
      throw jetfile::FileError(jetfile::Fault::CannotRead,
                               "'" + order_.From + "' was written to while it was read.");
    return std::move(result_);
  }

 private:
  // A table that cannot be taken is a loss, not the end of the others. What fails in the new file
  // for any reason but a name is the end.
  void TakeTable(const jetfile::Object& object) {
    ConvertedTable table{object.Name};
    try {
      TakeRows(object, table);
    } catch (const RunTimeError& error) {
      if (error.Number != kBadName && error.Number != kTwiceDefined && error.Number != kDamaged)
        throw;
      table.Losses.push_back("the whole table: " + error.Description);
    }
    result_.Tables.push_back(std::move(table));
  }

  void TakeRows(const jetfile::Object& object, ConvertedTable& table) {
    OldTable old(file_.Pages(), object.Name, object.Page);
    table.Declared = old.Declared();
    std::optional<NewTable> made;
    if (to_ != nullptr) {
      made.emplace(*to_, old.Design(), Find(schema_, object.Name));
      made_.push_back(object.Name);
    }
    for (std::vector<Value> row; old.Next(row);) {
      if (!made || made->Add(row, old.Rows())) ++table.Rows;
      if (old.Rows() % kRowsBetweenTellings == 1) Tell(table, old.Rows() - 1);
    }
    Tell(table, old.Rows());
    table.Losses = old.Losses();
    table.LeftOut = old.LeftOut();
    if (!made) return;
    made->Finish(table.Rows);
    for (const std::string& line : made->Refused()) table.Losses.push_back(line);
    for (const std::string& line : made->Notes())
      result_.Notes.push_back(object.Name + ": " + line);
  }

  void MakeMissingTables() {
    for (const TableDef& ours : schema_)
      if (std::ranges::none_of(
              made_, [&](const std::string& name) { return EqualsNoCase(name, ours.Name); }))
        CreateTable(*to_, ours);
  }

  void Tell(const ConvertedTable& table, int done) const {
    if (order_.Progress) order_.Progress(table.Name, done, std::max(done, table.Declared));
  }

  const ConversionOrder& order_;
  SqliteConnection* to_;
  jetfile::OldFile file_;
  std::vector<TableDef> schema_;  // none for a file of another product
  std::vector<std::string> made_;
  Conversion result_;
};

// On the disk before anything relies on it. (A folder is a file to this, too.)
void Sync(const fs::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) throw RunTimeError(3051);
  const bool failed = fsync(file) != 0;
  close(file);
  if (failed) throw RunTimeError(3043);
}

Conversion ConvertInto(const ConversionOrder& order, const std::string& to) {
  SqliteConnection connection(to);
  // Nobody else knows the file yet, and half of it is worth nothing.
  connection.Run("PRAGMA page_size=16384;PRAGMA journal_mode=OFF;PRAGMA synchronous=OFF;BEGIN");
  Conversion result = Converter(order, &connection).Run();
  connection.Run("COMMIT");
  StatementRun check(connection, "PRAGMA quick_check(1)");
  if (!check.Step() || check.Text(0) != "ok")
    throw RunTimeError(kDamaged, "The new file did not come out whole.");
  return result;
}

}  // namespace

bool Conversion::HasTable(const std::string& name) const {
  return std::ranges::any_of(
      Tables, [&](const ConvertedTable& table) { return EqualsNoCase(table.Name, name); });
}

std::vector<std::string> Conversion::AllLosses() const {
  std::vector<std::string> lines = Losses;
  for (const ConvertedTable& table : Tables)
    for (const auto* some : {&table.Losses, &table.LeftOut})
      for (const std::string& line : *some) lines.push_back("Table " + table.Name + ": " + line);
  return lines;
}

bool AsksForPassword(const std::string& path) {
  try {
    jetfile::PageFile(path, "");
    return false;
  } catch (const jetfile::FileError& error) {
    if (error.Kind != jetfile::Fault::Password) throw;
    return true;
  }
}

Conversion CheckOldFile(const ConversionOrder& order) {
  return Converter(order, nullptr).Run();
}

Conversion ConvertOldFile(const ConversionOrder& order, const std::string& to) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(to, error))) throw RunTimeError(3204);
  const std::string unfinished = to + ".new";
  fs::remove(unfinished, error);
  try {
    Conversion result = ConvertInto(order, unfinished);
    Sync(unfinished);
    fs::rename(unfinished, to, error);
    if (error) throw RunTimeError(3051);
    Sync(fs::absolute(to).parent_path());
    return result;
  } catch (...) {
    fs::remove(unfinished, error);
    throw;
  }
}

}  // namespace kvi::jet
