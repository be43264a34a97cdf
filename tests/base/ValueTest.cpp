#include "base/Value.h"

#include <gtest/gtest.h>

#include "ErrorOf.h"

namespace kvi {
namespace {

TEST(Value, ReadsAsTextNumberAndBoolean) {
  const struct {
    Value value;
    const char* text;
    double number;
    bool boolean;
  } cases[] = {
      {Value(), "", 0, false},
      {true, "True", -1, true},
      {7, "7", 7, true},
      {std::int64_t{9007199254740993}, "9007199254740993", 9007199254740992.0, true},
      {14.50, "14.5", 14.5, true},
      {-0.0, "0", 0, false},
      {"12 boxes", "12 boxes", 12, true},
      {"tRUE", "tRUE", 0, true},
      {"", "", 0, false},
      {Date{2026, 3, 1, 12}, "3/1/2026 12:00:00 PM", 46082.5, true},
  };
  for (const auto& [value, text, number, boolean] : cases) {
    EXPECT_EQ(value.Text(), text);
    EXPECT_EQ(value.Number(), number) << text;
    EXPECT_EQ(value.Boolean(), boolean) << text;
  }
}

TEST(Value, ValOfGoesThroughTheText) {
  EXPECT_EQ(ValOf(Value()), 0);
  EXPECT_EQ(ValOf(Value(true)), 0) << "\"True\" is no number";
  EXPECT_EQ(ValOf(Value("7 mm")), 7);
  EXPECT_EQ(ValOf(Value(2.0 / 3)), 0.666666666666667);
}

TEST(Value, RefusesAnotherKindWithATypeMismatch) {
  EXPECT_EQ(Value("a").AsText(), "a");
  EXPECT_EQ(Value(true).AsNumber(), -1);
  EXPECT_EQ(Value(3).AsWhole(), 3);
  EXPECT_EQ(ErrorOf([] { Value(3).AsText(); }), 13);
  EXPECT_EQ(ErrorOf([] { Value("3").AsNumber(); }), 13);
  EXPECT_EQ(ErrorOf([] { Value().AsNumber(); }), 13);
  EXPECT_EQ(ErrorOf([] { Value(3.0).AsWhole(); }), 13);
  EXPECT_EQ(ErrorOf([] { Value("3/1/2026").AsDate(); }), 13);
  EXPECT_EQ(ErrorOf([] { Value("1E999").Number(); }), 6);
}

}  // namespace
}  // namespace kvi
