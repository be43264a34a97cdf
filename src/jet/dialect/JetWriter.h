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
// JetStatement.cpp and JetSelect.cpp. The virtual routines are where another engine's form differs.
class JetWriter {
 public:
  JetWriter(std::string_view sql, int firstParameter, const ShapeOfTable& shapeOf);
  virtual ~JetWriter() = default;
  JetWriter(const JetWriter&) = delete;
  JetWriter& operator=(const JetWriter&) = delete;

  Translation WriteStatement();
  Condition WriteCondition(const TableShape& searched);

 protected:
  // Deeper nests are no statement of ours, and would end in the stack.
  static constexpr int kMaxDepth = 200;

  // A condition is true or false; a truth value stands in a field.
  enum class Kind { Unknown, Text, Number, Date, Truth, Condition, Null };

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

  // An entry of a list of columns: the operand, up to the name that it is given.
  struct Item {
    Operand operand;
    std::size_t end;
  };

  // What a SELECT has shown so far; `keyed` as long as it may become a dynaset.
  struct Shape {
    bool keyed = true;
    bool outermost = false;
    std::string_view top;
    bool distinct = false;
    std::size_t listStart = 0;
    std::vector<Star> stars;
    std::vector<Item> items;
    bool united = false;
    // For an engine that must be told what makes rows equal: the terms of the grouping as they
    // were written, what they, or the entries of a DISTINCT, are told apart by, and the order.
    std::vector<std::string> groups, keys, order;
    std::vector<std::pair<int, Operand>> extremes;  // MIN and MAX of a field, by their place
    std::size_t firstTable = 0;
  };

  // The truth of an operand that stands where a condition must.
  virtual void AsCondition(const Operand&) {}
  // Behind a text that is no field.
  virtual void Collate();
  // Makes two operands alike that are neither known as dates nor compared with a number.
  virtual void CompareAlike(const Operand& left, std::size_t leftEnd, const Operand& right);
  // One of a list of values beside the left side of IN and BETWEEN.
  virtual void ValueBeside(const Operand&, const Operand&) {}
  virtual void BesideValues(const Operand& left, std::size_t leftEnd, bool numbers);
  virtual void BesideSelect(const Operand&, std::size_t, std::size_t) {}
  virtual void ReadAsNumber(const Operand& operand, std::size_t end);
  virtual void Calculate(const Operand&, std::size_t, const Operand&, bool) {}
  virtual void Assign(const JetToken&, const Operand&) {}
  virtual void OrderTerm(Shape& shape, const Operand& term, bool descending);
  virtual void Distinct(Shape& shape);
  // Behind a term that rows are grouped by.
  virtual void EndGroup(Shape&, const Operand&) {}
  // The list, the tables, the condition and the groups stand.
  virtual void FinishCore(Shape&) {}
  // Behind the last of several SELECTs that began at `start`.
  virtual void Unite(std::size_t) {}
  // Behind the order that the statement gives, if it gives one.
  virtual void FinishOrder(const Shape&) {}

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
  std::string OrderBy(Shape& shape);
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
