#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jet/TableDef.h"

namespace kvi::jet {

// The first line of a KV_Inventory.mdb that names a database on a server; the second one tells
// libpq which.
inline constexpr std::string_view kServerFileMark = "Kestvar Inventory server database";
// What the second line tells libpq, where the file is such a one.
std::optional<std::string> ServerNamedIn(const std::string& path);

// What `kvi-server create` makes.
struct ServerSetUp {
  std::string Database;
  // The role that owns the tables, which nobody logs in as, and the one that the desks log in as;
  // each is made unless it is there. A desk's role that is there keeps its password.
  std::string Owner = "kvi_owner";
  std::string Desk = "kvi_desks";
  // Asked only when the desks' role is to be made.
  std::function<std::string()> AskPassword = {};
  // Fills the new tables, where given, by libpq's words for the new database.
  std::function<void(const std::string& conninfo)> Fill = {};
};

// Makes a database on the server that libpq's surroundings name (PGHOST, PGPORT; else this
// machine's), as the user who runs the program: the roles, the functions, the tables, the rights,
// and that a desk that hangs loses its locks. All of it or nothing. Raises 3051 when the server
// does not answer or the user is not its administrator, 3204 for a database that is there, 3343 for
// a server that is too old, 5 for names that cannot be, and what else the server says as 3000.
void CreateServerDatabase(const ServerSetUp& setUp, const std::vector<TableDef>& tables);

// What an administrator watches, each with its name: version, size, tables, desks and locks. Raises
// 3051 where the database cannot be reached and 3343 for one that is none of ours, or of another
// version.
std::vector<std::pair<std::string, std::string>> WatchServerDatabase(const std::string& database);

// What stands in the server's way to be reached by desks, a line each, to be told behind set-up.
std::vector<std::string> StepsToReach(const ServerSetUp& setUp);

}  // namespace kvi::jet
