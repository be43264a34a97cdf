#include "jet/postgres/ServerCharacters.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <string_view>
#include <vector>

#include "base/TextOrder.h"
#include "base/Utf8.h"

namespace kvi::jet {
namespace {

constexpr int kAccentBits = 8;
// Characters whose rank is not below this have no place of their own in the order.
constexpr std::uint32_t kUnlisted = 0x1000;
// No character from here on is listed.
constexpr char32_t kTableEnd = 0x2000;
// Above the blank that stands between letters and accents, and above what a pattern may mean.
constexpr char32_t kFirstRank = 0x21, kFirstFold = 0x100, kNoAccent = 0x100, kMostAccents = 0xFF;

struct Pair {
  char32_t from, to;
};
using Pairs = std::vector<Pair>;

// Codes whose order is that of TextKey above `shift` bits. The listed characters have the first
// ones; the others stay what they are as soon as these leave room.
Pairs Codes(int shift, char32_t first) {
  std::map<std::uint32_t, char32_t> codes;
  const auto isListed = [](char32_t c) { return TextKey(c) >> kAccentBits < kUnlisted; };
  for (char32_t c = 1; c < kTableEnd; ++c)
    if (isListed(c)) codes[TextKey(c) >> shift] = 0;
  char32_t next = first;
  for (auto& [key, code] : codes) code = next++;
  Pairs pairs;
  for (char32_t c = 1; c < kTableEnd; ++c) {
    const char32_t code = isListed(c) ? codes[TextKey(c) >> shift] : std::max(next, c);
    if (!isListed(c)) next = code + 1;
    if (code != c) pairs.push_back({c, code});
  }
  return pairs;
}

// The accents alone. Other characters that stand where accents are written have none, and ASCII is
// told of only because it is common.
Pairs Accents() {
  Pairs pairs;
  for (char32_t c = 1; c < kTableEnd; ++c) {
    const std::uint32_t accent = TextKey(c) & kMostAccents;
    const bool isListed = TextKey(c) >> kAccentBits < kUnlisted;
    if (isListed && accent > 0)
      pairs.push_back({c, kNoAccent + accent});
    else if (c < 0x80 || (c >= kNoAccent && c <= kNoAccent + kMostAccents))
      pairs.push_back({c, kNoAccent});
  }
  return pairs;
}

Pairs Cases(char32_t (*map)(char32_t)) {
  Pairs pairs;
  for (char32_t c = 0x80; c < kTableEnd; ++c)
    if (map(c) != c) pairs.push_back({c, map(c)});
  return pairs;
}

Pairs AsciiOf(const Pairs& pairs) {
  Pairs ascii;
  std::ranges::copy_if(pairs, std::back_inserter(ascii), [](Pair p) { return p.from < 0x80; });
  return ascii;
}

// How soon a character should be met by a search from the front.
int Rareness(char32_t c) {
  if (c >= U'a' && c <= U'z') return 0;
  if ((c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9') || c == U' ') return 1;
  return c < 0x80 ? 2 : 3;
}

void AppendQuoted(std::string& text, char32_t character) {
  if (character == U'\'') text += '\'';
  AppendCharacter(text, character);
}

// The first argument with these characters in the place of others.
std::string Translate(std::string_view what, Pairs pairs) {
  std::ranges::stable_sort(pairs, {}, [](Pair pair) { return Rareness(pair.from); });
  std::string from, to;
  for (const Pair pair : pairs) {
    AppendQuoted(from, pair.from);
    AppendQuoted(to, pair.to);
  }
  return "translate(" + std::string(what) + ",'" + from + "','" + to + "')";
}

constexpr std::string_view kText = "$1 COLLATE \"C\"";

// A function over a text: `ascii` where it has nothing else, and `wide`, which stays a function of
// its own, so that its lists are not read with each statement.
std::string OverText(const std::string& name, const std::string& ascii, const std::string& wide) {
  return "CREATE FUNCTION kvi." + name +
         "_wide(text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $kvi$ BEGIN "
         "RETURN " +
         wide + "; END $kvi$;\nCREATE FUNCTION kvi." + name +
         "(text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $kvi$ SELECT CASE WHEN "
         "octet_length($1) = length($1) THEN " +
         ascii + " ELSE kvi." + name + "_wide($1) END $kvi$;\n";
}

}  // namespace

std::string CharacterFunctions() {
  const Pairs ranks = Codes(kAccentBits, kFirstRank), folds = Codes(0, kFirstFold);
  std::string none, accented = "[^";
  AppendCharacter(none, kNoAccent);
  AppendCharacter(accented, kNoAccent + 1);
  accented += '-';
  AppendCharacter(accented, kNoAccent + kMostAccents);
  accented += ']';
  // Trailing letters without an accent say nothing, and without any nothing stands behind.
  const std::string accents = "rtrim(' ' || rtrim(regexp_replace(" + Translate(kText, Accents()) +
                              ",'" + accented + "','" + none + "','g'),'" + none + "'))";
  return OverText("key", Translate(kText, AsciiOf(ranks)),
                  Translate(kText, ranks) + " || " + accents) +
         OverText("fold", Translate(kText, AsciiOf(folds)), Translate(kText, folds)) +
         OverText("ucase", "upper($1 COLLATE \"C\")",
                  Translate("upper($1 COLLATE \"C\")", Cases(ToUpper))) +
         OverText("lcase", "lower($1 COLLATE \"C\")",
                  Translate("lower($1 COLLATE \"C\")", Cases(ToLower)));
}

}  // namespace kvi::jet
