#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/dialect/JetFunctionTable.h"
#include "jet/dialect/JetSql.h"
#include "jet/dialect/JetTokens.h"

namespace kvi::jet {

// Reads one Jet statement or criterion by its grammar and writes SQLite's form of it in the same
// pass. What an operator does to an operand already written is inserted at the operand's start.
// Expressions are in JetExpression.cpp, comparisons in JetComparison.cpp, statements in
// JetStatement.cpp and JetSelect.cpp.
class JetWriter {
 public:
  JetWriter(std::string_view sql, int firstParameter, const ShapeOfTable& shapeOf);

  Translation WriteStatement();
  Condition WriteCondition(const std::vector<FieldDef>* fields);

 private:
  // Deeper nests are no statement of ours, and would end in the stack.
  static constexpr int kMaxDepth = 200;

  enum class Kind { Unknown, Text, Number, Date, Truth, Null };

  // An operand as written: where it starts, what it is as far as the text tells, and the field or
  // the call when it is nothing else.
  struct Operand {
    std::size_t start = 0;
    Kind kind = Kind::Unknown;
    std::string_view qualifier, column;
    const JetFunction* call = nullptr;
    std::string_view argumentQualifier, argument;  // the field that is all a call is over
  };

  // A table in reach; the innermost SELECT's stand last.
  struct Table {
    std::string_view name, alias;
    std::optional<TableShape> shape;

    std::string_view ShownName() const { return alias.empty() ? name : alias; }
    bool IsCalled(std::string_view qualifier) const;
  };

  // A `*` in a list of columns, to be replaced by the fields once the tables are known.
  struct Star {
    std::size_t start, length;
    std::string_view qualifier;
  };

  // What a SELECT has shown so far; `keyed` as long as it may become a dynaset.
  struct Shape {
    bool keyed = true;
    bool outermost = false;
    std::string_view top;
    std::vector<Star> stars;
    std::vector<std::pair<int, Operand>> extremes;  // MIN and MAX of a field, by their place
    std::size_t firstTable = 0;
  };

  Operand Or();
  Operand And();
  Operand Not();
  Operand Comparison();
  Operand Concatenation();
  Operand Sum();
  Operand Product();
  Operand Sign();
  Operand Primary();
  Operand Parenthesis(std::size_t start);
  Operand Literal(const JetToken& token);
  Operand NameOrCall(const JetToken& token);
  Operand Call(std::size_t start, const JetToken& name);
  int Arguments(const JetFunction& function, Operand& last);

  bool Compare(const Operand& left);
  void CompareWith(const Operand& left, std::string_view symbol);
  bool CompareWithConstant(std::string_view symbol, std::size_t leftEnd, const Operand& right);
  void Coerce(const Operand& left, std::size_t leftEnd, const Operand& right);
  void DropCase(const Operand& operand);
  void ReadAsNumber(const Operand& operand, std::size_t end);
  void ReadAsDate(const Operand& operand, std::size_t end);
  void Wrap(const Operand& operand, std::string_view before, std::size_t end,
            std::string_view behind);
  void Like(const Operand& left, bool negated);
  void In(const Operand& left, bool negated);
  void Between(const Operand& left, bool negated);
  Kind KindOf(const Operand& operand);
  const TableShape& ShapeOf(Table& table);

  void Parameter(Value value);
  void Name(const JetToken& token);
  void TruthAsNumber(const Operand& operand);

  void Select(bool outermost);
  void SelectCore(Shape& shape);
  void SelectHead(Shape& shape);
  void SelectList(Shape& shape);
  void SelectItem(Shape& shape, int ordinal);
  bool StarItem(Shape& shape);
  void ExpandStars(const Shape& shape);
  void FindDates(const Shape& shape);
  void Grouping(Shape& shape);
  std::string OrderBy();
  void JoinedTables(Shape& shape);
  bool JoinWord();
  void JoinOperand(Shape& shape);

  void Update();
  void Delete();
  void Insert();
  void TargetTable();
  std::string Where();
  std::string FieldsForStar(std::string_view qualifier, std::size_t firstTable);
  JetToken TakeFreeName();
  void ExpectEnd();

  JetTokens tokens_;
  const ShapeOfTable& shapeOf_;
  int nextParameter_;
  int depth_ = 0;
  bool inPlainArguments_ = false;
  bool aggregates_ = false;
  std::vector<Table> tables_;
  Translation result_;
  std::string& out_ = result_.Sql;
};

}  // namespace kvi::jet
