#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/Desktop.h"
#include "support/RecordingSurface.h"

namespace kvi::test {

// The desktop of the tests: it is told beforehand, in order, which boxes and screens will come and
// how the user answers them. One that was not expected, one in another order, and one that never
// came fail the test.
class ScriptedDesktop : public Desktop {
 public:
  ~ScriptedDesktop() override;

  // Box texts and titles are compared whole.
  void ExpectBox(std::string text, Answer answer = Answer::Ok,
                 std::string title = "Kestvar Inventory");
  // What happens elsewhere while the user looks at the box expected last.
  void Meanwhile(std::function<void()> action);
  void ExpectInput(std::string prompt, std::optional<std::string> answer, std::string title);
  void ExpectFile(std::string title, std::optional<std::string> answer);
  // The user's acts on a modal screen; they must end with its closing.
  void ExpectScreen(std::string name, std::function<void()> user);
  void ExpectProgram(std::string commandLine, int failsWith = 0);
  // Fails the test for each thing that has not come yet.
  void AllCame();

  void OpenWindow(Screen& screen, bool modal) override;
  void RunModal(Screen& screen) override;
  void CloseWindow(Screen& screen) override;
  void BringToFront(Screen& screen) override;
  void EndAllLoops() override { ended = true; }
  void DoEvents() override {}
  std::unique_ptr<Progress> NewProgress(const std::string& title, bool canCancel) override;
  void SetPointer(MousePointer pointer) override { pointer_ = pointer; }
  MousePointer Pointer() const override { return pointer_; }
  void ClearClipboard() override { clipboardCleared = true; }
  void Beep() override { ++beeps; }
  void StartProgram(const std::string& commandLine) override;
  bool CanShowPicture(const std::string& path) override;
  bool OpenHelp(const std::string& path) override;
  std::unique_ptr<Surface> NewDocument(const std::string& jobName) override;
  std::unique_ptr<PrintRun> NewPrintRunOn(const std::string& title,
                                          std::optional<PaperSize> paper) override;
  TextMeasure& Measure() override { return measure_; }
  void PrintScreenImage(Screen& screen) override;

  // Looks whether nothing is half done, whenever the program waits for its user.
  std::function<void()> checkWait;

  bool ended = false;
  bool clipboardCleared = false;
  int beeps = 0;
  bool helpOpens = true;
  std::set<std::string> brokenPictures;  // paths of files that no picture can be read from
  std::vector<std::string> openWindows;  // screen names, the topmost last
  std::vector<std::string> helpOpened;
  std::vector<std::string> screensPrinted;
  std::vector<std::shared_ptr<RecordedDocument>> documents;
  std::vector<std::string> progress;  // the steps told, "title: step, total"
  // The user presses Cancel once so much of the step is told as done.
  std::optional<std::pair<std::string, int>> cancelAt;

 protected:
  void CheckWait() const override {
    if (checkWait) checkWait();
  }
  Answer ShowBox(const Box& box) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override;
  std::optional<std::string> AskFile(const FileDialog& dialog) override;

 private:
  struct Step {
    std::string kind, text;
    Answer answer = Answer::Ok;
    std::optional<std::string> typed;
    std::function<void()> user;
    int failsWith = 0;
  };
  // The next step if it is the one that came, else a failure.
  std::optional<Step> Take(const std::string& kind, const std::string& text);

  EvenMeasure measure_;
  std::deque<Step> steps_;
  MousePointer pointer_ = MousePointer::Default;
};

}  // namespace kvi::test
