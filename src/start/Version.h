#pragma once

#include <string>

namespace kvi {

// "Version " and the major, minor and revision number of the program.
std::string VersionText();

}  // namespace kvi
