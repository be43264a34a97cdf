#pragma once

#include <string>

namespace kvi::test {

// The workbook as a spreadsheet program reads it, a line a row, cells between "|": numbers and
// dates as the bare numbers they are.
std::string ReadWorkbook(const std::string& path);

}  // namespace kvi::test
