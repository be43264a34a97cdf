#include "base/Date.h"

#include <gtest/gtest.h>

#include "base/RunTimeError.h"

namespace kvi {
namespace {

TEST(Date, KnowsTheCalendar) {
  EXPECT_TRUE(IsValid({2024, 2, 29}));
  EXPECT_TRUE(IsValid({2000, 2, 29, 23, 59, 59}));
  for (const Date& date : {Date{2026, 2, 29}, Date{1900, 2, 29}, Date{2026, 4, 31},
                           Date{2026, 0, 1}, Date{2026, 13, 1}, Date{99, 1, 1}, Date{10000, 1, 1},
                           Date{2026, 1, 1, 24}, Date{2026, 1, 1, 0, 60}, Date{2026, -1, -1}})
    EXPECT_FALSE(IsValid(date)) << date.year << " " << date.month << " " << date.day;
}

TEST(Date, CountsDaysFromTheClassicDayZero) {
  EXPECT_EQ(DayNumber(Date{}), 0);
  EXPECT_EQ(DayNumber({1900, 1, 1}), 2);
  EXPECT_EQ(DayNumber({1900, 3, 1}), 61);
  EXPECT_EQ(DayNumber({2026, 3, 1}), 46082);
  EXPECT_EQ(DayNumber({1899, 12, 29}), -1);
  EXPECT_EQ(AddDays({2024, 2, 28, 14, 5}, 2), (Date{2024, 3, 1, 14, 5}));
  EXPECT_EQ(AddDays({2026, 1, 1}, -1), (Date{2025, 12, 31}));
  for (long day = -657434; day <= 2958465; day += 997)
    ASSERT_EQ(DayNumber(AddDays(Date{}, day)), day);
  EXPECT_THROW(AddDays({9999, 12, 31}, 1), RunTimeError);
  EXPECT_THROW(AddDays({100, 1, 1}, -1), RunTimeError);
  EXPECT_EQ(Weekday({2026, 3, 1}), 1);
  EXPECT_EQ(Weekday({2026, 3, 7}), 7);
  EXPECT_EQ(Weekday(Date{}), 7);
}

TEST(Date, IsKeptAsIsoText) {
  EXPECT_EQ(IsoText({2026, 3, 1}), "2026-03-01");
  EXPECT_EQ(IsoText({2026, 3, 1, 14, 5}), "2026-03-01 14:05:00");
  EXPECT_EQ(FromIsoText("2026-03-01 14:05:09"), (Date{2026, 3, 1, 14, 5, 9}));
  EXPECT_EQ(FromIsoText("0100-01-01"), (Date{100, 1, 1}));
  for (const char* text : {"", "2026-3-1", "2026-02-30", "2026-03-01x", "2026-03-01 14:05",
                           "2026/03/01", "2026-03-01 25:00:00", "20a6-03-01"})
    EXPECT_FALSE(FromIsoText(text)) << text;
}

TEST(CDate, ReadsWhatAPersonTypes) {
  const std::pair<const char*, Date> cases[] = {
      {"3/1/2026", {2026, 3, 1}},
      {" 03/01/2026 ", {2026, 3, 1}},
      {"3/1/29", {2029, 3, 1}},
      {"3/1/30", {1930, 3, 1}},
      {"3/1/0", {2000, 3, 1}},
      {"2026-3-1 7:05", {2026, 3, 1, 7, 5}},
      {"3/1/2026  2:05:09PM", {2026, 3, 1, 14, 5, 9}},
      {"3/1/2026 12:00 AM", {2026, 3, 1}},
      {"3/1/2026 12:30 PM", {2026, 3, 1, 12, 30}},
      {"13/1/2026", {2026, 1, 13}},
      {"1-mar-26 7:05 am", {2026, 3, 1, 7, 5}},
      {"March 1, 2026", {2026, 3, 1}},
      {"1 march 2026", {2026, 3, 1}},
      {"2026 Dec 31", {2026, 12, 31}},
  };
  for (const auto& [text, date] : cases) EXPECT_EQ(CDate(text), date) << text;
  for (const char* text : {"3/1", "1-Mar", "March 1"}) {
    EXPECT_EQ(CDate(text, 2026), (Date{2026, 3, 1})) << text;
    EXPECT_FALSE(CDate(text)) << text;
  }
}

TEST(CDate, GivesNothingForWhatIsNoDate) {
  for (const char* text : {"", "/", "today", "3/1/", "2/29/2026", "Mar/1-2026", "0/1/2026"})
    EXPECT_FALSE(CDate(text)) << text;
  for (const char* text : {"3/1/20260", "003/1/2026", "3/1-2026", "3.1.2026", "3/1/2026x", "46082"})
    EXPECT_FALSE(CDate(text)) << text;
  for (const char* time : {"x", "7", "25:00", "7:60", "7:05:", "13:00 PM", "0:30 AM"})
    EXPECT_FALSE(CDate(std::string("3/1/2026 ") + time)) << time;
}

TEST(Date, GeneralTextHasNoPadding) {
  EXPECT_EQ(Str(Date{2026, 3, 1}), "3/1/2026");
  EXPECT_EQ(Str(Date{2026, 12, 31, 14, 5}), "12/31/2026 2:05:00 PM");
  EXPECT_EQ(Str(Date{2026, 12, 31, 0, 5, 9}), "12/31/2026 12:05:09 AM");
  for (const Date& date : {Date{2026, 3, 1}, Date{1999, 12, 31, 12, 0, 1}, Date{100, 1, 1}})
    EXPECT_EQ(CDate(Str(date)), date);
}

}  // namespace
}  // namespace kvi
