#pragma once

#include <string>
#include <vector>

#include "jet/postgres/PostgresConnection.h"

namespace kvi::jet {

// A statement of the server's: its text in the server's words, its parameters, and the whole of its
// answer, which came in one piece.
class PostgresStatement : public Statement {
 public:
  PostgresStatement(PostgresConnection& connection, std::string_view sql);

  // A run has its answer, and somebody reads it.
  bool IsBusy() const { return result_ != nullptr; }

  int Parameters() override { return static_cast<int>(parameters_.size()); }
  void BindNull(int index) override;
  void Bind(int index, std::int64_t value) override;
  void Bind(int index, double value) override;
  void Bind(int index, std::string_view text) override;
  void Bind(int index, const Date& date) override;
  bool Step() override;
  void Write(bool mayCollide) override;
  void Finish() override;

  int Columns() override;
  std::string_view Name(int column) override;
  std::string_view DeclaredType(int column) override;
  Kind KindOf(int column) override;
  std::int64_t Whole(int column) override;
  double Number(int column) override;
  std::string_view Text(int column) override;

 private:
  Parameter& At(int index);
  void Run();

  PostgresConnection& connection_;
  std::string sql_;
  bool reads_;
  std::vector<Parameter> parameters_;
  ServerResult result_;
  int row_ = -1;
};

// A statement as the dialect writes it, "[Name]" and "?1", in the server's words.
std::string InServerWords(std::string_view sql);

}  // namespace kvi::jet
