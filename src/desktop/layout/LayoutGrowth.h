#pragma once

#include "platform/Layout.h"

// Where a layout tree takes the room that is left, and what counts as tall.
namespace kvi {

bool IsBand(const Layout& node);
// More than one line high: its label stands at its top.
bool IsTall(const Layout& node);
bool GrowsDown(const Layout& node);
bool GrowsAcross(const Layout& node);

}  // namespace kvi
