#include "store/BackUp.h"

#include <filesystem>

#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "frame/Application.h"
#include "platform/Hourglass.h"

namespace kvi {

bool BackUpBefore(Application& app, const std::string& act) {
  const Hourglass busy(app.desktop);
  const auto folder = std::filesystem::path(app.CurrentDatabase.Path()).parent_path() / "backups";
  const Date now = app.clock.Now();
  const auto file = folder / (Format(now, "yyyy-mm-dd") + " " + Format(now, "hhmmss") + " before " +
                              act + ".mdb");
  std::string reason;
  try {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    app.CurrentDatabase.CopyTo(file.string());
    return true;
  } catch (const RunTimeError& error) {
    reason = Str(error.Number) + " " + error.Description;
  }
  app.desktop.MsgBox({.text = "The database could not be copied to \"" + file.string() +
                              "\" before " + act + ".  Nothing was changed.\n\n" + reason,
                      .icon = Icon::Error});
  return false;
}

}  // namespace kvi
