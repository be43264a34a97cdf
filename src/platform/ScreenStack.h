#pragma once

#include <functional>
#include <string_view>
#include <vector>

namespace kvi {

class Desktop;
class Screen;

// The order of the shown screens, and the one door through which events enter the system. Showing a
// screen loads it if need be and activates it; when a modal screen closes, the one below activates
// again. A message box activates nothing. The Qt desktop and the tests run on this one stack.
class ScreenStack {
 public:
  explicit ScreenStack(Desktop& desktop) : desktop_(desktop) {}

  void Load(Screen& screen);
  void Show(Screen& screen);
  // Returns when the screen is hidden or unloaded.
  void ShowModal(Screen& screen);
  void Hide(Screen& screen);
  // Runs the Unload event and takes the window away.
  void Unload(Screen& screen);
  // The window's own box: the screen's Exit action.
  void CloseByUser(Screen& screen);

  Screen* Top() const;
  bool IsShown(const Screen& screen) const;
  const std::vector<Screen*>& Shown() const { return shown_; }  // the one in front last
  // The same of a screen that lies above the caller's floor.
  bool IsShown(std::string_view name) const;
  bool Ending() const { return ending_; }

  // The event guard. A RunTimeError that no routine handled becomes a box with the number, a blank
  // and the description, and the program goes on; EndOfProcess ends all loops and is thrown again
  // by whoever waits on them.
  void Guard(const std::function<void()>& event);

 private:
  void Activate(Screen& screen);
  void Leave(Screen& screen);

  Desktop& desktop_;
  std::vector<Screen*> shown_;
  bool ending_ = false;
};

}  // namespace kvi
