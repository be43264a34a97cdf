#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace kvi::test {

// A folder of its own for one test, gone with it. Where KVI_ENGINE is "server" there stands a
// KV_Inventory.mdb in it that names a database of its own on the tests' server.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
  std::shared_ptr<void> database_;
};

std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& content);

}  // namespace kvi::test
