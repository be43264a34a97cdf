#include "jet/postgres/PostgresStatement.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "base/Value.h"

namespace kvi::jet {
namespace {

// Of the other types that answers have.
constexpr Oid kBool = 16, kShort = 21, kInt = 23, kSingle = 700, kNumeric = 1700;

constexpr std::string_view kMidnight = " 00:00:00";

std::size_t CountOfParameters(std::string_view sql) {
  std::size_t most = 0;
  for (std::size_t at = sql.find('?'); at != sql.npos; at = sql.find('?', at + 1)) {
    std::size_t number = 0;
    std::from_chars(sql.data() + at + 1, sql.data() + sql.size(), number);
    most = std::max(most, number);
  }
  return most;
}

template <class Number>
std::string Digits(Number number) {
  std::array<char, 32> digits;
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

}  // namespace

std::string InServerWords(std::string_view sql) {
  std::string words;
  words.reserve(sql.size() + 16);
  for (std::size_t i = 0; i < sql.size(); ++i) {
    if (sql[i] == '[') {
      const std::size_t close = std::min(sql.find(']', i), sql.size());
      words += '"' + LCase(sql.substr(i + 1, close - i - 1)) + '"';
      i = close;
    } else {
      words += sql[i] == '?' ? '$' : sql[i];
    }
  }
  return words;
}

PostgresStatement::PostgresStatement(PostgresConnection& connection, std::string_view sql)
    : connection_(connection),
      sql_(InServerWords(sql)),
      reads_(sql.starts_with("SELECT")),
      parameters_(CountOfParameters(sql)) {}

Parameter& PostgresStatement::At(int index) {
  Parameter& parameter = parameters_[static_cast<std::size_t>(index) - 1];
  parameter.IsNull = false;
  return parameter;
}

void PostgresStatement::BindNull(int index) {
  parameters_[static_cast<std::size_t>(index) - 1] = {};
}

void PostgresStatement::Bind(int index, std::int64_t value) {
  Parameter& parameter = At(index);
  parameter.Type = kServerWhole;
  parameter.Text = Digits(value);
}

void PostgresStatement::Bind(int index, double value) {
  Parameter& parameter = At(index);
  parameter.Type = kServerDouble;
  parameter.Text = Digits(value);
}

void PostgresStatement::Bind(int index, std::string_view text) {
  // The server's texts cannot hold it, and what stood behind it would be lost.
  if (text.find('\0') != text.npos) throw RunTimeError(3421);
  Parameter& parameter = At(index);
  parameter.Type = kServerText;
  parameter.Text = text;
}

void PostgresStatement::Bind(int index, const Date& date) {
  Parameter& parameter = At(index);
  parameter.Type = kServerDate;
  parameter.Text = IsoText(date);
}

void PostgresStatement::Run() {
  result_ = reads_ && parameters_.empty() ? connection_.Answer(sql_)
                                          : connection_.Run(sql_, parameters_, reads_);
  row_ = -1;
}

bool PostgresStatement::Step() {
  if (!result_) Run();
  return ++row_ < PQntuples(result_.get());
}

void PostgresStatement::Write(bool mayCollide) {
  if (mayCollide)
    Run();
  else
    connection_.RunLater(sql_, parameters_);
}

void PostgresStatement::Finish() {
  result_.reset();
}

int PostgresStatement::Columns() {
  if (!result_) Run();
  return PQnfields(result_.get());
}

std::string_view PostgresStatement::Name(int column) {
  const auto* known =
      connection_.ColumnOf(PQftable(result_.get(), column), PQftablecol(result_.get(), column));
  const char* name = PQfname(result_.get(), column);
  if (known != nullptr && EqualsNoCase(known->Name, name)) return known->Name;
  return name;
}

std::string_view PostgresStatement::DeclaredType(int column) {
  const auto* known =
      connection_.ColumnOf(PQftable(result_.get(), column), PQftablecol(result_.get(), column));
  return known == nullptr ? std::string_view() : known->Type;
}

Statement::Kind PostgresStatement::KindOf(int column) {
  if (PQgetisnull(result_.get(), row_, column)) return Kind::Null;
  switch (PQftype(result_.get(), column)) {
    case kBool:
    case kShort:
    case kInt:
    case kServerWhole:
      return Kind::Whole;
    case kSingle:
    case kServerDouble:
      return Kind::Number;
    case kNumeric:
      return Text(column).find('.') == std::string_view::npos ? Kind::Whole : Kind::Number;
    default:
      return Kind::Text;
  }
}

std::int64_t PostgresStatement::Whole(int column) {
  const std::string_view text = Text(column);
  if (text == "t") return 1;
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

double PostgresStatement::Number(int column) {
  const std::string_view text = Text(column);
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string_view PostgresStatement::Text(int column) {
  std::string_view text(PQgetvalue(result_.get(), row_, column),
                        static_cast<std::size_t>(PQgetlength(result_.get(), row_, column)));
  if (PQftype(result_.get(), column) == kServerDate && text.ends_with(kMidnight))
    text.remove_suffix(kMidnight.size());
  return text;
}

}  // namespace kvi::jet
