#include "utilities/DailyTextFile.h"

#include <filesystem>
#include <fstream>
#include <initializer_list>

#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/Application.h"
#include "platform/Hourglass.h"

namespace kvi {

namespace {

namespace fs = std::filesystem;

constexpr int kFileNotFound = 53, kDiskFull = 61, kPathFileAccess = 75;

// The texts of one record in quotes. A quote in a text is doubled, or its record would have a text
// more.
std::string Record(std::initializer_list<std::string> texts) {
  std::string line;
  for (const std::string& text : texts)
    line += (line.empty() ? "\"" : ",\"") + Replace(text, "\"", "\"\"") + "\"";
  return line + "\n";
}

void WriteParts(Application& app, std::ostream& file) {
  const Date now = app.clock.Now();
  file << Record({"Kestvar Inventory"})
       << Record({Format(now, "m/d/yyyy") + " " + Format(now, "h:mm:ss AM/PM")})
       << Record({"---------------------------------"});
  auto parts = app.CurrentDatabase.OpenSnapshot("SELECT inv_id, name, hu_qty FROM I_Master",
                                                {"inv_id", "name", "hu_qty"});
  for (; !parts.Eof(); parts.MoveNext())
    file << Record(
        {Trim(parts.Text("inv_id")), Trim(parts.Text("name")), Trim(parts.Text("hu_qty"))});
}

// Beside the day's file until it is whole.
void WriteDay(Application& app, const fs::path& path) {
  const fs::path unfinished = path.string() + ".new";
  std::error_code failure;
  try {
    std::ofstream file(unfinished, std::ios::trunc);
    if (!file) throw RunTimeError(kPathFileAccess);
    WriteParts(app, file);
    file.close();
    if (!file) throw RunTimeError(kDiskFull);
    fs::rename(unfinished, path, failure);
    if (failure) throw RunTimeError(kPathFileAccess);
  } catch (const RunTimeError&) {
    fs::remove(unfinished, failure);
    throw;
  }
}

}  // namespace

std::string DailyFileName(const Date& day) {
  return Str(day.month) + Str(day.day) + Format(day, "yy") + ".txt";
}

void createFile(Application& app) {
  const fs::path folder = app.InProgramFolder("files");
  const fs::path path = folder / DailyFileName(app.clock.Now());
  std::error_code ignored;
  if (fs::exists(path, ignored) &&
      app.desktop.MsgBox({.text = "There is already a file for this day. Are you sure you want to "
                                  "replace it?",
                          .title = "File Exists",
                          .buttons = Buttons::YesNo,
                          .icon = Icon::Question,
                          .defaultAnswer = Answer::No}) != Answer::Yes)
    return;
  // Nothing of it reaches the day's file, but without it there is none.
  if (!fs::is_regular_file(folder / "master.txt", ignored)) throw RunTimeError(kFileNotFound);
  {
    const Hourglass busy(app.desktop);
    WriteDay(app, path);
  }
  app.desktop.MsgBox({.text = "File Created."});
}

}  // namespace kvi
