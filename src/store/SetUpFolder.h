#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "jet/Database.h"

namespace kvi {

// One file of a program's folder, and whether this set-up made it or found it standing there.
struct SetUpFile {
  std::filesystem::path Path;
  bool Made;
};

// Makes what a start needs in a folder: KV_Inventory.mdb (filled by `fill` when given),
// files/master.txt, TARNWK.INI, which marks the folder as the program's, and KVI.INI with the
// spreadsheet program given. What stands there already is kept as it is. A database comes to its
// name only when it is whole, so that a killed set-up leaves nothing half. Raises 75 when the
// folder cannot be made or written.
std::vector<SetUpFile> SetUpFolder(const std::filesystem::path& folder,
                                   const std::string& spreadsheetProgram,
                                   const std::function<void(jet::Database&)>& fill = {});

// The same for a desk that works on the database in another folder: none is made here. Raises 53
// where there is no KV_Inventory.mdb in it, and as Database::Open and OpenRecordset where that is
// no stockroom.
std::vector<SetUpFile> SetUpDesk(const std::filesystem::path& folder,
                                 const std::string& spreadsheetProgram,
                                 const std::filesystem::path& databaseFolder);

// The same for a desk whose database is on a server: KV_Inventory.mdb is the two lines that name
// it, the second of them for libpq. A password is no part of it.
std::vector<SetUpFile> SetUpServerDesk(const std::filesystem::path& folder,
                                       const std::string& spreadsheetProgram,
                                       const std::string& conninfo);

// Whether the folder has never been a program's: neither of its INI files is there.
bool IsNewFolder(const std::filesystem::path& folder);

// The first program of the list localc, libreoffice, gnumeric, xdg-open in the folders of a search
// path ("/usr/bin:/bin"), with its whole path; empty when there is none.
std::string FindSpreadsheetProgram(const std::string& searchPath);
// The same in this process's own search path.
std::string FindSpreadsheetProgram();

}  // namespace kvi
