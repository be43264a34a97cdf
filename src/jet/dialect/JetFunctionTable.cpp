#include "jet/dialect/JetFunctionTable.h"

#include "jet/dialect/JetTokens.h"

namespace kvi::jet {
namespace {

// Names that are words of SQLite's own grammar stand in brackets.
constexpr JetFunction kFunctions[] = {
    {"TRIM", "trim", 1, 1, JetResult::Text},
    {"LTRIM", "ltrim", 1, 1, JetResult::Text},
    {"RTRIM", "rtrim", 1, 1, JetResult::Text},
    {"UCASE", "UCase", 1, 1, JetResult::Text},
    {"LCASE", "LCase", 1, 1, JetResult::Text},
    {"VAL", "Val", 1, 1, JetResult::Number},
    {"LEN", "Len", 1, 1, JetResult::Number},
    {"FORMAT", "Format", 1, 2, JetResult::Text},
    {"LEFT", "[Left]", 2, 2, JetResult::Text},
    {"RIGHT", "[Right]", 2, 2, JetResult::Text},
    {"MID", "Mid", 2, 3, JetResult::Text},
    {"CSTR", "CStr", 1, 1, JetResult::Text},
    {"CDBL", "CDbl", 1, 1, JetResult::Number},
    {"INT", "[Int]", 1, 1, JetResult::Number},
    {"ABS", "abs", 1, 1, JetResult::Number},
    {"IIF", "iif", 3, 3, JetResult::Unknown},
    {"NZ", "Nz", 1, 2, JetResult::Unknown},
    {"ISNULL", "[IsNull]", 1, 1, JetResult::Number},
    {"COUNT", "count", 1, 1, JetResult::Number, true},
    {"SUM", "sum", 1, 1, JetResult::Number, true},
    {"AVG", "avg", 1, 1, JetResult::Number, true},
    {"MIN", "min", 1, 1, JetResult::Unknown, true},
    {"MAX", "max", 1, 1, JetResult::Unknown, true},
};

}  // namespace

const JetFunction* FindJetFunction(std::string_view name) {
  for (const JetFunction& function : kFunctions) {
    if (EqualsKeyword(name, function.keyword)) return &function;
  }
  return nullptr;
}

}  // namespace kvi::jet
