#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kvi {

// A code as boxes to be filled, in modules (its narrowest bar) from its upper left corner, without
// the quiet zone around it.
struct BarCode {
  struct Bar {
    double x, y, width, height;
  };
  double width = 0, height = 0;
  std::vector<Bar> bars;
};

enum class BarCodeKind { Code128, QR };

// Nothing for a text that the kind cannot hold.
std::optional<BarCode> MakeBarCode(const std::string& text, BarCodeKind kind);

}  // namespace kvi
