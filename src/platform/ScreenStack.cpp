#include "platform/ScreenStack.h"

#include <algorithm>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "platform/Desktop.h"
#include "platform/Screen.h"

namespace kvi {

void ScreenStack::Load(Screen& screen) {
  if (screen.loaded_) return;
  screen.stack_ = this;
  screen.loaded_ = true;
  try {
    screen.Load();
  } catch (...) {
    screen.loaded_ = false;
    throw;
  }
}

void ScreenStack::Show(Screen& screen) {
  Load(screen);
  if (IsShown(screen)) {
    desktop_.BringToFront(screen);
    return;
  }
  shown_.push_back(&screen);
  desktop_.OpenWindow(screen, false);
  Activate(screen);
}

void ScreenStack::ShowModal(Screen& screen) {
  Load(screen);
  shown_.push_back(&screen);
  desktop_.OpenWindow(screen, true);
  Activate(screen);
  if (IsShown(screen)) {
    desktop_.WaitComes();
    desktop_.RunModal(screen);
    if (ending_) throw EndOfProcess{};
  }
  Leave(screen);
  if (Screen* below = Top()) Activate(*below);
}

void ScreenStack::Hide(Screen& screen) {
  Leave(screen);
}

void ScreenStack::Unload(Screen& screen) {
  if (!screen.loaded_) return;
  screen.Unload();
  screen.loaded_ = false;
  Leave(screen);
}

void ScreenStack::CloseByUser(Screen& screen) {
  Guard([&] { screen.Exit(); });
}

Screen* ScreenStack::Top() const {
  return shown_.empty() ? nullptr : shown_.back();
}

bool ScreenStack::IsShown(const Screen& screen) const {
  return std::find(shown_.begin(), shown_.end(), &screen) != shown_.end();
}

bool ScreenStack::IsShown(std::string_view name) const {
  return std::any_of(shown_.begin(), shown_.end(),
                     [&](const Screen* screen) { return screen->Name() == name; });
}

void ScreenStack::Guard(const std::function<void()>& event) {
  try {
    try {
      event();
    } catch (const RunTimeError& error) {
      desktop_.MsgBox(
          {.text = std::to_string(error.Number) + " " + error.Description, .icon = Icon::Error});
    }
  } catch (const EndOfProcess&) {
    ending_ = true;
    desktop_.EndAllLoops();
  }
}

// An event of its own: its failure does not stop whoever showed or closed a screen.
void ScreenStack::Activate(Screen& screen) {
  Guard([&] { screen.Activate(); });
  if (ending_) throw EndOfProcess{};
}

void ScreenStack::Leave(Screen& screen) {
  if (std::erase(shown_, &screen) == 0) return;
  desktop_.CloseWindow(screen);
  screen.focused_ = nullptr;
  screen.clear_labels();
  screen.EndVisit();
}

}  // namespace kvi
