#pragma once

#include "platform/Desktop.h"

namespace kvi {

// The busy pointer for the length of a routine. On every way out it is the usual one, whatever
// stood before: so what a failed routine left busy ends with the next one that goes well.
class Hourglass {
 public:
  explicit Hourglass(Desktop& desktop) : desktop_(desktop) {
    desktop_.SetPointer(MousePointer::Hourglass);
  }
  ~Hourglass() { desktop_.SetPointer(MousePointer::Default); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  Desktop& desktop_;
};

}  // namespace kvi
