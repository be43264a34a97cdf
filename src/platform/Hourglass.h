#pragma once

#include "platform/Desktop.h"

namespace kvi {

// The busy pointer for the length of a routine; the pointer before it comes back on every way out.
class Hourglass {
 public:
  explicit Hourglass(Desktop& desktop) : desktop_(desktop), before_(desktop.Pointer()) {
    desktop_.SetPointer(MousePointer::Hourglass);
  }
  ~Hourglass() { desktop_.SetPointer(before_); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  Desktop& desktop_;
  MousePointer before_;
};

}  // namespace kvi
