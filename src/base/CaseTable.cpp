#include <array>

#include "base/Utf8.h"

namespace kvi {
namespace {

// A run of capitals: each `step`-th character from first to last, its small letter `offset`
// further.
struct Capitals {
  char16_t first, last;
  int step, offset;
};

// One-to-one pairs only. The dotted capital and the dotless small i, the sharp s and the like have
// no partner here, so that no text changes its length or loses a letter on the way back.
constexpr Capitals kCapitals[] = {
    // Latin
    {u'A', u'Z', 1, 32},
    {0x00C0, 0x00D6, 1, 32},
    {0x00D8, 0x00DE, 1, 32},
    {0x0100, 0x012E, 2, 1},
    {0x0132, 0x0136, 2, 1},
    {0x0139, 0x0147, 2, 1},
    {0x014A, 0x0176, 2, 1},
    {0x0178, 0x0178, 1, -121},
    {0x0179, 0x017D, 2, 1},
    {0x0182, 0x0184, 2, 1},
    {0x018F, 0x018F, 1, 202},
    {0x0191, 0x0191, 1, 1},
    {0x0198, 0x0198, 1, 1},
    {0x01A0, 0x01A4, 2, 1},
    {0x01AF, 0x01AF, 1, 1},
    {0x01B3, 0x01B5, 2, 1},
    {0x01C4, 0x01CA, 3, 2},
    {0x01CD, 0x01DB, 2, 1},
    {0x01DE, 0x01EE, 2, 1},
    {0x01F1, 0x01F1, 1, 2},
    {0x01F4, 0x01F4, 1, 1},
    {0x01F8, 0x021E, 2, 1},
    {0x0222, 0x0232, 2, 1},
    {0x0246, 0x024E, 2, 1},
    {0x1E00, 0x1E94, 2, 1},
    {0x1EA0, 0x1EFE, 2, 1},
    // Greek
    {0x0386, 0x0386, 1, 38},
    {0x0388, 0x038A, 1, 37},
    {0x038C, 0x038C, 1, 64},
    {0x038E, 0x038F, 1, 63},
    {0x0391, 0x03A1, 1, 32},
    {0x03A3, 0x03AB, 1, 32},
    // Cyrillic
    {0x0400, 0x040F, 1, 80},
    {0x0410, 0x042F, 1, 32},
    {0x0460, 0x0480, 2, 1},
    {0x048A, 0x04BE, 2, 1},
    {0x04C0, 0x04C0, 1, 15},
    {0x04C1, 0x04CD, 2, 1},
    {0x04D0, 0x052E, 2, 1},
};

constexpr std::size_t kTableSize = 0x1F00;

struct CaseTables {
  std::array<char16_t, kTableSize> upper{}, lower{};
};

constexpr CaseTables MakeTables() {
  CaseTables tables;
  for (std::size_t i = 0; i < kTableSize; ++i)
    tables.upper[i] = tables.lower[i] = static_cast<char16_t>(i);
  for (const Capitals& run : kCapitals) {
    for (int capital = run.first; capital <= run.last; capital += run.step) {
      const int small = capital + run.offset;
      tables.lower[static_cast<std::size_t>(capital)] = static_cast<char16_t>(small);
      tables.upper[static_cast<std::size_t>(small)] = static_cast<char16_t>(capital);
    }
  }
  // The sigma at the end of a word is a second small letter of the one capital.
  tables.upper[0x03C2] = 0x03A3;
  return tables;
}

constexpr CaseTables kTables = MakeTables();

}  // namespace

char32_t ToUpper(char32_t character) {
  return character < kTableSize ? kTables.upper[character] : character;
}

char32_t ToLower(char32_t character) {
  return character < kTableSize ? kTables.lower[character] : character;
}

}  // namespace kvi
