#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvi {

// An INI file by the rules of the classic private-profile calls. Each read opens the file afresh;
// a file that is missing, cannot be read or is no text has no section, which is never an error.
class IniFile {
 public:
  using KeyAndValue = std::pair<std::string, std::string>;

  explicit IniFile(std::filesystem::path path) : path_(std::move(path)) {}

  // True when the section stands in the file with at least one key.
  bool HasSection(std::string_view section) const;

  // Section and key are found in either case, the first of equal keys counts. One pair of quotes
  // around the value is taken off, then it is cut at 127 characters.
  std::string Read(std::string_view section, std::string_view key, std::string_view fallback) const;

  // Sets the keys and keeps everything else, in a new file that then takes the place of the old
  // one, so that no failure leaves half a file. A value ends at its first NUL or line end. Raises
  // 61 when the disk is full and 75 for any other failure.
  void Write(std::string_view section, const std::vector<KeyAndValue>& values) const;
  void Write(std::string_view section, std::string_view key, std::string_view value) const;

 private:
  std::filesystem::path path_;
};

}  // namespace kvi
