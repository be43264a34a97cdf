#include "base/TextOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "base/Text.h"
#include "base/Utf8.h"

namespace kvi {
namespace {

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += text + " | ";
  return joined;
}

TEST(TextOrder, LettersStandInTheirOrderWithAccentsBesideThem) {
  const std::vector<std::string> ordered = {
      "",      " a",  "-a",   "1",    "10",   "2",    "a",     "A b",       "a-b",    "a1", "ab",
      "Ålpha", "b",   "cote", "coté", "côte", "côté", "COTES", "e",         "é",      "ea", "éa",
      "eb",    "Ez",  "f",    "nz",   "oa",   "Øb",   "oc",    "Strase",    "Straße", "t",  "zebra",
      "αβγ",   "άβγ", "ΒΑΣ",  "ёж",   "жук",  "Йод",  "我",    "\U0001F600"};
  std::vector<std::string> sorted = ordered;
  std::shuffle(sorted.begin(), sorted.end(), std::mt19937(7));
  std::sort(sorted.begin(), sorted.end(),
            [](const auto& left, const auto& right) { return CompareTexts(left, right) < 0; });
  EXPECT_EQ(Joined(ordered), Joined(sorted));
}

TEST(TextOrder, TextIsEqualWithoutRegardToCaseAndToNothingElse) {
  EXPECT_EQ(0, CompareTexts("BOLT m8", "bolt M8"));
  EXPECT_EQ(0, CompareTexts("ÉTRIER ŁÓDŹ", "étrier łódź"));
  EXPECT_EQ(0, CompareTexts("ΆΣΜΑΣ", "άσμας"));
  EXPECT_EQ(0, CompareTexts("ЩЁТКА Ї", "щётка ї"));
  EXPECT_NE(0, CompareTexts("etrier", "étrier"));
  EXPECT_NE(0, CompareTexts("bolt", "bolt "));
  EXPECT_NE(0, CompareTexts("ее", "её"));
  // Both cases of every letter that UCase knows are one letter here.
  for (char32_t c = 0; c < 0x20000; ++c)
    EXPECT_EQ(TextKey(c), TextKey(ToUpper(c))) << std::uint32_t{c};
}

// An index is only whole while every two texts, good UTF-8 or not, have one order.
TEST(TextOrder, TheOrderIsTotalOverAnyBytes) {
  const std::vector<std::string> pieces = {"a", "A", "b", "é", "É", "e", "z",        "1",
                                           " ", "ß", "σ", "ς", "ё", "е", "abcdefgh", "ABCDEFGH"};
  const std::vector<std::string> broken = {"\xC3", "\xFF", "\xED\xA0\x80",
                                           "\xE2", "\x82", "\U0001F600"};
  std::mt19937 chance(42);
  std::vector<std::string> texts;
  for (int i = 0; i < 160; ++i) {
    std::string text;
    for (auto length = chance() % 5; length > 0; --length) {
      const auto& from = chance() % 4 == 0 ? broken : pieces;
      text += from[chance() % from.size()];
    }
    texts.push_back(text);
  }
  for (const auto& a : texts) {
    for (const auto& b : texts) {
      const int ab = CompareTexts(a, b);
      ASSERT_EQ(-ab, CompareTexts(b, a)) << a << " and " << b;
      for (const auto& c : texts) {
        if (ab > 0 || CompareTexts(b, c) > 0) continue;
        ASSERT_LE(CompareTexts(a, c), ab == 0 ? CompareTexts(b, c) : 0)
            << a << ", " << b << ", " << c;
      }
    }
  }
}

// The keys of the whole table in one number: indexes in files out there are built on them.
TEST(TextOrder, TheTableIsPinned) {
  std::uint64_t digest = 14695981039346656037U;
  for (char32_t c = 0; c < 0x3000; ++c) digest = (digest ^ TextKey(c)) * 1099511628211U;
  EXPECT_EQ(11943904654866511951U, digest);
}

}  // namespace
}  // namespace kvi
