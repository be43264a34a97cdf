#include "jet/postgres/ServerFile.h"

#include <fstream>

#include "base/RunTimeError.h"
#include "base/TakeName.h"

namespace kvi::jet {
namespace {

constexpr const char* kFirstLine = "Kestvar Inventory server database";

}  // namespace

std::optional<std::string> ReadServerFile(const std::string& path) {
  std::ifstream file(path);
  std::string first(std::char_traits<char>::length(kFirstLine), ' ');
  std::string rest, address;
  if (!file.read(first.data(), static_cast<std::streamsize>(first.size())) || first != kFirstLine)
    return std::nullopt;
  std::getline(file, rest);
  std::getline(file, address);
  if (!address.empty() && address.back() == '\r') address.pop_back();
  return address;
}

void WriteServerFile(const std::string& path, const std::string& address) {
  const std::string unfinished = path + ".new";
  std::ofstream file(unfinished, std::ios::trunc);
  file << kFirstLine << '\n' << address << '\n';
  file.close();
  if (!file) throw RunTimeError(3051);
  if (!TakeName(unfinished, path)) throw RunTimeError(3204);
}

}  // namespace kvi::jet
