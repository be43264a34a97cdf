#include "base/HiddenFolder.h"

#include <cstdlib>
#include <filesystem>

#include "base/RunTimeError.h"

namespace kvi {

HiddenFolder::HiddenFolder() {
  std::error_code error;
  path_ = (std::filesystem::temp_directory_path(error) / "kvi-XXXXXX").string();
  if (error || mkdtemp(path_.data()) == nullptr) throw RunTimeError(3051);
}

HiddenFolder::~HiddenFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace kvi
