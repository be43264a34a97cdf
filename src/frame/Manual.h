#pragma once

#include <string>

namespace kvi {

class Application;

// The page of the manual that tells of a screen.
std::string ManualPage(const std::string& screen);

// Opens the help file where one lies in the program's folder, else the manual at its first page.
// The manual lies in the program's folder or where it was installed; a box says when there is none.
void OpenHelp(Application& app);
// Opens the manual at the page of a screen; without a manual, what OpenHelp opens.
void OpenHelpOn(Application& app, const std::string& screen);

}  // namespace kvi
