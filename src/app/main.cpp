#include <string>

#include "ProgramFolder.h"
#include "base/RunTimeError.h"
#include "desktop/window/QtDesktop.h"
#include "frame/Application.h"
#include "frame/Manual.h"
#include "sample/SampleStockroom.h"
#include "start/Main.h"
#include "start/Welcome.h"
#include "store/SetUpFolder.h"
#include "utilities/KVI_ImportPBI.h"

namespace {

// The arguments as one line, as a launcher hands them over.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) line += (i > 1 ? " " : "") + std::string(argv[i]);
  return line;
}

// True once the main screen stands. A failure that the start-up does not know how to handle ends
// it: nobody works on a half-started program.
bool Start(kvi::Application& app) {
  auto& welcome = app.Get<kvi::Welcome>();
  auto& main = app.Get<kvi::Main>();
  try {
    const auto fill = [](kvi::jet::Database& database) { kvi::FillSampleStockroom(database, {}); };
    if (kvi::IsNewFolder(app.ProgramFolder) && !welcome.AskHowToStart(fill)) return false;
    app.screens.Load(main);
    if (welcome.HasOldData()) app.screens.ShowModal(app.Get<kvi::KVI_ImportPBI>());
    return true;
  } catch (const kvi::RunTimeError& error) {
    app.desktop.MsgBox(
        {.text = std::to_string(error.Number) + " " + error.Description, .icon = kvi::Icon::Error});
  } catch (const kvi::EndOfProcess&) {
  }
  // (It shows as soon as its database is open.)
  if (!app.screens.IsShown(main)) welcome.TakeBack();
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string commandLine = CommandLine(argc, argv);
  kvi::QtDesktop desktop(argc, argv);
  kvi::SystemClock clock;
  kvi::SystemChance chance;
  kvi::Application app({desktop, clock, chance, kvi::ProgramFolder(), commandLine});
  desktop.SetProgramFolder(app.ProgramFolder);
  desktop.SetStack(app.screens);
  desktop.HelpWanted = [&app](const kvi::Screen& screen) {
    app.screens.Guard([&] { kvi::OpenHelpOn(app, screen.Name()); });
  };
  const int result = Start(app) ? desktop.RunEventLoop() : 1;
  desktop.CloseAllWindows();
  return result;
}
