#pragma once

#include <string>

namespace kvi {

// Where the program's files lie: the folder of the executable if TARNWK.INI stands there; else
// $KVI_HOME; else the user's data folder.
std::string ProgramFolder();

}  // namespace kvi
