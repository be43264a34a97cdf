#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace kvi::test {

inline const std::filesystem::path kSources = KVI_SOURCES;

inline std::string ReadAll(const std::filesystem::path& path) {
  std::ifstream file(path);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

// What the pattern's first group is, at each of its matches.
inline std::vector<std::string> Matches(const std::string& text, const std::regex& pattern) {
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
    found.push_back((*match)[1]);
  return found;
}

}  // namespace kvi::test
