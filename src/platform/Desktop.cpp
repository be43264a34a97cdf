#include "platform/Desktop.h"

namespace kvi {

Answer Desktop::MsgBox(const Box& box) {
  WaitComes();
  return ShowBox(box);
}

std::optional<std::string> Desktop::InputBox(const std::string& prompt, const std::string& title,
                                             const std::string& initial) {
  WaitComes();
  return AskText(prompt, title, initial);
}

std::optional<std::string> Desktop::OpenFileDialog(const FileDialog& dialog) {
  WaitComes();
  return AskFile(dialog);
}

void Desktop::WaitComes() const {
  if (BeforeWait) BeforeWait();
}

}  // namespace kvi
