#include "jet/sqlite/JetLike.h"

#include <gtest/gtest.h>

#include "base/RunTimeError.h"

namespace kvi::jet {
namespace {

TEST(JetLike, ThePatternFitsTheWholeTextWithoutRegardToCase) {
  const struct {
    const char* text;
    const char* pattern;
    bool fits;
  } cases[] = {
      {"Bolt M8", "bolt*", true}, {"Bolt M8", "bolt", false},
      {"Bolt M8", "*t*8*", true}, {"", "*", true},
      {"", "?", false},           {"aaaaab", "*a*a*b", true},
      {"M8", "M#", true},         {"MX", "M#", false},
      {"M", "M?", false},         {"Étrier", "e*", false},
      {"Étrier", "?trier", true}, {"Щит", "щ??", true},
      {"cat", "[a-d]at", true},   {"CAT", "[!a-b]at", true},
      {"bat", "[!a-b]at", false}, {"5-a", "#[-]a", true},
      {"a-b", "a[-x]b", true},    {"axb", "a_b", false},
      {"2x3", "2[*]3", false},    {"2*3", "2[*]3", true},
      {"500", "50%", false},      {"a]b", "a]b", true},
      {"ab", "a[]b", true},       {"a!b", "a[!]b", true},
      {"axb", "a[!]b", false},    {"\xFF!", "?!", true},
  };
  for (const auto& row : cases)
    EXPECT_EQ(row.fits, MatchesLike(row.text, row.pattern)) << row.text << " like " << row.pattern;
  EXPECT_THROW(MatchesLike("a[b", "a[b"), RunTimeError);
}

TEST(JetLike, ManyStarsDoNotMakeItSlow) {
  const std::string text(3000, 'a');
  std::string pattern;
  for (int i = 0; i < 200; ++i) pattern += "*a";
  EXPECT_TRUE(MatchesLike(text, pattern));
  EXPECT_FALSE(MatchesLike(text, pattern + "*b"));
}

}  // namespace
}  // namespace kvi::jet
