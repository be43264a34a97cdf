#pragma once

#include <functional>

namespace kvi {

class Gestures;

// The way of one window's events into the system. It counts the events under way, so that a window
// that one of them closes lives until it returned. Nothing is handed over while it is being built.
class WindowInput {
 public:
  explicit WindowInput(Gestures& gestures) : gestures_(gestures) {}

  bool IsOpen() const { return open_; }
  void Open() { open_ = true; }
  // After it nothing is handed over. `idle` runs as soon as no event is under way.
  void Close(std::function<void()> idle);

  // Nothing happens on a closed window.
  void Hand(const std::function<void(Gestures&)>& event);

 private:
  Gestures& gestures_;
  std::function<void()> idle_;
  int underWay_ = 0;
  bool open_ = false;
};

}  // namespace kvi
