#pragma once

#include <string_view>

namespace kvi::jet {

// What a function of the dialect gives, as far as comparisons must know.
enum class JetResult { Unknown, Text, Number };

// One function of the dialect: its keyword in capitals and how SQLite is asked for it.
struct JetFunction {
  std::string_view keyword;
  std::string_view sqlName;
  int minArguments, maxArguments;
  JetResult result;
  bool aggregate = false;

  // A trim of blanks at one side or both.
  bool IsTrim() const { return sqlName.ends_with("trim"); }
  bool IsExtreme() const { return keyword == "MIN" || keyword == "MAX"; }
  bool ChangesCase() const { return sqlName.ends_with("Case"); }
};

// Null when the dialect has no such function.
const JetFunction* FindJetFunction(std::string_view name);

}  // namespace kvi::jet
