#pragma once

#include <cstdint>
#include <vector>

#include "jet/file/PageFile.h"

namespace kvi::jetfile {

// Reads the long values (memos and objects) of one pass over a table. In a sound file each of their
// bytes belongs to one row: so a pass reads no more than the file holds, whatever it asks for.
class LongValues {
 public:
  explicit LongValues(PageFile& file) : file_(file), left_(file.Size()) {}

  // The whole value whose head stands in a row. Raises Damaged unless its pieces are exactly as
  // long as the head says. What it gives is good until the next call.
  Bytes Read(Bytes head);

 private:
  void ReadRow(std::size_t length, RowPointer pointer);
  void ReadChain(std::size_t length, RowPointer pointer);

  PageFile& file_;
  std::uint64_t left_;
  std::vector<std::uint8_t> value_;
};

}  // namespace kvi::jetfile
