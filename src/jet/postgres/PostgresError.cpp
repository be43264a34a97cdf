#include "jet/postgres/PostgresError.h"

#include <string>
#include <string_view>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "jet/sqlite/JetFunctions.h"

namespace kvi::jet {
namespace {

struct StateRule {
  std::string_view state;  // how it begins
  int number;
};

constexpr StateRule kRules[] = {
    {"23505", 3022}, {"23502", 3058}, {"23514", 3163}, {"22001", 3163}, {"42P01", 3078},
    {"42703", 3061}, {"42702", 3079}, {"42883", 3085}, {"42701", 3191}, {"42804", 3421},
    {"22P02", 3421}, {"22003", 3421}, {"22007", 3421}, {"22008", 3421}, {"22021", 3421},
    {"42601", 3075}, {"53100", 3183}, {"53200", 7},    {"25006", 3027}, {"42501", 3027},
    {"53300", 3151}, {"28", 3151},    {"XX001", 3343}, {"XX002", 3343}, {"42", 3075},
};

// A function of ours that refused its arguments: its number and sentence are in the message.
[[noreturn]] void RaiseFunctionError(std::string_view message) {
  message.remove_prefix(std::min(message.size(), kFunctionFailed.size()));
  const std::size_t blank = message.find(' ');
  throw RunTimeError(static_cast<int>(Val(message.substr(0, blank))),
                     blank == message.npos ? "" : std::string(message.substr(blank + 1)));
}

// The name that the message has between its marks.
std::string NameIn(const std::string& message) {
  const std::size_t open = message.find('"'), close = message.find('"', open + 1);
  if (open == message.npos || close == message.npos) return message;
  return message.substr(open + 1, close - open - 1);
}

}  // namespace

void RaiseServerError(const ServerFailure& failure) {
  if (failure.IsLock()) throw RunTimeError(3260);
  if (failure.IsLine())
    throw RunTimeError(3151, DescriptionOf(3151) + " (" + failure.Message + ")");
  if (failure.State == "KVI01") RaiseFunctionError(failure.Message);
  for (const StateRule& rule : kRules) {
    if (!failure.State.starts_with(rule.state)) continue;
    switch (rule.number) {
      case 3061:
      case 3078:
      case 3079:
      case 3085:
      case 3191:
        throw RunTimeError(rule.number,
                           DescriptionOf(rule.number) + " (" + NameIn(failure.Message) + ")");
      case 3075:
      case 3343:
      case 3151:
        throw RunTimeError(rule.number, DescriptionOf(rule.number) + " (" + failure.Message + ")");
      default:
        throw RunTimeError(rule.number);
    }
  }
  throw RunTimeError(3043, DescriptionOf(3043) + " (" + failure.Message + ")");
}

}  // namespace kvi::jet
