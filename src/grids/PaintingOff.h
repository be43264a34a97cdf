#pragma once

#include "platform/Spread.h"

namespace kvi {

// Stops painting for the length of a routine, however it ends. Within another one it changes
// nothing.
class PaintingOff {
 public:
  explicit PaintingOff(Spread& grid) : grid_(grid) { grid_.SetReDraw(false); }
  ~PaintingOff() { grid_.SetReDraw(true); }
  PaintingOff(const PaintingOff&) = delete;
  PaintingOff& operator=(const PaintingOff&) = delete;

 private:
  Spread& grid_;
};

}  // namespace kvi
