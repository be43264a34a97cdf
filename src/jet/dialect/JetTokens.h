#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvi::jet {

// One token of a Jet statement, as a piece of its text. `text` is what stands between the marks
// of a bracketed name, a text or a date, and the token itself for the rest.
struct JetToken {
  enum class Kind { Name, Bracketed, Text, Number, Date, Symbol, End };

  Kind kind = Kind::End;
  std::string_view text;
  std::size_t start = 0;

  // Whether it is this keyword (given in capitals); a bracketed name never is one.
  bool Is(std::string_view keyword) const;
  bool IsSymbol(std::string_view symbol) const { return kind == Kind::Symbol && text == symbol; }
  // A name that may stand for a field or table: bracketed, or no reserved word. DESC, NAME, DATE
  // and the like are fields wherever a field can stand.
  bool IsFreeName() const;
  // A text literal's content, a doubled mark read as one.
  std::string Content() const;
};

// Reads the tokens of a statement, one ahead. Raises 3075 for an open quote, bracket or date, a
// comment and any character that no statement holds.
class JetTokens {
 public:
  explicit JetTokens(std::string_view sql);

  const JetToken& Peek() const { return next_; }
  JetToken Take();
  // Takes the next token if it is this keyword or symbol.
  bool TakeIf(std::string_view keyword);
  bool TakeSymbolIf(std::string_view symbol);
  void Expect(std::string_view keyword);
  void ExpectSymbol(std::string_view symbol);

  // Raises 3075 with the text of the statement.
  [[noreturn]] void Fail(std::string_view what = "Syntax error (missing operator)") const;

 private:
  JetToken Read();
  JetToken ReadMarked(JetToken::Kind kind, char closing, bool doubles);
  JetToken ReadNumber();
  JetToken ReadSymbol();

  std::string_view sql_;
  std::size_t position_ = 0;
  JetToken next_;
};

bool EqualsKeyword(std::string_view text, std::string_view keyword);

}  // namespace kvi::jet
