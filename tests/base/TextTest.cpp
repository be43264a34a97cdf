#include "base/Text.h"

#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "base/Utf8.h"

namespace kvi {
namespace {

TEST(Text, CountsAndCutsByCharacter) {
  EXPECT_EQ(Len("Größe €😀"), 8u);
  EXPECT_EQ(Left("Größe", 4), "Größ");
  EXPECT_EQ(Right("Größe", 3), "öße");
  EXPECT_EQ(Right("ab", 9), "ab");
  EXPECT_EQ(Right("ab", 0), "");
  EXPECT_EQ(Mid("Größe", 3, 2), "öß");
  EXPECT_EQ(Mid("Größe", 4), "ße");
  EXPECT_EQ(Mid("abc", 9, 2), "");
  EXPECT_THROW(Mid("abc", 0), RunTimeError);
}

TEST(Text, TrimsBlanksOnly) {
  EXPECT_EQ(Trim("  \ta b\n  "), "\ta b\n");
  EXPECT_EQ(LTrim("  a "), "a ");
  EXPECT_EQ(RTrim("  a "), "  a");
  EXPECT_EQ(Trim("   "), "");
}

TEST(Text, ReplacesEveryOccurrenceOnce) {
  EXPECT_EQ(Replace("a'b''c", "'", ""), "abc");
  EXPECT_EQ(Replace("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
}

TEST(Case, CoversLatinGreekAndCyrillic) {
  EXPECT_EQ(UCase("crème brûlée, ÿ łódź žluť ơư ậ"), "CRÈME BRÛLÉE, Ÿ ŁÓDŹ ŽLUŤ ƠƯ Ậ");
  EXPECT_EQ(UCase("άλφα ός ϊώ"), "ΆΛΦΑ ΌΣ ΪΏ");
  EXPECT_EQ(UCase("ёлка їжак ґанок џеп ұзын"), "ЁЛКА ЇЖАК ҐАНОК ЏЕП ҰЗЫН");
  EXPECT_EQ(LCase("ÀÉÞ ŐŰŸ ΆΣ ЁЪҐ"), "àéþ őűÿ άσ ёъґ");
  EXPECT_TRUE(EqualsNoCase("Θέμις", "ΘΈΜΙΣ"));
  EXPECT_FALSE(EqualsNoCase("part", "parts"));
  EXPECT_FALSE(EqualsNoCase("e", "é"));
}

TEST(Case, LeavesAloneWhatHasNoPartner) {
  const std::string text = "×÷ßıİ 漢字 😀 1@[`{";
  EXPECT_EQ(UCase(text), text);
  EXPECT_EQ(LCase(text), text);
}

TEST(Case, EveryPairGoesBothWays) {
  for (char32_t c = 0; c < 0x2100; ++c) {
    const char32_t lower = ToLower(c), upper = ToUpper(c);
    EXPECT_TRUE(lower == c || ToUpper(lower) == c) << std::hex << unsigned{c};
    // The final sigma alone comes back as another letter.
    EXPECT_TRUE(upper == c || ToLower(upper) == c || c == U'ς') << std::hex << unsigned{c};
  }
}

TEST(Utf8, BadBytesStayDistinctAndSurviveEveryRoutine) {
  // A Latin-1 byte, a lone continuation, an overlong form, a surrogate, past the last character,
  // and a sequence that the end cuts off.
  const std::string text = "a\xE9z\x80\xC0\xAF\xED\xA0\x80\xF4\x90\x80\x80\xE2\x82";
  EXPECT_EQ(Len(text), 15u);
  EXPECT_EQ(LCase(text), text);
  EXPECT_EQ(UCase(text), "A\xE9Z" + text.substr(3));
  EXPECT_EQ(Mid(text, 2, 1), "\xE9");
  EXPECT_EQ(Right(text, 1), "\x82");
  EXPECT_FALSE(EqualsNoCase("\xE9", "\xE8"));

  std::size_t position = 1;
  EXPECT_EQ(NextCharacter(text, position), char32_t{0xDCE9});
  EXPECT_EQ(position, 2u);
}

TEST(Utf8, EveryCharacterComesBack) {
  for (const char32_t character :
       {0x7Fu, 0x80u, 0x7FFu, 0x800u, 0xD7FFu, 0xE000u, 0xFFFFu, 0x10000u, 0x10FFFFu}) {
    std::string text;
    AppendCharacter(text, character);
    std::size_t position = 0;
    EXPECT_EQ(NextCharacter(text, position), character);
    EXPECT_EQ(position, text.size());
  }
}

}  // namespace
}  // namespace kvi
