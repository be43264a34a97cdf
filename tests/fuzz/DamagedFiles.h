#pragma once

#include <cstdint>
#include <string>

#include "jet/file/Format.h"

namespace kvi::jetfile {

// A small file with something of everything in it: kinds of columns and rows, memos of several
// pages, maps of both kinds, indexes, a table linked from elsewhere.
std::string SoundFile(Version version);

// The file with a few bytes changed, a page put over another, or its end cut off. The same seed
// gives the same damage on every machine.
std::string Damaged(const std::string& file, std::uint64_t seed);

// All that can be read of the file, a line a row, and what is missing behind a "!". Raises
// FileError alone.
std::string Dump(const std::string& path, const std::string& password = "");

}  // namespace kvi::jetfile
