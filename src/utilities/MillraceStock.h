#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/Value.h"
#include "jet/Database.h"
#include "platform/Progress.h"

namespace kvi {

// What a Millrace Works database has for us, read whole and tried against our
// fields before anything of ours goes: its parts, the parts lists of its
// machines, which become lines of part groups, its locations and its
// categories.
class MillraceStock {
 public:
  // Raises 3343 for a file that is no Millrace Works database. `target` is only
  // looked at.
  MillraceStock(jet::Database& source, jet::Database& target, Progress& progress);

  // What our tables cannot take, a line each, in the order of the file. One,
  // and nothing is to be written.
  const std::vector<std::string>& Offenders() const { return offenders_; }

  // Puts it in the place of our parts, lines, locations and categories, into
  // the profit center given. To be run within a WriteAtOnce.
  void Write(jet::Database& target, int profitCenter, Progress& progress) const;

 private:
  struct Field {
    const char *from, *to;
    Value (*change)(const Value& value);
  };
  struct Table {
    const char *name, *query, *to;
    std::span<const Field> fields;
    bool isList;  // a row without a value is none
    const char* deletion;
  };
  using Rows = std::vector<std::vector<Value>>;

  static std::span<const Table> Tables();
  static void Require(jet::Database& source);
  Rows Read(const Table& table, jet::Database& source, Progress& progress);
  void Try(const Table& table, const Rows& rows, jet::Database& target);
  void TryNumbers(const Rows& parts);
  void Refuse(const Table& table, std::size_t row, const std::string& reason);

  std::vector<Rows> rows_;  // in the order of Tables()
  std::vector<std::string> offenders_;

  static const Field kPartFields[], kLineFields[], kLocationFields[], kCategoryFields[];
};

}  // namespace kvi
