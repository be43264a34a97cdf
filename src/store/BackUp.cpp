#include "store/BackUp.h"

#include <unistd.h>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "frame/Application.h"
#include "jet/Server.h"
#include "platform/Hourglass.h"
#include "platform/Progress.h"
#include "store/BackUpFiles.h"

namespace kvi {

namespace fs = std::filesystem;

namespace {

constexpr int kPathFileAccess = 75;
constexpr int kExists = 3204;
// To look through a copy takes about five times as long as to make it.
constexpr int kCopy = 1, kCopyAndLook = 6;
constexpr const char* kTitle = "Copy of the database";

std::string Told(const RunTimeError& error) {
  return Str(error.Number) + " " + error.Description;
}

}  // namespace

void CopyAndCheck(jet::Database& database, const fs::path& path, Progress* progress) {
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  if (error)
    throw RunTimeError(kPathFileAccess, path.parent_path().string() + ": " + error.message());
  if (progress != nullptr) progress->Begin("Copying and looking through", kCopyAndLook);
  database.CopyTo(path.string());
  if (progress != nullptr) progress->Done(kCopy);
  try {
    jet::Database::Open(path.string(), false).Check();
  } catch (const RunTimeError&) {
    fs::remove(path, error);
    throw;
  }
}

fs::path MakeBackUp(jet::Database& database, const Date& now, const std::string& reason,
                    Progress* progress) {
  const fs::path path = FreeName(BackUpFolder(database.Path()), now, reason);
  CopyAndCheck(database, path, progress);
  return path;
}

void MakeDailyBackUp(jet::Database& database, const Date& today, Progress* progress) {
  const fs::path path = DailyName(BackUpFolder(database.Path()), today);
  std::error_code ignored;
  if (fs::exists(path, ignored)) return;
  try {
    CopyAndCheck(database, path, progress);
  } catch (const RunTimeError& error) {
    if (error.Number != kExists) throw;
  }
  RemoveOldBackUps(path.parent_path(), today);
}

bool BackUpBefore(Application& app, const std::string& act) {
  std::string reason;
  try {
    const Hourglass busy(app.desktop);
    const auto progress = app.desktop.NewProgress(kTitle, false);
    MakeBackUp(app.CurrentDatabase, app.clock.Now(), "before " + act, progress.get());
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
    const auto progress = app.desktop.NewProgress(kTitle, false);
    MakeDailyBackUp(database, app.clock.Now().WithoutTime(), progress.get());
  } catch (const RunTimeError& error) {
    app.desktop.MsgBox({.text = "The copy of the day could not be made in \"" +
                                BackUpFolder(database.Path()).string() + "\".\n\n" + Told(error),
                        .icon = Icon::Warning});
  }
}

}  // namespace kvi
