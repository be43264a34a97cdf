#include "utilities/DeleteAllRecords.h"

#include <string>
#include <utility>
#include <vector>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/Application.h"
#include "frame/INI_SUBS.h"
#include "platform/Hourglass.h"
#include "platform/Progress.h"
#include "store/BackUp.h"
#include "store/OpenInventoryDatabase.h"
#include "store/SaveRecord.h"

namespace kvi {

namespace {

constexpr const char* kQuestion =
    "               C A U T I O N   !   !   !\n\n"
    "This utility deletes all the records in the current\n"
    "database. It is normally used to remove the sample\n"
    "data that is shipped with new purchases.\n\n"
    "It is recommended that you first back up the current\n"
    "database before proceeding (click NO and exit the \n"
    "program to do so).\n\n"
    "Do you want to delete all records in the current\n"
    "database right now?";

bool Asked(Application& app, const char* question) {
  return app.desktop.MsgBox({.text = question,
                             .title = "New Database",
                             .buttons = Buttons::YesNo,
                             .icon = Icon::Error,
                             .defaultAnswer = Answer::No}) == Answer::Yes;
}

// The profit centers go with the rest: the next start adds "General" again.
std::vector<std::string> TablesToEmpty(jet::Database& database) {
  std::vector<std::string> names;
  for (const jet::TableDef& table : database.TableDefs()) {
    const std::string kind = UCase(Left(table.Name, 3));
    if (kind != "CW_" && kind != "MSY") names.push_back(table.Name);
  }
  return names;
}

}  // namespace

bool DeleteAllRecords(Application& app) {
  const Hourglass busy(app.desktop);
  jet::Database& database = app.CurrentDatabase;
  const std::vector<std::string> tables = TablesToEmpty(database);
  int emptied = 0;
  const auto soFar = [&]() -> std::string {
    return emptied > 0 ? "The tables that were emptied before that stay empty." : "";
  };
  const auto empty = [&] {
    const auto progress = app.desktop.NewProgress("New Database", false);
    progress->Begin("Tables", static_cast<int>(tables.size()));
    // Small tables go in one commit.
    jet::WriteBatch batch(database);
    for (const std::string& table : tables) {
      database.Execute("DELETE FROM [" + table + "]");
      progress->Done(++emptied);
    }
    batch.Finish();
  };
  try {
    return WriteUnderLocks(app.desktop, database, empty, soFar);
  } catch (const RunTimeError& error) {
    app.desktop.MsgBox({.text = Str(error.Number) + " " + error.Description + "\n\n" + soFar(),
                        .icon = Icon::Error});
    return false;
  }
}

bool NewDatabaseWipe(Application& app) {
  if (!Asked(app, kQuestion) || !Asked(app, "Are you positive?")) return false;
  if (!BackUpBefore(app, "deleting all records")) return false;
  // A number that equals the count of profit centers would end every later start.
  const int number = std::exchange(app.CurrentProfitCenter, 0);
  WriteSettings(app);
  if (DeleteAllRecords(app)) {
    app.CurrentDatabase.Close();
    return true;
  }
  app.CurrentProfitCenter = number;
  ReopenInventoryDatabase(app);
  return false;
}

}  // namespace kvi
