#pragma once

#include "platform/Desktop.h"

namespace kvi::bench {

// A desktop without windows. Nobody is there to answer, so anything that waits for a user ends the
// program with what it said.
class BenchDesktop : public Desktop {
 public:
  void OpenWindow(Screen&, bool) override {}
  void RunModal(Screen& screen) override;
  void CloseWindow(Screen&) override {}
  void BringToFront(Screen&) override {}
  void EndAllLoops() override {}
  void DoEvents() override {}
  std::unique_ptr<Progress> NewProgress(const std::string&, bool) override;
  void SetPointer(MousePointer pointer) override { pointer_ = pointer; }
  MousePointer Pointer() const override { return pointer_; }
  void ClearClipboard() override {}
  void Beep() override {}
  void StartProgram(const std::string& commandLine) override;
  bool CanShowPicture(const std::string&) override { return true; }
  bool OpenHelp(const std::string&) override { return false; }
  std::unique_ptr<Surface> NewDocument(const std::string& jobName) override;
  std::unique_ptr<PrintRun> NewPrintRunOn(const std::string& title,
                                          std::optional<PaperSize> paper) override;
  TextMeasure& Measure() override;
  void PrintScreenImage(Screen&) override {}

 protected:
  Answer ShowBox(const Box& box) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override;
  std::optional<std::string> AskFile(const FileDialog& dialog) override;

 private:
  MousePointer pointer_ = MousePointer::Default;
};

}  // namespace kvi::bench
