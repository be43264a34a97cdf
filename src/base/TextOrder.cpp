#include "base/TextOrder.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "base/TextOrderTable.h"
#include "base/Utf8.h"

namespace kvi {
namespace {

constexpr int kAccentBits = 8;
constexpr char32_t kTableSize = 0x1F00;
// Characters without a row of their own stand behind all letters, in the order of their numbers.
constexpr std::uint32_t kUnlisted = 0x1000;

constexpr bool IsAsciiLetterOrDigit(char32_t c) {
  return (c >= U'0' && c <= U'9') || (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z');
}

// Marks first, then digits, then letters: Latin, Greek, Cyrillic.
constexpr auto MakeKeys() {
  std::array<std::uint32_t, kTableSize> keys{};
  for (char32_t c = 0; c < kTableSize; ++c) keys[c] = (kUnlisted + c) << kAccentBits;
  std::uint32_t rank = 0;
  for (char32_t c = 0; c < 0xC0; ++c) {
    if (!IsAsciiLetterOrDigit(c)) keys[c] = rank++ << kAccentBits;
  }
  for (char32_t c = U'0'; c <= U'9'; ++c) keys[c] = rank++ << kAccentBits;

  std::uint32_t accent = 0;
  for (std::size_t i = 0; i < kJet1Letters.size(); i += 2) {
    if (kJet1Letters[i] == U' ') {
      ++rank;
      accent = 0;
      ++i;
    }
    if (i == kJet1Letters.size()) break;
    keys[kJet1Letters[i]] = keys[kJet1Letters[i + 1]] = (rank << kAccentBits) + accent++;
  }
  for (const Jet1Variant& variant : kJet1Variants) keys[variant.letter] = keys[variant.same];
  return keys;
}

constexpr auto kKeys = MakeKeys();

// ASCII alone has no accents, so that one byte a character decides.
constexpr auto MakeAsciiRanks() {
  std::array<unsigned char, 0x80> ranks{};
  for (std::size_t c = 0; c < ranks.size(); ++c) {
    const std::uint32_t rank = kKeys[c] >> kAccentBits;
    if (rank > 0xFF) throw "ASCII must stand at the front";
    ranks[c] = static_cast<unsigned char>(rank);
  }
  return ranks;
}

constexpr auto kAsciiRanks = MakeAsciiRanks();

int CompareFrom(std::string_view left, std::string_view right, std::size_t start) {
  std::size_t i = start;
  std::size_t j = start;
  int accents = 0;
  while (i < left.size() && j < right.size()) {
    const std::uint32_t a = TextKey(NextCharacter(left, i));
    const std::uint32_t b = TextKey(NextCharacter(right, j));
    if (a == b) continue;
    if (a >> kAccentBits != b >> kAccentBits) return a < b ? -1 : 1;
    if (accents == 0) accents = a < b ? -1 : 1;
  }
  if (i < left.size()) return 1;
  if (j < right.size()) return -1;
  return accents;
}

}  // namespace

std::uint32_t TextKey(char32_t character) {
  if (character < kTableSize) return kKeys[character];
  return (kUnlisted + static_cast<std::uint32_t>(character)) << kAccentBits;
}

int CompareTexts(std::string_view left, std::string_view right) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  const std::size_t common = std::min(left.size(), right.size());
  std::size_t i = 0;
  // Keys that start alike are passed over eight bytes at a time.
  for (std::uint64_t a, b; i + sizeof a <= common; i += sizeof a) {
    std::memcpy(&a, left.data() + i, sizeof a);
    std::memcpy(&b, right.data() + i, sizeof b);
    if (a != b || (a & kHighBits) != 0) break;
  }
  for (; i < common; ++i) {
    const auto a = static_cast<unsigned char>(left[i]);
    const auto b = static_cast<unsigned char>(right[i]);
    if (((a | b) & 0x80) != 0) return CompareFrom(left, right, i);
    if (kAsciiRanks[a] != kAsciiRanks[b]) return kAsciiRanks[a] < kAsciiRanks[b] ? -1 : 1;
  }
  return (left.size() > right.size()) - (left.size() < right.size());
}

}  // namespace kvi
