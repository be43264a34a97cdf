#pragma once

#include <compare>
#include <string>
#include <vector>

#include "jet/Database.h"

namespace kvi {

// What the parts of one profit center can be found by on a shelf, read in one walk.
class PartCodes {
 public:
  struct Part {
    std::string number, name;
  };

  PartCodes(jet::Database& database, int profitCenter);

  // The parts whose bar code it is; where there is none, whose number; else whose vendor's number.
  // Neither case nor blanks count.
  std::vector<Part> Of(const std::string& code) const;

 private:
  enum class Kind { Bar, Number, Vendor };
  struct Code {
    std::string text;
    Kind kind;
    std::size_t part;
    auto operator<=>(const Code&) const = default;
  };
  void Add(const std::string& code, Kind kind);

  std::vector<Part> parts_;
  std::vector<Code> codes_;  // sorted
};

}  // namespace kvi
