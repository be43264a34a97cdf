#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "jet/dialect/JetWriter.h"

namespace kvi::jet {

// PostgreSQL's form of a statement. Texts are compared and ordered by their keys (kvi.key, stored
// beside each text field in a hidden column), Null stands before all values, and what SQLite
// converts by itself is converted by words. The functions are those of the schema kvi.
class PostgresWriter : public JetWriter {
 public:
  using JetWriter::JetWriter;

 private:
  void AsCondition(const Operand& operand) override;
  void Collate() override {}
  void CompareAlike(const Operand& left, std::size_t leftEnd, const Operand& right) override;
  void ValueBeside(const Operand& left, const Operand& value) override;
  void BesideValues(const Operand& left, std::size_t leftEnd, bool numbers) override;
  void BesideSelect(const Operand& left, std::size_t leftEnd, std::size_t start) override;
  void ReadAsNumber(const Operand& operand, std::size_t end) override;
  void Calculate(const Operand& left, std::size_t leftEnd, const Operand& right,
                 bool divides) override;
  void Assign(const JetToken& field, const Operand& value) override;
  void OrderTerm(Shape& shape, const Operand& term, bool descending) override;
  void Distinct(Shape&) override {}
  void EndGroup(Shape& shape, const Operand& group) override;
  void FinishCore(Shape& shape) override;
  void Unite(std::size_t start) override;
  void FinishOrder(const Shape& shape) override;

  bool HasKey(const Operand& operand);
  std::string KeyOf(const Operand& operand, std::string_view text);
  std::string TrimmedKey(std::string_view text);
  void MakeKey(const Operand& operand, std::size_t end);
  bool IsOneTable(const Shape& shape);
  void TakeFirstOfGroup(const Shape& shape);
  std::vector<std::string> KeysOfList(const Shape& shape);
};

}  // namespace kvi::jet
