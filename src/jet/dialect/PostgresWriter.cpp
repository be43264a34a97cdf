#include "jet/dialect/PostgresWriter.h"

#include <algorithm>

#include "base/Text.h"

namespace kvi::jet {
namespace {

// The hidden column with a text field's key.
std::string KeyColumn(std::string_view qualifier, std::string_view column) {
  std::string name;
  if (!qualifier.empty()) name.append("[").append(qualifier).append("].");
  return name.append("[_k_").append(column).append("]");
}

}  // namespace

void PostgresWriter::AsCondition(const Operand& operand) {
  if (KindOf(operand) != Kind::Condition) Wrap(operand, "kvi.truth(", out_.size(), ")");
}

// What is not known before it runs is taken for a text: the key of anything else is itself.
bool PostgresWriter::HasKey(const Operand& operand) {
  const Kind kind = KindOf(operand);
  return kind == Kind::Text || kind == Kind::Unknown;
}

// A key disregards case, so a change of case is left out; then an index on the key serves.
std::string PostgresWriter::KeyOf(const Operand& operand, std::string_view text) {
  if (!operand.column.empty() && KindOf(operand) == Kind::Text)
    return KeyColumn(operand.qualifier, operand.column);
  if (operand.call != nullptr && operand.call->ChangesCase()) {
    const Operand argument{0, Kind::Unknown, operand.argumentQualifier, operand.argument};
    if (!operand.argument.empty() && KindOf(argument) == Kind::Text)
      return KeyColumn(operand.argumentQualifier, operand.argument);
    text.remove_prefix(operand.call->sqlName.size());
  }
  while (text.starts_with('(') && text.ends_with(')')) text = text.substr(1, text.size() - 2);
  if (std::string key = TrimmedKey(text); !key.empty()) return key;
  return "kvi.key(" + std::string(text) + ")";
}

// The column that holds the key of "trim([field])", "" where there is none.
std::string PostgresWriter::TrimmedKey(std::string_view text) {
  constexpr std::string_view kBefore = "trim([", kBehind = "])";
  if (!text.starts_with(kBefore) || !text.ends_with(kBehind)) return {};
  const std::string_view name =
      text.substr(kBefore.size(), text.size() - kBefore.size() - kBehind.size());
  const std::size_t point = name.find("].[");
  const std::string_view field = point == name.npos ? name : name.substr(point + 3);
  for (Table& table : tables_) {
    if (point != name.npos && !table.IsCalled(name.substr(0, point))) continue;
    const auto* keys = ShapeOf(table).TrimmedKeys;
    if (keys == nullptr) continue;
    for (const std::string& key : *keys)
      if (EqualsNoCase(key, field))
        return (point == name.npos ? "[" : "[" + std::string(name.substr(0, point)) + "].[") +
               ("_t_" + key + "]");
  }
  return {};
}

void PostgresWriter::MakeKey(const Operand& operand, std::size_t end) {
  const std::size_t length = end - operand.start;
  out_.replace(operand.start, length, KeyOf(operand, out_.substr(operand.start, length)));
}

void PostgresWriter::CompareAlike(const Operand& left, std::size_t leftEnd, const Operand& right) {
  const Kind kindOfLeft = KindOf(left), kindOfRight = KindOf(right);
  if (kindOfLeft == Kind::Null || kindOfRight == Kind::Null) return;
  if (kindOfLeft == Kind::Number || kindOfRight == Kind::Number)
    return Calculate(left, leftEnd, right, false);
  if (!HasKey(left) && !HasKey(right)) return;
  MakeKey(right, out_.size());
  MakeKey(left, leftEnd);
}

void PostgresWriter::ValueBeside(const Operand& left, const Operand& value) {
  if (KindOf(left) == Kind::Number)
    ReadAsNumber(value, out_.size());
  else if (KindOf(value) == Kind::Text)
    MakeKey(value, out_.size());
}

void PostgresWriter::BesideValues(const Operand& left, std::size_t leftEnd, bool numbers) {
  if (numbers)
    ReadAsNumber(left, leftEnd);
  else if (HasKey(left))
    MakeKey(left, leftEnd);
}

void PostgresWriter::BesideSelect(const Operand& left, std::size_t leftEnd, std::size_t start) {
  if (!HasKey(left)) return;
  out_.insert(start, "SELECT kvi.key(x) FROM (");
  out_ += ") AS q(x)";
  MakeKey(left, leftEnd);
}

// (A truth value is stored as -1 and needs no words.)
void PostgresWriter::ReadAsNumber(const Operand& operand, std::size_t end) {
  if (KindOf(operand) == Kind::Text) Wrap(operand, "Val(", end, ")");
}

void PostgresWriter::Calculate(const Operand& left, std::size_t leftEnd, const Operand& right,
                               bool divides) {
  ReadAsNumber(right, out_.size());
  // A division by nothing gives Null.
  if (divides) Wrap(right, "nullif(", out_.size(), ", 0)");
  ReadAsNumber(left, leftEnd);
}

void PostgresWriter::Assign(const JetToken& field, const Operand& value) {
  const Kind kind = KindOf({0, Kind::Unknown, {}, field.text});
  if (kind == Kind::Number) ReadAsNumber(value, out_.size());
  if (kind == Kind::Date) ReadAsDate(value, out_.size());
}

void PostgresWriter::OrderTerm(Shape& shape, const Operand& term, bool descending) {
  // A name of no table's is one that the list gives, and stands in no expression.
  const bool ofList = !term.column.empty() && KindOf(term) == Kind::Unknown;
  if (shape.united && !term.column.empty())
    Wrap(term, "kvi.key(", out_.size(), ")");
  else if (HasKey(term) && !ofList)
    MakeKey(term, out_.size());
  shape.order.push_back(out_.substr(term.start));
  out_ += descending ? " DESC NULLS LAST" : " NULLS FIRST";
}

bool PostgresWriter::IsOneTable(const Shape& shape) {
  return tables_.size() == shape.firstTable + 1 && ShapeOf(tables_.back()).Fields != nullptr;
}

void PostgresWriter::EndGroup(Shape& shape, const Operand& group) {
  const std::string text = out_.substr(group.start);
  const std::string key = HasKey(group) ? KeyOf(group, text) : text;
  out_.replace(group.start, text.size(), key);
  shape.groups.push_back(text);
  shape.keys.push_back(key);
}

// Rows of one group may spell its text differently: the first one's is shown.
void PostgresWriter::TakeFirstOfGroup(const Shape& shape) {
  const char* order = IsOneTable(shape) ? " ORDER BY [_rid]" : "";
  for (auto item = shape.items.rbegin(); item != shape.items.rend(); ++item) {
    const std::size_t start = item->operand.start, length = item->end - start;
    const std::string text = out_.substr(start, length);
    if (std::ranges::find(shape.groups, text) == shape.groups.end()) continue;
    std::string first = "kvi.first(array_agg(" + text + order + "))";
    if (out_.compare(item->end, 4, " AS ") != 0)
      first.append(" AS [").append(item->operand.column).append("]");
    out_.replace(start, length, first);
  }
}

std::vector<std::string> PostgresWriter::KeysOfList(const Shape& shape) {
  std::vector<std::string> keys;
  const auto add = [&](const Operand& operand, const std::string& text) {
    keys.push_back(HasKey(operand) ? KeyOf(operand, text) : text);
  };
  for (const Item& item : shape.items)
    add(item.operand, out_.substr(item.operand.start, item.end - item.operand.start));
  if (shape.stars.empty()) return keys;
  for (std::size_t i = shape.firstTable; i < tables_.size(); ++i) {
    const TableShape fields = ShapeOf(tables_[i]);
    if (fields.Fields == nullptr) continue;
    const std::string_view name = tables_[i].ShownName();
    for (const FieldDef& field : *fields.Fields)
      add({0, Kind::Unknown, name, field.Name}, "[" + std::string(name) + "].[" + field.Name + "]");
  }
  return keys;
}

void PostgresWriter::FinishCore(Shape& shape) {
  if (!shape.groups.empty()) TakeFirstOfGroup(shape);
  if (!shape.distinct) return;
  shape.keys = KeysOfList(shape);
  std::string list;
  for (const std::string& key : shape.keys) list += (list.empty() ? "" : ", ") + key;
  out_.insert(shape.listStart, "DISTINCT ON (" + list + ") ");
}

// (Texts that differ in their case alone stay two rows.)
void PostgresWriter::Unite(std::size_t start) {
  out_.insert(start, "SELECT * FROM (");
  out_ += ") AS united";
}

// Groups come in the order of their keys, and of equal rows the first one.
void PostgresWriter::FinishOrder(const Shape& shape) {
  if (shape.united || shape.keys.empty()) return;
  std::string missing;
  for (const std::string& key : shape.keys)
    if (std::ranges::find(shape.order, key) == shape.order.end())
      missing += ", " + key + " NULLS FIRST";
  if (shape.distinct && IsOneTable(shape)) missing += ", [_rid]";
  if (missing.empty()) return;
  out_ += shape.order.empty() ? " ORDER BY " + missing.substr(2) : missing;
}

}  // namespace kvi::jet
