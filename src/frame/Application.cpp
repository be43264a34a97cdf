#include "frame/Application.h"

#include <filesystem>

namespace kvi {

Application::Application(const Surroundings& surroundings)
    : desktop(surroundings.desktop),
      clock(surroundings.clock),
      chance(surroundings.chance),
      ProgramFolder(surroundings.programFolder),
      CommandLine(surroundings.commandLine),
      screens(surroundings.desktop) {
  // No desk keeps another waiting while its user thinks.
  desktop.BeforeWait = [this] {
    if (CurrentDatabase.IsOpen()) CurrentDatabase.GiveBackLocks();
  };
  desktop.DocumentSaved = [this](const std::string& path) {
    if (Screen* top = screens.Top()) top->Say("Printed to " + path);
  };
}

std::string Application::InProgramFolder(const std::string& fileName) const {
  return (std::filesystem::path(ProgramFolder) / fileName).string();
}

}  // namespace kvi
