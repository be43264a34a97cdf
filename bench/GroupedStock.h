#pragma once

#include "bench/RawFile.h"
#include "bench/Stockroom.h"

namespace kvi::bench {

// The stockroom with 2,000 part groups of 20 lines, one of them nested, numbered from 1 on.
class GroupedStock : public ScratchCopy {
 public:
  explicit GroupedStock(const std::string& path);
};

}  // namespace kvi::bench
