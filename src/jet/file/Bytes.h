#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "jet/file/FileError.h"

namespace kvi::jetfile {

// A stretch of bytes of a page, little-endian numbers in it. The one way to look into a file:
// whatever would reach past the end raises Damaged. It borrows; a pinned Page keeps what it shows.
class Bytes {
 public:
  Bytes() = default;
  Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  std::size_t Size() const { return size_; }
  std::uint8_t U8(std::size_t at) const { return *Reach(at, 1); }
  std::uint16_t U16(std::size_t at) const { return static_cast<std::uint16_t>(Number(at, 2)); }
  std::uint32_t U32(std::size_t at) const { return static_cast<std::uint32_t>(Number(at, 4)); }
  std::uint64_t U64(std::size_t at) const { return Number(at, 8); }
  Bytes Part(std::size_t at, std::size_t length) const { return {Reach(at, length), length}; }
  Bytes From(std::size_t at) const { return Part(at, at > size_ ? 0 : size_ - at); }
  std::string_view Text() const { return {reinterpret_cast<const char*>(data_), size_}; }

 private:
  const std::uint8_t* Reach(std::size_t at, std::size_t length) const {
    if (at > size_ || length > size_ - at) RaiseDamaged("a structure ends early");
    return data_ + at;
  }
  std::uint64_t Number(std::size_t at, std::size_t length) const {
    const std::uint8_t* bytes = Reach(at, length);
    std::uint64_t number = 0;
    for (std::size_t i = length; i-- > 0;) number = number << 8 | bytes[i];
    return number;
  }

  const std::uint8_t* data_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace kvi::jetfile
