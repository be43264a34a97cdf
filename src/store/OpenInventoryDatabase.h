#pragma once

#include <string>

namespace kvi {

class Application;

inline constexpr const char* kDatabaseFile = "KV_Inventory.mdb";

// Finds KV_Inventory.mdb, opens it, upgrades and repairs it, and fills the profit centers. The
// process never runs on without a database: every failure is a box, and ends it.
void OpenInventoryDatabase(Application& app);

// The same where another content stands in the file: the profit center stays the current one if it
// is in there too, and the drop lists are loaded anew.
void ReopenInventoryDatabase(Application& app);

// The database file in a folder; an empty folder is the program's own.
std::string DatabasePathIn(const Application& app, const std::string& folder);

// Opens the long-lived recordsets again for the current profit center. Switches the sign-in off
// when there is no employee, since nobody could sign in.
void RefreshMasterRecordsets(Application& app);

// Opens ItemSet alone again, which some routines leave on other parts.
void RefreshItemSet(Application& app);

}  // namespace kvi
