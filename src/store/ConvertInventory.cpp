#include "store/ConvertInventory.h"

#include <filesystem>
#include <utility>

#include "base/Number.h"
#include "base/Text.h"
#include "platform/Progress.h"
#include "store/Schema.h"

namespace kvi {

jet::Conversion ConvertInventory(jet::ConversionOrder order, const std::string& to) {
  order.Schema = Schema();
  jet::Conversion protocol = jet::ConvertOldFile(order, to);
  if (protocol.HasTable(Schema().front().Name)) {
    jet::Database made = jet::Database::Open(to, false);
    FillColumnWidths(made);
    made.Close();
    std::error_code ignored;
    std::filesystem::remove(to + "-journal", ignored);
  }
  return protocol;
}

std::function<void(const std::string&, int, int)> TablesOn(Progress& progress,
                                                           const std::string& doing) {
  return [&progress, doing, begun = std::string()](const std::string& table, int done,
                                                   int total) mutable {
    if (std::exchange(begun, table) != table) progress.Begin(doing + " " + table, total);
    progress.Done(done);
  };
}

std::string ProtocolText(const jet::Conversion& protocol) {
  std::string text;
  for (const jet::ConvertedTable& table : protocol.Tables)
    text += table.Name + ": " + Str(table.Rows) + " rows\n";
  for (const std::string& line : protocol.AllLosses()) text += "MISSING  " + line + "\n";
  for (const std::string& line : protocol.Notes) text += "Note: " + line + "\n";
  return text;
}

std::string LockFileBeside(const std::string& path) {
  const std::filesystem::path file(path);
  const std::string wanted = file.stem().string() + ".ldb";
  std::error_code error;
  const auto folder = std::filesystem::absolute(file, error).parent_path();
  for (const auto& entry : std::filesystem::directory_iterator(folder, error))
    if (EqualsNoCase(entry.path().filename().string(), wanted)) return entry.path().string();
  return "";
}

}  // namespace kvi
