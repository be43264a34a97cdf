#pragma once

#include <filesystem>
#include <vector>

#include "store/SetUpFolder.h"

namespace kvi {

// Lays a small database of each of the two older products into a folder, to try the import with:
// MILLRACE.MDB and PBI_DATA.MDB. One that stands there already is kept. Raises 75 when one cannot
// be written.
std::vector<SetUpFile> LayOldProducts(const std::filesystem::path& folder);

}  // namespace kvi
