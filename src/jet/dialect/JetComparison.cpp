#include "base/Text.h"
#include "jet/dialect/JetWriter.h"

namespace kvi::jet {
namespace {

constexpr std::string_view kComparisons[] = {"=", "<>", "<", ">", "<=", ">="};

bool SameName(std::string_view left, std::string_view right) {
  return left.size() == right.size() && EqualsNoCase(left, right);
}

}  // namespace

bool JetWriter::Table::IsCalled(std::string_view qualifier) const {
  return SameName(qualifier, ShownName());
}

// Writes one comparison behind its left side; false when there is none.
bool JetWriter::Compare(const Operand& left) {
  for (const std::string_view symbol : kComparisons) {
    if (!tokens_.TakeSymbolIf(symbol)) continue;
    CompareWith(left, symbol);
    return true;
  }
  if (tokens_.TakeIf("IS")) {
    const bool negated = tokens_.TakeIf("NOT");
    tokens_.Expect("NULL");
    out_ += negated ? " IS NOT NULL" : " IS NULL";
    return true;
  }
  const bool negated = tokens_.TakeIf("NOT");
  if (tokens_.TakeIf("LIKE"))
    Like(left, negated);
  else if (tokens_.TakeIf("IN"))
    In(left, negated);
  else if (tokens_.TakeIf("BETWEEN"))
    Between(left, negated);
  else if (negated)
    tokens_.Fail();
  else
    return false;
  return true;
}

void JetWriter::CompareWith(const Operand& left, std::string_view symbol) {
  const std::size_t leftEnd = out_.size();
  out_ += ' ';
  out_ += symbol;
  out_ += ' ';
  const Operand right = Concatenation();
  if (CompareWithConstant(symbol, leftEnd, right)) return;
  if (left.kind == Kind::Number || right.kind == Kind::Number || KindOf(left) == Kind::Date ||
      KindOf(right) == Kind::Date)
    return Coerce(left, leftEnd, right);
  CompareAlike(left, leftEnd, right);
}

void JetWriter::CompareAlike(const Operand& left, std::size_t, const Operand& right) {
  DropCase(right);
  DropCase(left);
}

// Our order compares without regard to case anyway; without the call an index on its argument
// serves.
void JetWriter::DropCase(const Operand& operand) {
  if (operand.call != nullptr && operand.call->ChangesCase())
    out_.erase(operand.start, operand.call->sqlName.size());
}

// Null and the truth values have their own way of being compared.
bool JetWriter::CompareWithConstant(std::string_view symbol, std::size_t leftEnd,
                                    const Operand& right) {
  const bool unequal = symbol == "<>";
  if (right.kind == Kind::Null && unequal) {
    // "<> Null" asks whether there is a value; "= Null" stays as it is, and never true.
    out_.resize(leftEnd);
    out_ += " IS NOT NULL";
    return true;
  }
  if (right.kind == Kind::Truth && (unequal || symbol == "=")) {
    // A stored truth is 1, Jet's own is -1: either is true.
    const bool truth = result_.Parameters.back().Boolean();
    result_.Parameters.pop_back();
    --nextParameter_;
    out_.resize(leftEnd);
    out_ += truth != unequal ? " <> 0" : " = 0";
    return true;
  }
  return false;
}

// A text or a number beside a date is read as one, and a text beside a number through Val.
void JetWriter::Coerce(const Operand& left, std::size_t leftEnd, const Operand& right) {
  if (KindOf(left) == Kind::Date) {
    ReadAsDate(right, out_.size());
  } else if (KindOf(right) == Kind::Date) {
    ReadAsDate(left, leftEnd);
  } else {
    if (left.kind == Kind::Number) ReadAsNumber(right, out_.size());
    if (right.kind == Kind::Number) ReadAsNumber(left, leftEnd);
  }
}

void JetWriter::ReadAsDate(const Operand& operand, std::size_t end) {
  const Kind kind = KindOf(operand);
  if (kind == Kind::Text || kind == Kind::Number) Wrap(operand, "jet_date(", end, ")");
}

void JetWriter::Wrap(const Operand& operand, std::string_view before, std::size_t end,
                     std::string_view behind) {
  out_.insert(end, behind);
  out_.insert(operand.start, before);
}

void JetWriter::ReadAsNumber(const Operand& operand, std::size_t end) {
  const Kind kind = KindOf(operand);
  if (kind == Kind::Text) Wrap(operand, "Val(", end, ")");
  // A file of another tool may keep true as 1, where the dialect's own is -1.
  if (kind == Kind::Truth) Wrap(operand, "-(", end, " <> 0)");
}

void JetWriter::Like(const Operand& left, bool negated) {
  out_.insert(left.start, negated ? "(NOT jet_like(" : "jet_like(");
  out_ += ", ";
  Concatenation();
  out_ += negated ? "))" : ")";
}

void JetWriter::In(const Operand& left, bool negated) {
  const std::size_t leftEnd = out_.size();
  out_ += negated ? " NOT IN (" : " IN (";
  tokens_.ExpectSymbol("(");
  bool numbers = false;
  const bool dates = KindOf(left) == Kind::Date;
  const bool select = tokens_.Peek().Is("SELECT");
  if (select) {
    const std::size_t start = out_.size();
    Select(false);
    BesideSelect(left, leftEnd, start);
  } else {
    do {
      if (out_.back() != '(') out_ += ", ";
      const Operand value = Or();
      if (dates)
        ReadAsDate(value, out_.size());
      else
        ValueBeside(left, value);
      numbers |= value.kind == Kind::Number;
    } while (tokens_.TakeSymbolIf(","));
  }
  tokens_.ExpectSymbol(")");
  out_ += ')';
  if (!dates && !select) BesideValues(left, leftEnd, numbers);
}

void JetWriter::BesideValues(const Operand& left, std::size_t leftEnd, bool numbers) {
  if (numbers) ReadAsNumber(left, leftEnd);
}

void JetWriter::Between(const Operand& left, bool negated) {
  const std::size_t leftEnd = out_.size();
  out_ += negated ? " NOT BETWEEN " : " BETWEEN ";
  const bool dates = KindOf(left) == Kind::Date;
  const auto bound = [&] {
    const Operand operand = Concatenation();
    if (dates)
      ReadAsDate(operand, out_.size());
    else
      ValueBeside(left, operand);
    return operand.kind == Kind::Number;
  };
  const bool number = bound();
  tokens_.Expect("AND");
  out_ += " AND ";
  bound();
  if (!dates) BesideValues(left, leftEnd, number);
}

// A field's kind is looked up only where it decides something.
JetWriter::Kind JetWriter::KindOf(const Operand& operand) {
  if (operand.column.empty()) return operand.kind;
  for (std::size_t i = tables_.size(); i-- > 0;) {
    Table& table = tables_[i];
    const bool asked =
        operand.qualifier.empty() || table.name.empty() || table.IsCalled(operand.qualifier);
    const auto* fields = asked ? ShapeOf(table).Fields : nullptr;
    if (fields == nullptr) continue;
    for (const FieldDef& field : *fields) {
      if (!SameName(field.Name, operand.column)) continue;
      switch (field.Type) {
        case FieldType::Text:
        case FieldType::Memo:
          return Kind::Text;
        case FieldType::Boolean:
          return Kind::Truth;
        case FieldType::Date:
          return Kind::Date;
        default:
          return Kind::Number;
      }
    }
  }
  return Kind::Unknown;
}

const TableShape& JetWriter::ShapeOf(Table& table) {
  if (!table.shape) {
    table.shape = shapeOf_ && !table.name.empty() ? shapeOf_(table.name) : TableShape{};
  }
  return *table.shape;
}

void JetWriter::Parameter(Value value) {
  out_ += '?';
  out_ += std::to_string(nextParameter_++);
  result_.Parameters.push_back(std::move(value));
}

void JetWriter::Name(const JetToken& token) {
  out_ += '[';
  out_ += token.text;
  out_ += ']';
}

// In arithmetic true is -1, whereas a field takes it as 1.
void JetWriter::TruthAsNumber(const Operand& operand) {
  if (operand.kind != Kind::Truth) return;
  Value& truth = result_.Parameters.back();
  truth = truth.Boolean() ? -1 : 0;
}

}  // namespace kvi::jet
