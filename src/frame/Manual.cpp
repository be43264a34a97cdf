#include "frame/Manual.h"

#include <filesystem>

#include "base/Text.h"
#include "frame/Application.h"

namespace kvi {

namespace {

constexpr const char* kInstalled = "/usr/share/doc/kestvar-inventory/manual";

bool OpenPage(Application& app, const std::string& page) {
  for (const std::string& folder : {app.InProgramFolder("manual"), std::string(kInstalled)})
    if (app.desktop.OpenHelp((std::filesystem::path(folder) / page).string())) return true;
  return false;
}

}  // namespace

std::string ManualPage(const std::string& screen) {
  return LCase(screen) + ".html";
}

void OpenHelp(Application& app) {
  if (app.desktop.OpenHelp(app.InProgramFolder("manual.chm"))) return;
  if (OpenPage(app, "index.html")) return;
  app.desktop.MsgBox(
      {.text = "There is a problem locating the help file OR you have not properly setup your "
               "'browser'.  Go to 'Utilities' from the main screen, click on 'KV Settings' and "
               "make sure your browser is properly selected. "});
}

void OpenHelpOn(Application& app, const std::string& screen) {
  if (!OpenPage(app, ManualPage(screen))) OpenHelp(app);
}

}  // namespace kvi
