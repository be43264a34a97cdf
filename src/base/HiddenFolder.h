#pragma once

#include <string>

namespace kvi {

// A folder for files that nobody else knows by name, gone with what is in it. Raises 3051 where it
// cannot be made.
class HiddenFolder {
 public:
  HiddenFolder();
  ~HiddenFolder();
  HiddenFolder(const HiddenFolder&) = delete;
  HiddenFolder& operator=(const HiddenFolder&) = delete;

  std::string operator/(const char* name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

}  // namespace kvi
