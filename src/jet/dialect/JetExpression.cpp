#include <charconv>
#include <cmath>

#include "base/RunTimeError.h"
#include "jet/dialect/JetWriter.h"

namespace kvi::jet {
namespace {

constexpr std::string_view kCollate = " COLLATE JET1";

// A whole number stays one, however it is written: joined to a text it has no decimals.
Value NumberOf(std::string_view digits) {
  std::int64_t whole = 0;
  const char* end = digits.data() + digits.size();
  if (std::from_chars(digits.data(), end, whole).ptr == end) return whole;
  double number = 0;
  if (std::from_chars(digits.data(), end, number).ec != std::errc()) throw RunTimeError(6);
  if (number == std::floor(number) && std::fabs(number) < 1e15)
    return static_cast<std::int64_t>(number);
  return number;
}

}  // namespace

JetWriter::JetWriter(std::string_view sql, int firstParameter, const ShapeOfTable& shapeOf)
    : tokens_(sql), shapeOf_(shapeOf), nextParameter_(firstParameter) {
  out_.reserve(2 * sql.size() + 64);
}

void JetWriter::Collate() {
  out_ += kCollate;
}

JetWriter::Operand JetWriter::Or() {
  if (++depth_ > kMaxDepth) tokens_.Fail("Expression too complex");
  Operand left = And();
  while (tokens_.TakeIf("OR")) {
    AsCondition(left);
    out_ += " OR ";
    AsCondition(And());
    left = {left.start, Kind::Condition};
  }
  --depth_;
  return left;
}

JetWriter::Operand JetWriter::And() {
  Operand left = Not();
  while (tokens_.TakeIf("AND")) {
    AsCondition(left);
    out_ += " AND ";
    AsCondition(Not());
    left = {left.start, Kind::Condition};
  }
  return left;
}

JetWriter::Operand JetWriter::Not() {
  const std::size_t start = out_.size();
  bool negated = false;
  while (tokens_.TakeIf("NOT")) {
    out_ += "NOT ";
    negated = true;
  }
  const Operand operand = Comparison();
  if (!negated) return operand;
  AsCondition(operand);
  return {start, Kind::Condition};
}

JetWriter::Operand JetWriter::Comparison() {
  Operand left = Concatenation();
  while (Compare(left)) left = {left.start, Kind::Condition};
  return left;
}

JetWriter::Operand JetWriter::Concatenation() {
  Operand left = Sum();
  if (!tokens_.Peek().IsSymbol("&")) return left;
  out_.insert(left.start, "(jet_text(");
  out_ += ')';
  while (tokens_.TakeSymbolIf("&")) {
    out_ += " || jet_text(";
    Sum();
    out_ += ')';
  }
  out_ += ')';
  Collate();
  return {left.start, Kind::Text};
}

JetWriter::Operand JetWriter::Sum() {
  Operand left = Product();
  while (tokens_.Peek().IsSymbol("+") || tokens_.Peek().IsSymbol("-")) {
    const bool plus = tokens_.Take().text == "+";
    TruthAsNumber(left);
    const std::size_t operatorStart = out_.size(), leftEnd = operatorStart;
    out_ += plus ? " + " : " - ";
    const Operand right = Product();
    TruthAsNumber(right);
    // A plus between texts joins them, and Null makes the whole Null.
    if (plus && (KindOf(left) == Kind::Text || KindOf(right) == Kind::Text)) {
      out_.replace(operatorStart, 3, " || ");
      out_.insert(left.start, "(");
      out_ += ')';
      left = {left.start, Kind::Text};
    } else {
      Calculate(left, leftEnd, right, false);
      left = {left.start, Kind::Number};
    }
  }
  return left;
}

JetWriter::Operand JetWriter::Product() {
  Operand left = Sign();
  while (tokens_.Peek().IsSymbol("*") || tokens_.Peek().IsSymbol("/")) {
    TruthAsNumber(left);
    const bool divides = tokens_.Take().text == "/";
    const std::size_t leftEnd = out_.size();
    out_ += divides ? " / " : " * ";
    const Operand right = Sign();
    TruthAsNumber(right);
    Calculate(left, leftEnd, right, divides);
    // Two whole numbers divide to a number with decimals.
    if (divides) out_.insert(left.start, "1.0 * ");
    left = {left.start, Kind::Number};
  }
  return left;
}

JetWriter::Operand JetWriter::Sign() {
  const std::size_t start = out_.size();
  bool sign = false;
  while (tokens_.Peek().IsSymbol("-") || tokens_.Peek().IsSymbol("+")) {
    // The blank keeps two signs from becoming a comment.
    if (tokens_.Take().text == "-") out_ += "- ";
    sign = true;
  }
  const Operand operand = Primary();
  if (!sign) return operand;
  TruthAsNumber(operand);
  return {start, Kind::Number};
}

JetWriter::Operand JetWriter::Primary() {
  const std::size_t start = out_.size();
  const JetToken token = tokens_.Take();
  switch (token.kind) {
    case JetToken::Kind::Text:
    case JetToken::Kind::Number:
    case JetToken::Kind::Date:
      return Literal(token);
    case JetToken::Kind::Name:
    case JetToken::Kind::Bracketed:
      return NameOrCall(token);
    default:
      if (!token.IsSymbol("(")) tokens_.Fail();
      return Parenthesis(start);
  }
}

JetWriter::Operand JetWriter::Parenthesis(std::size_t start) {
  out_ += '(';
  Operand inner;
  if (tokens_.Peek().Is("SELECT"))
    Select(false);
  else
    inner = Or();
  tokens_.ExpectSymbol(")");
  out_ += ')';
  inner.start = start;
  inner.call = nullptr;
  return inner;
}

JetWriter::Operand JetWriter::Literal(const JetToken& token) {
  const std::size_t start = out_.size();
  if (token.kind == JetToken::Kind::Number) {
    Parameter(NumberOf(token.text));
    return {start, Kind::Number};
  }
  if (token.kind == JetToken::Kind::Date) {
    const auto date = CDate(token.text);
    if (!date) tokens_.Fail("Syntax error in date");
    Parameter(*date);
    return {start, Kind::Date};
  }
  Parameter(token.Content());
  Collate();
  return {start, Kind::Text};
}

JetWriter::Operand JetWriter::NameOrCall(const JetToken& token) {
  const std::size_t start = out_.size();
  if (token.kind == JetToken::Kind::Name && tokens_.Peek().IsSymbol("(")) {
    if (!token.Is("EXISTS")) return Call(start, token);
    out_ += "EXISTS ";
    Primary();
    return {start, Kind::Condition};
  }
  if (token.Is("NULL")) {
    out_ += "NULL";
    return {start, Kind::Null};
  }
  const bool yes = token.Is("TRUE") || token.Is("YES");
  if (yes || token.Is("FALSE") || token.Is("NO")) {
    Parameter(yes);
    return {start, Kind::Truth};
  }
  if (!token.IsFreeName()) tokens_.Fail();

  Operand field{start, Kind::Unknown, {}, token.text};
  Name(token);
  if (tokens_.TakeSymbolIf(".")) {
    const JetToken column = tokens_.Take();
    if (!column.IsFreeName()) tokens_.Fail();
    out_ += '.';
    Name(column);
    field.qualifier = token.text;
    field.column = column.text;
  }
  return field;
}

JetWriter::Operand JetWriter::Call(std::size_t start, const JetToken& name) {
  const JetFunction* function = FindJetFunction(name.text);
  if (function == nullptr) {
    throw RunTimeError(3085, "Undefined function '" + std::string(name.text) + "' in expression.");
  }
  if (function->aggregate) aggregates_ = true;
  out_ += function->sqlName;
  out_ += '(';
  Operand argument;
  const bool outer = inPlainArguments_;
  inPlainArguments_ = function->result != JetResult::Unknown && !function->aggregate;
  const int count = Arguments(*function, argument);
  inPlainArguments_ = outer;
  if (count < function->minArguments || count > function->maxArguments)
    tokens_.Fail("Wrong number of arguments used with function");

  // A trim of both sides, however it is put together, is the one that the index is on.
  const JetFunction* inner = argument.call;
  if (function->IsTrim() && inner != nullptr && inner->IsTrim() && inner != function) {
    out_.replace(start, function->sqlName.size() + 1 + inner->sqlName.size(), "trim");
    function = FindJetFunction("TRIM");
  } else {
    out_ += ')';
  }
  // Inside of another function's brackets the collation would hide the call from its index.
  if (function->result != JetResult::Number && !inPlainArguments_) Collate();
  const Kind kind = function->result == JetResult::Text     ? Kind::Text
                    : function->result == JetResult::Number ? Kind::Number
                                                            : Kind::Unknown;
  return {start, kind, {}, {}, function, argument.qualifier, argument.column};
}

int JetWriter::Arguments(const JetFunction& function, Operand& last) {
  tokens_.ExpectSymbol("(");
  int count = 0;
  if (function.keyword == "COUNT" && tokens_.TakeSymbolIf("*")) {
    out_ += '*';
    count = 1;
  } else {
    do {
      if (count > 0) out_ += ", ";
      last = Or();
      if (function.keyword == "IIF" && count == 0) AsCondition(last);
      ++count;
    } while (tokens_.TakeSymbolIf(","));
  }
  tokens_.ExpectSymbol(")");
  return count;
}

}  // namespace kvi::jet
