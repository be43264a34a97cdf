#include "store/BackUp.h"

#include <unistd.h>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "frame/Application.h"
#include "jet/Server.h"
#include "platform/Hourglass.h"
#include "store/BackUpFiles.h"

namespace kvi {

namespace fs = std::filesystem;

namespace {

constexpr int kPathFileAccess = 75;
constexpr int kExists = 3204;

std::string Told(const RunTimeError& error) {
  return Str(error.Number) + " " + error.Description;
}

}  // namespace

void CopyAndCheck(jet::Database& database, const fs::path& path) {
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  if (error)
    throw RunTimeError(kPathFileAccess, path.parent_path().string() + ": " + error.message());
  database.CopyTo(path.string());
  try {
    jet::Database::Open(path.string(), false).Check();
  } catch (const RunTimeError&) {
    fs::remove(path, error);
    throw;
  }
}

fs::path MakeBackUp(jet::Database& database, const Date& now, const std::string& reason) {
  const fs::path path = FreeName(BackUpFolder(database.Path()), now, reason);
  CopyAndCheck(database, path);
  return path;
}

void MakeDailyBackUp(jet::Database& database, const Date& today) {
  const fs::path path = DailyName(BackUpFolder(database.Path()), today);
  std::error_code ignored;
  if (fs::exists(path, ignored)) return;
  try {
    CopyAndCheck(database, path);
  } catch (const RunTimeError& error) {
    if (error.Number != kExists) throw;
  }
  RemoveOldBackUps(path.parent_path(), today);
}

bool BackUpBefore(Application& app, const std::string& act) {
  std::string reason;
  try {
    const Hourglass busy(app.desktop);
    MakeBackUp(app.CurrentDatabase, app.clock.Now(), "before " + act);
    return true;
  } catch (const RunTimeError& error) {
    reason = Told(error);
  }
  return app.desktop.MsgBox({.text = "The database could not be copied into \"" +
                                     BackUpFolder(app.CurrentDatabase.Path()).string() +
                                     "\" before " + act + ".\n\n" + reason +
                                     "\n\nDo you want to go on without a copy?",
                             .buttons = Buttons::YesNo,
                             .icon = Icon::Warning,
                             .defaultAnswer = Answer::No}) == Answer::Yes;
}

void BackUpOfTheDay(Application& app) {
  jet::Database& database = app.CurrentDatabase;
  // A server's days are its administrator's: each desk would fetch the whole of it.
  if (jet::ServerNamedIn(database.Path())) return;
  const fs::path folder = fs::path(database.Path()).parent_path();
  if (::access(folder.c_str(), W_OK) != 0) return;
  try {
    MakeDailyBackUp(database, app.clock.Now().WithoutTime());
  } catch (const RunTimeError& error) {
    app.desktop.MsgBox({.text = "The copy of the day could not be made in \"" +
                                BackUpFolder(database.Path()).string() + "\".\n\n" + Told(error),
                        .icon = Icon::Warning});
  }
}

}  // namespace kvi
