#include "bench/desktop/walk/TimedDesktop.h"

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <fstream>
#include <utility>

#include "desktop/window/ProgressWindow.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/Screen.h"

namespace kvi::bench {

namespace {

// The kernel counts the peak anew from here on.
void ForgetPeak() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

double PeakMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == "VmHWM:" && status >> kilobytes) return kilobytes / 1024;
  }
  return 0;
}

double Milliseconds(std::chrono::steady_clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

}  // namespace

// A progress that says when it is seen.
class TimedDesktop::Watched : public ProgressWindow {
 public:
  Watched(TimedDesktop& desktop, const QString& title, bool canCancel)
      : ProgressWindow(title, canCancel, QApplication::activeWindow()), desktop_(desktop) {}

 protected:
  void Told() override {
    ProgressWindow::Told();
    if (Window() != nullptr) desktop_.Sign();
  }

 private:
  TimedDesktop& desktop_;
};

void TimedDesktop::Begin(const std::string& name) {
  ForgetPeak();
  name_ = name;
  longestSilence_ = {};
  begun_ = lastSign_ = Clock::now();
}

void TimedDesktop::Sign() {
  const auto now = Clock::now();
  longestSilence_ = std::max(longestSilence_, now - lastSign_);
  lastSign_ = now;
}

void TimedDesktop::End() {
  if (name_.empty()) return;
  QCoreApplication::processEvents();
  Sign();
  std::printf("%s\t%.0f\t%.0f\t%.0f\n", name_.c_str(), Milliseconds(lastSign_ - begun_),
              Milliseconds(longestSilence_), PeakMegabytes());
  std::fflush(stdout);
  name_.clear();
}

void TimedDesktop::Time(const std::string& name, const std::function<void()>& gesture) {
  Begin(name);
  gesture();
  End();
}

void TimedDesktop::Open(const std::string& name, const std::function<void()>& gesture,
                        const std::function<void()>& inside, const std::string& back) {
  inside_ = inside;
  back_ = back;
  Begin(name);
  gesture();
  if (!name_.empty() && name_ == name) std::printf("%s did not open\n", name.c_str());
  End();
}

void TimedDesktop::RunModal(Screen& screen) {
  QTimer::singleShot(0, WindowOf(screen), [this, &screen] {
    End();
    const std::string back = std::exchange(back_, "");
    if (const auto inside = std::exchange(inside_, {})) inside();
    if (!back.empty()) Begin(back);
    screen.Exit();
  });
  QtDesktop::RunModal(screen);
}

std::unique_ptr<Progress> TimedDesktop::NewProgress(const std::string& title, bool canCancel) {
  return std::make_unique<Watched>(*this, QString::fromStdString(title), canCancel);
}

Answer TimedDesktop::ShowBox(const Box& box) {
  std::fprintf(stderr, "%s: [%s] %s\n", name_.c_str(), box.title.c_str(), box.text.c_str());
  if (box.buttons == Buttons::Ok) return Answer::Ok;
  return box.buttons == Buttons::OkCancel ? Answer::Cancel : Answer::No;
}

std::optional<std::string> TimedDesktop::AskFile(const FileDialog&) {
  return "timed.xlsx";
}

}  // namespace kvi::bench
