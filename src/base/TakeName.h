#pragma once

#include <filesystem>

namespace kvi {

// Gives a file that is whole its name, never over one that stands there: false when the name is
// taken. The file's first name goes, and the folder is written to the disk. Raises 75 where the
// name cannot be given.
[[nodiscard]] bool TakeName(const std::filesystem::path& file, const std::filesystem::path& name);

// Brings a folder's entries to the disk, so that a name that was given outlives a power cut.
void SyncFolder(const std::filesystem::path& folder);

}  // namespace kvi
