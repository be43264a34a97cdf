#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "desktop/window/QtDesktop.h"

namespace kvi::bench {

// The program in windows that nobody sees, with a walker in the user's place. A step is a gesture
// and what happens until everything that it brought is painted. Boxes get the most careful answer.
class TimedDesktop : public QtDesktop {
 public:
  using QtDesktop::QtDesktop;

  // One step, and its line.
  void Time(const std::string& name, const std::function<void()>& gesture);
  // A step whose gesture shows a screen. `inside` is done there before the screen is left again; a
  // second line tells how long coming back took, where it has a name.
  void Open(const std::string& name, const std::function<void()>& gesture,
            const std::function<void()>& inside = {}, const std::string& back = "");

  void RunModal(Screen& screen) override;
  std::unique_ptr<Progress> NewProgress(const std::string& title, bool canCancel) override;

 protected:
  Answer ShowBox(const Box& box) override;
  std::optional<std::string> AskFile(const FileDialog& dialog) override;

 private:
  using Clock = std::chrono::steady_clock;
  class Watched;

  void Begin(const std::string& name);
  void End();
  // The user sees that something goes on.
  void Sign();

  std::string name_;  // of the step that is timed; else empty
  Clock::time_point begun_, lastSign_;
  Clock::duration longestSilence_{};
  std::function<void()> inside_;
  std::string back_;
};

}  // namespace kvi::bench
