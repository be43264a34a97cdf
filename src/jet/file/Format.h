#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kvi::jetfile {

enum class Version { Jet3, Jet4 };

enum class ColumnType : std::uint8_t {
  Boolean = 1,
  Byte = 2,
  Integer = 3,
  Long = 4,
  Currency = 5,
  Single = 6,
  Double = 7,
  Date = 8,
  Binary = 9,
  Text = 10,
  Ole = 11,
  Memo = 12,
  Guid = 15,
  Numeric = 16,
};

// Where the two versions keep the same things: offsets and sizes in bytes.
struct Layout {
  std::size_t pageSize;
  struct {
    std::size_t slotCount, slots;
  } dataPage;
  struct {
    std::size_t declaredRows, mostColumns, columns, logicalIndexes, realIndexes, ownedPages, end;
  } definition;
  struct {
    std::size_t statistics, size, flags, columns;
  } realIndex;
  struct {
    std::size_t size, dataNumber, kind;
  } logicalIndex;
  struct {
    std::size_t size, number, variableIndex, scale, flags, fixedOffset, length;
  } column;
  std::size_t countSize;  // of a row's count of columns and of a name's length
};

inline constexpr Layout kJet3Layout{2048,
                                    {8, 10},
                                    {12, 21, 25, 27, 31, 35, 43},
                                    {8, 39, 38, 0},
                                    {20, 4, 19},
                                    {18, 1, 3, 12, 13, 14, 16},
                                    1};
inline constexpr Layout kJet4Layout{4096,
                                    {12, 14},
                                    {16, 41, 45, 47, 51, 55, 63},
                                    {12, 52, 46, 4},
                                    {28, 8, 23},
                                    {25, 5, 7, 12, 15, 21, 23},
                                    2};

// The bytes under RC4 from a fresh state; done twice they are as before.
void ApplyRc4(std::uint32_t key, std::span<std::uint8_t> bytes);
// The key under which a part of the first page stands in every file, and where that part begins.
inline constexpr std::uint32_t kHeaderKey = 0x6B39DAC7;
inline constexpr std::size_t kMaskedFrom = 0x18;
inline constexpr std::size_t MaskedSize(Version version) {
  return version == Version::Jet3 ? 126 : 128;
}

}  // namespace kvi::jetfile
