#include "desktop/controls/WindowInput.h"

#include <utility>

namespace kvi {

void WindowInput::Close(std::function<void()> idle) {
  open_ = false;
  if (underWay_ == 0)
    idle();
  else
    idle_ = std::move(idle);
}

void WindowInput::Hand(const std::function<void(Gestures&)>& event) {
  if (!open_) return;
  ++underWay_;
  event(gestures_);
  if (--underWay_ == 0 && idle_) std::exchange(idle_, nullptr)();
}

}  // namespace kvi
