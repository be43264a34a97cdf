#include "base/RunTimeError.h"
#include "jet/dialect/PostgresWriter.h"

namespace kvi::jet {

Translation Translate(std::string_view jetSql, const ShapeOfTable& shapeOf, SqlForm form) {
  if (form == SqlForm::Postgres) return PostgresWriter(jetSql, 1, shapeOf).WriteStatement();
  return JetWriter(jetSql, 1, shapeOf).WriteStatement();
}

Condition TranslateCondition(std::string_view criterion, int firstParameter,
                             const TableShape& searched, SqlForm form) {
  if (form == SqlForm::Postgres)
    return PostgresWriter(criterion, firstParameter, {}).WriteCondition(searched);
  return JetWriter(criterion, firstParameter, {}).WriteCondition(searched);
}

Translation JetWriter::WriteStatement() {
  if (tokens_.Peek().Is("SELECT")) {
    Select(true);
  } else {
    result_.kind = Translation::Kind::Action;
    if (tokens_.TakeIf("UPDATE"))
      Update();
    else if (tokens_.TakeIf("DELETE"))
      Delete();
    else if (tokens_.TakeIf("INSERT"))
      Insert();
    else
      throw RunTimeError(
          3129, "Invalid SQL statement; expected 'DELETE', 'INSERT', 'SELECT', or 'UPDATE'.");
  }
  tokens_.TakeSymbolIf(";");
  ExpectEnd();
  return std::move(result_);
}

Condition JetWriter::WriteCondition(const TableShape& searched) {
  tables_.push_back({{}, {}, searched});
  AsCondition(Or());
  ExpectEnd();
  return {std::move(result_.Sql), std::move(result_.Parameters)};
}

void JetWriter::ExpectEnd() {
  if (tokens_.Peek().kind != JetToken::Kind::End)
    tokens_.Fail("Syntax error (missing operator, or characters behind the end)");
}

void JetWriter::Update() {
  out_ += "UPDATE ";
  TargetTable();
  tokens_.Expect("SET");
  out_ += " SET ";
  for (bool more = true; more;) {
    JetToken field = TakeFreeName();
    // SQLite takes no table name on the left side.
    if (tokens_.TakeSymbolIf(".")) field = TakeFreeName();
    Name(field);
    tokens_.ExpectSymbol("=");
    out_ += " = ";
    Assign(field, Or());
    more = tokens_.TakeSymbolIf(",");
    if (more) out_ += ", ";
  }
  if (ShapeOf(tables_.back()).Versioned) out_ += ", [_ver] = [_ver] + 1";
  Where();
}

void JetWriter::Delete() {
  out_ += "DELETE FROM ";
  if (!tokens_.TakeSymbolIf("*") && !tokens_.Peek().Is("FROM")) {
    TakeFreeName();
    tokens_.ExpectSymbol(".");
    tokens_.ExpectSymbol("*");
  }
  tokens_.Expect("FROM");
  TargetTable();
  Where();
}

void JetWriter::Insert() {
  tokens_.Expect("INTO");
  out_ += "INSERT INTO ";
  TargetTable();
  if (tokens_.TakeSymbolIf("(")) {
    out_ += " (";
    do {
      if (out_.back() != '(') out_ += ", ";
      Name(TakeFreeName());
    } while (tokens_.TakeSymbolIf(","));
    tokens_.ExpectSymbol(")");
    out_ += ")";
  } else if (const std::string fields = FieldsForStar({}, 0); !fields.empty()) {
    // Without a list the values stand for every field, but for the hidden columns.
    out_ += " (" + fields + ")";
  }
  tables_.clear();
  out_ += ' ';
  if (tokens_.Peek().Is("SELECT")) {
    Select(false);
    return;
  }
  tokens_.Expect("VALUES");
  tokens_.ExpectSymbol("(");
  out_ += "VALUES (";
  do {
    if (out_.back() != '(') out_ += ", ";
    Or();
  } while (tokens_.TakeSymbolIf(","));
  tokens_.ExpectSymbol(")");
  out_ += ')';
}

void JetWriter::TargetTable() {
  const JetToken table = TakeFreeName();
  Name(table);
  tables_.push_back({table.text, {}});
}

// Returns the condition as written, without the word.
std::string JetWriter::Where() {
  if (!tokens_.TakeIf("WHERE")) return {};
  out_ += " WHERE ";
  const std::size_t start = out_.size();
  AsCondition(Or());
  return out_.substr(start);
}

JetToken JetWriter::TakeFreeName() {
  if (!tokens_.Peek().IsFreeName()) tokens_.Fail();
  return tokens_.Take();
}

// The fields of the tables that a `*` stands for; empty when one of them is not known.
std::string JetWriter::FieldsForStar(std::string_view qualifier, std::size_t firstTable) {
  std::string list;
  const bool several = tables_.size() - firstTable > 1;
  for (std::size_t i = firstTable; i < tables_.size(); ++i) {
    Table& table = tables_[i];
    if (!qualifier.empty() && !table.IsCalled(qualifier)) continue;
    const auto* fields = ShapeOf(table).Fields;
    if (fields == nullptr) return {};
    for (const FieldDef& field : *fields) {
      if (!list.empty()) list += ", ";
      if (several) list.append("[").append(table.ShownName()).append("].");
      list.append("[").append(field.Name).append("]");
    }
  }
  return list;
}

}  // namespace kvi::jet
