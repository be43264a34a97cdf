#include "platform/Desktop.h"

#include "platform/Surface.h"

namespace kvi {

namespace {

class UsualPointer {
 public:
  explicit UsualPointer(Desktop& desktop) : desktop_(desktop), before_(desktop.Pointer()) {
    desktop_.SetPointer(MousePointer::Default);
  }
  ~UsualPointer() { desktop_.SetPointer(before_); }
  UsualPointer(const UsualPointer&) = delete;
  UsualPointer& operator=(const UsualPointer&) = delete;

 private:
  Desktop& desktop_;
  const MousePointer before_;
};

}  // namespace

Answer Desktop::MsgBox(const Box& box) {
  WaitComes();
  const UsualPointer usual(*this);
  return ShowBox(box);
}

std::optional<std::string> Desktop::InputBox(const std::string& prompt, const std::string& title,
                                             const std::string& initial) {
  WaitComes();
  const UsualPointer usual(*this);
  return AskText(prompt, title, initial);
}

std::optional<std::string> Desktop::OpenFileDialog(const FileDialog& dialog) {
  WaitComes();
  const UsualPointer usual(*this);
  return AskFile(dialog);
}

std::optional<std::string> Desktop::SaveFileDialog(FileDialog dialog) {
  dialog.saves = true;
  return OpenFileDialog(dialog);
}

std::unique_ptr<PrintRun> Desktop::NewPrintRun(const std::string& title) {
  return NewPrintRunOn(title, std::nullopt);
}

void Desktop::WaitComes() const {
  CheckWait();
  if (BeforeWait) BeforeWait();
}

}  // namespace kvi
