#include "base/Format.h"

#include <gtest/gtest.h>

namespace kvi {
namespace {

struct Case {
  Value value;
  const char *mask, *text;
};

void ExpectFormats(std::initializer_list<Case> cases) {
  for (const auto& [value, mask, text] : cases)
    EXPECT_EQ(Format(value, mask), text) << value.Text() << " " << mask;
}

TEST(Format, RoundsHalfAwayFromZeroOnTheDecimalText) {
  ExpectFormats({
      {1.005, "###0.00", "1.01"},
      {-1.005, "###0.00", "-1.01"},
      {2.5, "0", "3"},
      {0.49999, "0", "0"},
      {999.995, "0.00", "1000.00"},
      {-0.001, "0.00", "0.00"},
      {1e-300, "0.00", "0.00"},
      {0.1 + 0.2, "0.0000000000000000", "0.3000000000000000"},
      {1.4999999999999999, "0", "2"},  // fifteen digits first
  });
}

TEST(Format, FillsNumberMasks) {
  ExpectFormats({
      {1234567.5, "###0.00", "1234567.50"},
      {-1234.5, "$#,##0.00", "-$1,234.50"},
      {0, "#####.00", ".00"},
      {-0.5, "#####.00", "-.50"},
      {0, "#.##", "."},
      {1.5, "#.##", "1.5"},
      {1.2, "0.0#", "1.2"},
      {0, "#", ""},
      {-7, "00000", "-00007"},
      {-1234567.891, "###,##0.00", "-1,234,567.89"},
      {999.999, "##,##0.00", "1,000.00"},
      {5, "$ #####0.0000", "$ 5.0000"},
      {12, "0 pcs.", "12 pcs."},
      {1e21, "0.0", "1000000000000000000000.0"},
  });
  EXPECT_EQ(Format(5.0, "each"), "each");
}

TEST(Format, FillsDateMasksInEitherCase) {
  const Date afternoon{2026, 3, 1, 14, 5, 9};
  const std::pair<const char*, const char*> cases[] = {
      {"m/d/yyyy", "3/1/2026"},
      {"yymmdd", "260301"},
      {"hhmmss", "140509"},
      {"HH:MM AM/PM", "02:05 PM"},
      {"hh:nn", "14:05"},
      {"mm:ss", "05:09"},
      {"mm/dd/yyyy hh:mm", "03/01/2026 14:05"},
      {"dddd, mmmm d, yyyy", "Sunday, March 1, 2026"},
      {"ddd d-mmm-yy", "Sun 1-Mar-26"},
      {"", "3/1/2026 2:05:09 PM"},
  };
  for (const auto& [mask, text] : cases) EXPECT_EQ(Format(afternoon, mask), text) << mask;
  EXPECT_EQ(Format(Date{2026, 3, 1}, "hh:mm AM/PM"), "12:00 AM");
  EXPECT_EQ(Format(Date{2026, 3, 1, 12, 30}, "hh:mm AM/PM"), "12:30 PM");
}

TEST(Format, TakesAValueByItsContent) {
  ExpectFormats({
      {Value(), "###0.00", ""},
      {true, "0", "-1"},
      {" +5 ", "0.00", "5.00"},
      {"1e2", "0", "100"},
      {"12 boxes", "0.00", "12 boxes"},
      {"1E999", "0.00", "1E999"},
      {"inf", "0.00", "inf"},
      {"", "0.00", ""},
      {"bolt", "mm/dd/yyyy", "bolt"},
      {"3/1/2026", "mm/dd/yyyy", "03/01/2026"},
      {Date{2026, 3, 1}, "###0.00", "3/1/2026"},
  });
}

}  // namespace
}  // namespace kvi
