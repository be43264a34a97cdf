#include "support/Workbook.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/TemporaryFolder.h"

namespace kvi::test {

std::string ReadWorkbook(const std::string& path) {
  const std::string text = path + ".txt";
  const std::string command =
      "ssconvert -T Gnumeric_stf:stf_assistant -O 'separator=| format=raw quoting-mode=never' '" +
      path + "' '" + text + "' >/dev/null 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << "ssconvert (gnumeric) is missing, or " << path;
  return ReadFile(text);
}

}  // namespace kvi::test
