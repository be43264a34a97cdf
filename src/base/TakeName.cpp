#include "base/TakeName.h"

#include <fcntl.h>
#include <unistd.h>

#include "base/RunTimeError.h"

namespace kvi {

namespace fs = std::filesystem;

namespace {

constexpr int kPathFileAccess = 75;

// A dead link counts as standing: it is somebody's, and writing would go through it.
bool Stands(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(path, ignored));
}

}  // namespace

// A hard link takes the name only while it is free, unlike a renaming; a file system without links
// gets the renaming.
bool TakeName(const fs::path& file, const fs::path& name) {
  std::error_code error;
  fs::create_hard_link(file, name, error);
  if (error) {
    if (Stands(name)) return false;
    fs::rename(file, name, error);
    if (error) throw RunTimeError(kPathFileAccess, name.string() + ": " + error.message());
  }
  fs::remove(file, error);
  SyncFolder(name.parent_path());
  return true;
}

void SyncFolder(const fs::path& folder) {
  const int entry = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (entry < 0) return;
  ::fsync(entry);
  ::close(entry);
}

}  // namespace kvi
