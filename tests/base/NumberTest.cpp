#include "base/Number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "ErrorOf.h"
#include "base/Counter16.h"
#include "base/RunTimeError.h"

namespace kvi {
namespace {

TEST(Val, ReadsTheNumericPrefixAndSkipsBlanks) {
  const std::pair<const char*, double> cases[] = {
      {"", 0},           {"abc", 0},        {"12", 12},
      {"12 boxes", 12},  {" 1 2\t3 ", 123}, {"\r\n- 4 . 5", -4.5},
      {"+.5", .5},       {"5.", 5},         {".", 0},
      {"-", 0},          {"--5", 0},        {"1.2.3", 1.2},
      {"1E3", 1000},     {"1d3", 1000},     {"1E+2", 100},
      {"25D-1", 2.5},    {"1E", 1},         {"1E-", 1},
      {"1E 2", 100},     {"E5", 0},         {"&H10", 0},
      {"1,234.50", 1},   {"$5.00", 0},      {"-0", 0},
      {"1E-400", 0},     {"0E400", 0},      {"nan", 0},
      {"inf", 0},        {"0x10", 0},       {"1E-99999999999999999999", 0},
      {"\xC2\xA0 5", 0},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
  EXPECT_FALSE(std::signbit(Val("-0.00")));
  EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
}

TEST(TypedNumber, ReadsAWholeAmountOrNothing) {
  const std::pair<const char*, std::optional<double>> cases[] = {
      {"1250.5", 1250.5}, {"1,250.50", 1250.5}, {"$1250", 1250},   {" -$ 1,000,000 ", -1e6},
      {"$-5", -5},        {".5", .5},           {"12 345", 12345}, {"", {}},
      {"$", {}},          {"1,25", {}},         {"1250,000", {}},  {"1.2.3", {}},
      {"12 boxes", {}},   {"1E3", {}},          {"--5", {}},       {",250", {}}};
  for (const auto& [text, value] : cases) EXPECT_EQ(TypedNumber(text), value) << text;
}

TEST(Val, OverflowsPastTheRangeOfADouble) {
  const std::string cases[] = {"1E309", "-1E400 kg", "1E99999999999999999999", "0.001E312",
                               std::string(310, '9')};
  for (const std::string& text : cases) EXPECT_EQ(ErrorOf([&] { Val(text); }), 6) << text;
}

TEST(Str, GivesFifteenDigitsInTheGeneralForm) {
  const std::pair<double, const char*> cases[] = {
      {0, "0"},           {-0.0, "0"},
      {0.5, "0.5"},       {-14.50, "-14.5"},
      {0.1 + 0.2, "0.3"}, {1.0 / 3, "0.333333333333333"},
      {100000, "100000"}, {123456789012345, "123456789012345"},
      {1e15, "1E+15"},    {-1.5e300, "-1.5E+300"},
      {0.0001, "0.0001"}, {0.00001, "1E-05"},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(Str(value), text);
  EXPECT_EQ(ErrorOf([] { Str(std::numeric_limits<double>::infinity()); }), 6);
}

TEST(ValOf, IsValOfTheTextWhateverShorterWayItTakes) {
  EXPECT_EQ(ValOf(1.0 / 3), 0.333333333333333);
  EXPECT_EQ(ValOf(12.34), 12.34);
  std::mt19937_64 random(7);
  for (int i = 0; i < 20000; ++i) {
    const double whole = static_cast<double>(static_cast<std::int64_t>(random()) >> (i % 64));
    for (const double value : {whole, whole / std::pow(10, i % 7), std::sqrt(std::fabs(whole))})
      ASSERT_EQ(ValOf(value), Val(Str(value))) << Str(value);
  }
  EXPECT_EQ(ErrorOf([] { ValOf(std::numeric_limits<double>::infinity()); }), 6);
}

TEST(CLng, RoundsAHalfToTheEvenNumber) {
  EXPECT_EQ(CLng(2.5), 2);
  EXPECT_EQ(CLng(3.5), 4);
  EXPECT_EQ(CLng(-2.5), -2);
  EXPECT_EQ(CLng(2147483647.4), 2147483647);
  for (const double value : {2147483647.5, -2147483648.6, 1e300, std::nan("")})
    EXPECT_EQ(ErrorOf([=] { CLng(value); }), 6) << value;
}

TEST(Counter16, OverflowsPast32767) {
  Counter16 counter(32766);
  EXPECT_EQ(++counter, 32767);
  EXPECT_EQ(ErrorOf([&] { ++counter; }), 6);
  EXPECT_EQ(counter, 32767);
}

TEST(RunTimeError, BearsItsClassicDescription) {
  EXPECT_STREQ(RunTimeError(11).what(), "Division by zero");
  EXPECT_EQ(RunTimeError(3021).Description, "No current record.");
  EXPECT_EQ(RunTimeError(3061, "of the caller").Description, "of the caller");
  EXPECT_EQ(DescriptionOf(12345), "Application-defined or object-defined error");
}

}  // namespace
}  // namespace kvi
