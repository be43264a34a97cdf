#include "jet/sqlite/JetFunctions.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "base/Date.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "base/TextOrder.h"
#include "base/Value.h"
#include "jet/sqlite/JetLike.h"

namespace kvi::jet {
namespace {

// The arguments of one call.
struct Arguments {
  sqlite3_value** values;
  int count;

  bool IsNull(int index) const { return sqlite3_value_type(values[index]) == SQLITE_NULL; }
  double Number(int index) const {
    if (sqlite3_value_type(values[index]) == SQLITE_TEXT) return Val(Stored(index));
    return sqlite3_value_double(values[index]);
  }
  // A number too large to be one ("7D1234") counts as none: one part number may not stop a
  // statement over all of them.
  double NumberOrNone(int index) const {
    try {
      return Number(index);
    } catch (const RunTimeError&) {
      return 0;
    }
  }
  std::size_t Count(int index) const {
    const double number = Number(index);
    if (!(number >= 0 && number < 1e9)) throw RunTimeError(5);
    return static_cast<std::size_t>(number);
  }
  // The text of a stored text, without a copy.
  std::string_view Stored(int index) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values[index]));
    return {text, static_cast<std::size_t>(sqlite3_value_bytes(values[index]))};
  }
  // The general text form of any value; `buffer` holds that of a number.
  std::string_view Text(int index, std::string& buffer) const {
    const int type = sqlite3_value_type(values[index]);
    if (type == SQLITE_TEXT) return Stored(index);
    buffer = type == SQLITE_NULL ? std::string() : Str(sqlite3_value_double(values[index]));
    return buffer;
  }
  Value Held(int index) const {
    switch (sqlite3_value_type(values[index])) {
      case SQLITE_NULL:
        return {};
      case SQLITE_INTEGER:
        return Value(std::int64_t{sqlite3_value_int64(values[index])});
      case SQLITE_FLOAT:
        return sqlite3_value_double(values[index]);
      default:
        if (const auto date = FromIsoText(Stored(index))) return *date;
        return Stored(index);
    }
  }
};

void Result(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}
void Result(sqlite3_context* context, double number) {
  sqlite3_result_double(context, number);
}
void Result(sqlite3_context* context, int number) {
  sqlite3_result_int(context, number);
}

// A function over its first argument's text; Null in is Null out.
template <auto function>
void OverText(sqlite3_context* context, const Arguments& arguments) {
  std::string buffer;
  Result(context, function(arguments.Text(0, buffer)));
}

void LenOf(sqlite3_context* context, const Arguments& arguments) {
  std::string buffer;
  Result(context, static_cast<int>(Len(arguments.Text(0, buffer))));
}
void LeftOf(sqlite3_context* context, const Arguments& arguments) {
  std::string buffer;
  Result(context, Left(arguments.Text(0, buffer), arguments.Count(1)));
}
void RightOf(sqlite3_context* context, const Arguments& arguments) {
  std::string buffer;
  Result(context, Right(arguments.Text(0, buffer), arguments.Count(1)));
}
void MidOf(sqlite3_context* context, const Arguments& arguments) {
  std::string buffer;
  const std::size_t start = arguments.Count(1);
  if (start == 0) throw RunTimeError(5);
  Result(context, Mid(arguments.Text(0, buffer), start,
                      arguments.count == 3 ? arguments.Count(2) : std::string_view::npos));
}
void ValOf(sqlite3_context* context, const Arguments& arguments) {
  Result(context, arguments.NumberOrNone(0));
}
void CDblOf(sqlite3_context* context, const Arguments& arguments) {
  Result(context, arguments.Number(0));
}
// What stands beside a date in a comparison, in the form in which dates are stored.
void DateOf(sqlite3_context* context, const Arguments& arguments) {
  const Value value = arguments.Held(0);
  const auto date = value.IsDate()   ? value.AsDate()
                    : value.IsText() ? CDate(value.AsText())
                                     : FromDayCount(value.Number());
  if (!date) throw RunTimeError(3464);
  Result(context, IsoText(*date));
}
void IntOf(sqlite3_context* context, const Arguments& arguments) {
  Result(context, std::floor(arguments.Number(0)));
}
void TextOf(sqlite3_context* context, const Arguments& arguments) {
  std::string buffer;
  Result(context, arguments.Text(0, buffer));
}
void FormatOf(sqlite3_context* context, const Arguments& arguments) {
  std::string buffer;
  const auto mask = arguments.count == 2 ? arguments.Text(1, buffer) : std::string_view();
  const Value value = arguments.Held(0);
  Result(context, value.IsDate() ? Format(value.AsDate(), mask) : Format(value, mask));
}
void IsNullOf(sqlite3_context* context, const Arguments& arguments) {
  Result(context, arguments.IsNull(0) ? -1 : 0);
}
void NzOf(sqlite3_context* context, const Arguments& arguments) {
  if (!arguments.IsNull(0))
    sqlite3_result_value(context, arguments.values[0]);
  else if (arguments.count == 2)
    sqlite3_result_value(context, arguments.values[1]);
  else
    Result(context, std::string_view());
}
void LikeOf(sqlite3_context* context, const Arguments& arguments) {
  std::string text;
  std::string pattern;
  Result(context, MatchesLike(arguments.Text(0, text), arguments.Text(1, pattern)) ? 1 : 0);
}

enum class OnNull { IsNull, IsCalled };

// No failure may pass through SQLite itself.
template <void (*function)(sqlite3_context*, const Arguments&), OnNull onNull>
void Call(sqlite3_context* context, int count, sqlite3_value** values) {
  const Arguments arguments{values, count};
  if (onNull == OnNull::IsNull) {
    for (int i = 0; i < count; ++i) {
      if (arguments.IsNull(i)) return sqlite3_result_null(context);
    }
  }
  try {
    function(context, arguments);
  } catch (const RunTimeError& failure) {
    const std::string text =
        std::string(kFunctionFailed) + std::to_string(failure.Number) + " " + failure.Description;
    sqlite3_result_error(context, text.data(), static_cast<int>(text.size()));
  } catch (const std::exception& failure) {
    sqlite3_result_error(context, failure.what(), -1);
  }
}

struct Function {
  const char* name;
  int minArguments, maxArguments;
  void (*call)(sqlite3_context*, int, sqlite3_value**);
};

constexpr auto kIsNull = OnNull::IsNull;
constexpr auto kIsCalled = OnNull::IsCalled;
constexpr Function kFunctions[] = {
    {"UCase", 1, 1, Call<OverText<UCase>, kIsNull>},
    {"LCase", 1, 1, Call<OverText<LCase>, kIsNull>},
    {"Len", 1, 1, Call<LenOf, kIsNull>},
    {"Left", 2, 2, Call<LeftOf, kIsNull>},
    {"Right", 2, 2, Call<RightOf, kIsNull>},
    {"Mid", 2, 3, Call<MidOf, kIsNull>},
    {"Val", 1, 1, Call<ValOf, kIsNull>},
    {"CDbl", 1, 1, Call<CDblOf, kIsNull>},
    {"Int", 1, 1, Call<IntOf, kIsNull>},
    {"CStr", 1, 1, Call<TextOf, kIsNull>},
    {"Format", 1, 2, Call<FormatOf, kIsCalled>},
    {"IsNull", 1, 1, Call<IsNullOf, kIsCalled>},
    {"Nz", 1, 2, Call<NzOf, kIsCalled>},
    {"jet_text", 1, 1, Call<TextOf, kIsCalled>},
    {"jet_date", 1, 1, Call<DateOf, kIsNull>},
    {"jet_like", 2, 2, Call<LikeOf, kIsNull>},
};

int Collate(void*, int leftBytes, const void* left, int rightBytes, const void* right) {
  return CompareTexts({static_cast<const char*>(left), static_cast<std::size_t>(leftBytes)},
                      {static_cast<const char*>(right), static_cast<std::size_t>(rightBytes)});
}

void Check(int code, sqlite3* connection) {
  if (code != SQLITE_OK) throw RunTimeError(3000, sqlite3_errmsg(connection));
}

}  // namespace

void RegisterJetFunctions(sqlite3* connection) {
  // Deterministic, so that an index may stand on an expression.
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  for (const Function& function : kFunctions) {
    for (int count = function.minArguments; count <= function.maxArguments; ++count) {
      Check(sqlite3_create_function_v2(connection, function.name, count, kFlags, nullptr,
                                       function.call, nullptr, nullptr, nullptr),
            connection);
    }
  }
  Check(sqlite3_create_collation_v2(connection, "JET1", SQLITE_UTF8, nullptr, Collate, nullptr),
        connection);
}

}  // namespace kvi::jet
