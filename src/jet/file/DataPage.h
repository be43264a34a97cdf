#pragma once

#include <cstdint>

#include "jet/file/PageFile.h"

namespace kvi::jetfile {

inline constexpr std::uint8_t kDataPage = 1, kDefinitionPage = 2, kBitmapPage = 5;

// A page of rows, maps or long values. Its making raises Damaged where it is none.
class DataPage {
 public:
  static constexpr std::uint16_t kGone = 0x8000, kMoved = 0x4000;

  DataPage(PageFile& file, std::uint32_t number);

  // The page of the definition of the table that owns it, or the letters of kLongValues.
  std::uint32_t Owner() const { return owner_; }
  static constexpr std::uint32_t kLongValues = 0x4C41564C;

  std::uint32_t SlotCount() const { return slotCount_; }
  // What stands in the slot, and the flags that it has.
  struct Slot {
    Bytes bytes;
    bool gone = false, moved = false;
  };
  Slot At(std::uint32_t slot) const;

 private:
  std::size_t StartOf(std::uint32_t slot) const;

  Page page_;
  std::size_t slots_;
  std::uint32_t owner_, slotCount_;
};

}  // namespace kvi::jetfile
