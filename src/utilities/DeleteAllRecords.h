#pragma once

namespace kvi {

class Application;

// The whole-database wipe, for a customer who starts with an empty database. Asks twice, leaves a
// copy behind, empties the tables and closes the database: then the result is true, and nothing is
// left to do but to end the process. The settings are written before, with the first profit center,
// so that the next start finds what it needs whenever this one ends. Where a table could not be
// emptied, the user was told, the database is open on what is left, and the result is false.
[[nodiscard]] bool NewDatabaseWipe(Application& app);

// Empties the tables, each by one statement, in their order; the column widths stay. A failure is
// a box and ends the walk: false, and the tables before it stay empty.
[[nodiscard]] bool DeleteAllRecords(Application& app);

}  // namespace kvi
