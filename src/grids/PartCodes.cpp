#include "grids/PartCodes.h"

#include <algorithm>

#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

namespace {

constexpr const char* kVendorFields[] = {"w1_id", "w2_id", "w3_id"};

std::string Folded(const std::string& code) {
  return UCase(Replace(code, " ", ""));
}

}  // namespace

PartCodes::PartCodes(jet::Database& database, int profitCenter) {
  auto rows = database.OpenSnapshot(
      "SELECT * FROM I_Master WHERE pcenter = " + Str(profitCenter),
      {"inv_id", "name", "BarCodeScan", kVendorFields[0], kVendorFields[1], kVendorFields[2]});
  for (; !rows.Eof(); rows.MoveNext()) {
    parts_.push_back({Trim(rows.Text("inv_id")), Trim(rows.Text("name"))});
    Add(rows.Text("BarCodeScan"), Kind::Bar);
    Add(rows.Text("inv_id"), Kind::Number);
    for (const char* field : kVendorFields) Add(rows.Text(field), Kind::Vendor);
  }
  std::ranges::sort(codes_);
  // Two vendors may have one number for a part.
  const auto same = std::ranges::unique(codes_);
  codes_.erase(same.begin(), same.end());
}

void PartCodes::Add(const std::string& code, Kind kind) {
  std::string text = Folded(code);
  if (!text.empty()) codes_.push_back({std::move(text), kind, parts_.size() - 1});
}

std::vector<PartCodes::Part> PartCodes::Of(const std::string& code) const {
  const auto found = std::ranges::equal_range(codes_, Folded(code), {}, &Code::text);
  std::vector<Part> parts;
  for (const Code& match : found)
    if (match.kind == found.front().kind) parts.push_back(parts_[match.part]);
  return parts;
}

}  // namespace kvi
