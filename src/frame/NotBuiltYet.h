#pragma once

#include <string>

#include "platform/Desktop.h"

namespace kvi {

// The plain box of a tile or an action whose module this version does not have.
inline void SayNotBuiltYet(Desktop& desktop, const std::string& module) {
  desktop.MsgBox({.text = "\"" + module + "\" is not part of this version yet."});
}

}  // namespace kvi
