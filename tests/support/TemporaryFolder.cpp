#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "support/ServerDatabase.h"

namespace kvi::test {
#ifdef KVI_SERVER
namespace {

bool IsOnServer() {
  const char* engine = std::getenv("KVI_ENGINE");
  return engine != nullptr && std::string_view(engine) == "server";
}

}  // namespace
#endif

TemporaryFolder::TemporaryFolder() {
#ifdef KVI_SERVER
  std::shared_ptr<ServerDatabase> database;
  if (IsOnServer()) database_ = database = std::make_shared<ServerDatabase>();
#endif
  std::string pattern = (std::filesystem::temp_directory_path() / "kvi-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = pattern;
#ifdef KVI_SERVER
  if (database)
    WriteFile(*this / "KV_Inventory.mdb",
              "Kestvar Inventory server database\n" + database->Conninfo() + "\n");
#endif
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

}  // namespace kvi::test
