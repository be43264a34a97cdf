#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "jet/Database.h"
#include "sample/oldfiles/JetFileWriter.h"

namespace kvi::jetfile {

// All tables and rows of a database as a Jet file, but for the fields named: those that an older
// version did not have yet.
std::string JetFileOf(jet::Database& database, Version version,
                      const std::vector<std::string_view>& without = {});

}  // namespace kvi::jetfile
