#pragma once

#include "platform/Spread.h"

namespace kvi {

// Stops painting for the length of a routine, however it ends; afterwards it is as it was before.
class PaintingOff {
 public:
  explicit PaintingOff(Spread& grid) : grid_(grid), before_(grid.ReDraw()) {
    grid_.SetReDraw(false);
  }
  ~PaintingOff() { grid_.SetReDraw(before_); }
  PaintingOff(const PaintingOff&) = delete;
  PaintingOff& operator=(const PaintingOff&) = delete;

 private:
  Spread& grid_;
  const bool before_;
};

}  // namespace kvi
