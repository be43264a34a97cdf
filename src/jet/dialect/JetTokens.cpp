#include "jet/dialect/JetTokens.h"

#include <algorithm>

#include "base/RunTimeError.h"

namespace kvi::jet {
namespace {

constexpr std::string_view kReserved[] = {
    "ALL",   "AND",    "AS",    "BETWEEN", "BY",   "DELETE", "DISTINCT", "DISTINCTROW", "EXISTS",
    "FALSE", "FROM",   "GROUP", "HAVING",  "IN",   "INNER",  "INSERT",   "INTO",        "IS",
    "JOIN",  "LEFT",   "LIKE",  "NOT",     "NULL", "ON",     "OR",       "ORDER",       "OUTER",
    "RIGHT", "SELECT", "SET",   "TOP",     "TRUE", "UNION",  "UPDATE",   "VALUES",      "WHERE"};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Any byte of a letter beyond ASCII counts as a letter.
bool IsNameStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsNamePart(char c) {
  return IsNameStart(c) || IsDigit(c) || c == '$';
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

char Capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

}  // namespace

bool EqualsKeyword(std::string_view text, std::string_view keyword) {
  return text.size() == keyword.size() &&
         std::equal(text.begin(), text.end(), keyword.begin(),
                    [](char left, char right) { return Capital(left) == right; });
}

bool JetToken::Is(std::string_view keyword) const {
  return kind == Kind::Name && EqualsKeyword(text, keyword);
}

bool JetToken::IsFreeName() const {
  if (kind == Kind::Bracketed) return true;
  if (kind != Kind::Name) return false;
  return std::none_of(std::begin(kReserved), std::end(kReserved),
                      [this](std::string_view word) { return EqualsKeyword(text, word); });
}

std::string JetToken::Content() const {
  std::string content(text);
  const std::size_t first = content.find_first_of("'\"");
  if (first == std::string::npos) return content;
  // The literal's own mark stands in its text only doubled; the other mark stands for itself.
  const char mark = *(text.data() - 1);
  std::size_t kept = first;
  for (std::size_t i = first; i < content.size(); ++i) {
    content[kept++] = content[i];
    if (content[i] == mark) ++i;
  }
  content.resize(kept);
  return content;
}

JetTokens::JetTokens(std::string_view sql) : sql_(sql) {
  next_ = Read();
}

JetToken JetTokens::Take() {
  const JetToken taken = next_;
  next_ = Read();
  return taken;
}

bool JetTokens::TakeIf(std::string_view keyword) {
  const bool is = next_.Is(keyword);
  if (is) next_ = Read();
  return is;
}

bool JetTokens::TakeSymbolIf(std::string_view symbol) {
  const bool is = next_.IsSymbol(symbol);
  if (is) next_ = Read();
  return is;
}

void JetTokens::Expect(std::string_view keyword) {
  if (!TakeIf(keyword)) Fail();
}

void JetTokens::ExpectSymbol(std::string_view symbol) {
  if (!TakeSymbolIf(symbol)) Fail();
}

void JetTokens::Fail(std::string_view what) const {
  throw RunTimeError(3075, std::string(what) + " in query expression '" + std::string(sql_) + "'.");
}

JetToken JetTokens::Read() {
  while (position_ < sql_.size() && IsBlank(sql_[position_])) ++position_;
  if (position_ == sql_.size()) return {JetToken::Kind::End, {}, position_};

  const char c = sql_[position_];
  if (IsNameStart(c)) {
    const std::size_t start = position_;
    while (position_ < sql_.size() && IsNamePart(sql_[position_])) ++position_;
    return {JetToken::Kind::Name, sql_.substr(start, position_ - start), start};
  }
  if (IsDigit(c) || (c == '.' && position_ + 1 < sql_.size() && IsDigit(sql_[position_ + 1])))
    return ReadNumber();
  switch (c) {
    case '\'':
    case '"':
      return ReadMarked(JetToken::Kind::Text, c, true);
    case '[':
      return ReadMarked(JetToken::Kind::Bracketed, ']', false);
    case '#':
      return ReadMarked(JetToken::Kind::Date, '#', false);
    default:
      return ReadSymbol();
  }
}

JetToken JetTokens::ReadMarked(JetToken::Kind kind, char closing, bool doubles) {
  const std::size_t start = position_;
  std::size_t end = start;
  do {
    end = sql_.find(closing, end + 1);
    if (end == std::string_view::npos) {
      Fail(kind == JetToken::Kind::Date ? "Syntax error in date" : "Syntax error in string");
    }
    if (!doubles || end + 1 == sql_.size() || sql_[end + 1] != closing) break;
    ++end;
  } while (true);
  position_ = end + 1;
  const auto inner = sql_.substr(start + 1, end - start - 1);
  if (kind == JetToken::Kind::Bracketed &&
      (inner.empty() || inner.find('[') != inner.npos || inner.find('\0') != inner.npos))
    Fail("Invalid bracketing of name");
  return {kind, inner, start};
}

JetToken JetTokens::ReadNumber() {
  const std::size_t start = position_;
  const auto digits = [this] {
    while (position_ < sql_.size() && IsDigit(sql_[position_])) ++position_;
  };
  digits();
  if (position_ < sql_.size() && sql_[position_] == '.') {
    ++position_;
    digits();
  }
  if (position_ < sql_.size() && Capital(sql_[position_]) == 'E') {
    std::size_t exponent = position_ + 1;
    if (exponent < sql_.size() && (sql_[exponent] == '+' || sql_[exponent] == '-')) ++exponent;
    if (exponent < sql_.size() && IsDigit(sql_[exponent])) {
      position_ = exponent;
      digits();
    }
  }
  return {JetToken::Kind::Number, sql_.substr(start, position_ - start), start};
}

JetToken JetTokens::ReadSymbol() {
  constexpr std::string_view kPairs[] = {"<>", "<=", ">="};
  constexpr std::string_view kSingles = "=<>(),.;*+-/&";
  const std::size_t start = position_;
  const auto pair = sql_.substr(start, 2);
  // Two minus signs would open a comment for the engine behind.
  if (pair == "--" || kSingles.find(sql_[start]) == kSingles.npos) Fail("Syntax error");
  const bool isPair = std::find(std::begin(kPairs), std::end(kPairs), pair) != std::end(kPairs);
  position_ += isPair ? 2 : 1;
  return {JetToken::Kind::Symbol, sql_.substr(start, position_ - start), start};
}

}  // namespace kvi::jet
