#include "jet/file/DataPage.h"

#include <string>

namespace kvi::jetfile {
namespace {

constexpr std::uint32_t kMostSlots = 256;  // as many as a row pointer can name
constexpr std::uint16_t kStartBits = 0x1FFF;

}  // namespace

DataPage::DataPage(PageFile& file, std::uint32_t number)
    : page_(file.Read(number)), slots_(file.Fields().dataPage.slots) {
  const Bytes bytes = page_.All();
  if (bytes.U8(0) != kDataPage)
    RaiseDamaged("page " + std::to_string(number) + " is no page of rows");
  owner_ = bytes.U32(4);
  slotCount_ = bytes.U16(file.Fields().dataPage.slotCount);
  if (slotCount_ > kMostSlots || slots_ + 2 * slotCount_ > bytes.Size())
    RaiseDamaged("page " + std::to_string(number) + " has " + std::to_string(slotCount_) + " rows");
}

std::size_t DataPage::StartOf(std::uint32_t slot) const {
  return page_.All().U16(slots_ + 2 * slot) & kStartBits;
}

DataPage::Slot DataPage::At(std::uint32_t slot) const {
  if (slot >= slotCount_) RaiseDamaged("row " + std::to_string(slot) + " is not on its page");
  const Bytes bytes = page_.All();
  const std::uint16_t flags = bytes.U16(slots_ + 2 * slot);
  const std::size_t start = StartOf(slot), end = slot == 0 ? bytes.Size() : StartOf(slot - 1);
  if (start < slots_ + 2 * slotCount_ || start > end || end > bytes.Size())
    RaiseDamaged("row " + std::to_string(slot) + " lies outside of its page");
  return {bytes.Part(start, end - start), (flags & kGone) != 0, (flags & kMoved) != 0};
}

}  // namespace kvi::jetfile
