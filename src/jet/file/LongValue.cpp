#include "jet/file/LongValue.h"

#include <set>

#include "jet/file/DataPage.h"

namespace kvi::jetfile {
namespace {

constexpr std::size_t kHeadSize = 12, kPointerSize = 4;
constexpr std::uint32_t kLengthBits = 0x3FFFFFFF, kInline = 2, kOneRow = 1, kChain = 0;

// A page is held while its row is looked at.
struct Piece {
  DataPage page;
  Bytes bytes;
};

Piece PieceAt(PageFile& file, RowPointer pointer) {
  DataPage page(file, pointer.page);
  if (page.Owner() != DataPage::kLongValues)
    RaiseDamaged("page " + std::to_string(pointer.page) + " holds no long values");
  const DataPage::Slot slot = page.At(pointer.slot);
  if (slot.gone || slot.moved) RaiseDamaged("a piece of a long value was removed");
  return {page, slot.bytes};
}

}  // namespace

Bytes LongValues::Read(Bytes head) {
  if (head.Size() == 0) return head;
  const std::uint32_t start = head.U32(0), kind = start >> 30;
  const std::size_t length = start & kLengthBits;
  const RowPointer pointer = PointerOf(head.U32(4));
  const Bytes behind = head.From(kHeadSize);
  if (kind == kInline && behind.Size() == length) return behind;
  if (kind > kOneRow || behind.Size() != 0) RaiseDamaged("a long value's head is wrong");
  if (length > left_) RaiseDamaged("its long values are longer than the file");
  left_ -= length;
  value_.clear();
  if (kind == kChain)
    ReadChain(length, pointer);
  else
    ReadRow(length, pointer);
  return {value_.data(), value_.size()};
}

void LongValues::ReadRow(std::size_t length, RowPointer pointer) {
  const Piece piece = PieceAt(file_, pointer);
  if (piece.bytes.Size() != length) RaiseDamaged("a long value of the wrong length");
  const std::string_view text = piece.bytes.Text();
  value_.assign(text.begin(), text.end());
}

void LongValues::ReadChain(std::size_t length, RowPointer pointer) {
  std::set<std::pair<std::uint32_t, std::uint32_t>> seen;
  while (pointer.page != 0 || pointer.slot != 0) {
    if (!seen.insert({pointer.page, pointer.slot}).second)
      RaiseDamaged("a long value runs in a circle");
    const Piece piece = PieceAt(file_, pointer);
    if (piece.bytes.Size() <= kPointerSize) RaiseDamaged("an empty piece of a long value");
    const std::string_view text = piece.bytes.From(kPointerSize).Text();
    if (text.size() > length - value_.size()) RaiseDamaged("a long value is longer than it says");
    value_.insert(value_.end(), text.begin(), text.end());
    pointer = PointerOf(piece.bytes.U32(0));
  }
  if (value_.size() != length) RaiseDamaged("a long value is cut off");
}

}  // namespace kvi::jetfile
