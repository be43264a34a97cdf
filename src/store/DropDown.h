#pragma once

#include <string>

#include "jet/Database.h"
#include "platform/Controls.h"

namespace kvi {

class Application;

// Empties a combo and fills it with the distinct, trimmed values of a drop-list table, or with the
// vendors' names for "Vendor_Info", in their order. No entry is selected.
void FillDropDown(jet::Database& database, ComboBox& combo, const std::string& table);

// Fills the combos that hold a drop list for as long as the program runs. The vendors stand there
// in table order, unlike those of FillDropDown. A table that cannot be read is told, and costs its
// own combos alone.
void LoadDropLists(Application& app);
// The same of the vendors' combos alone.
void FillVendorLists(Application& app);

}  // namespace kvi
