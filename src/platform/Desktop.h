#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kvi {

class PrintRun;
class Progress;
class Screen;
class Surface;
class TextMeasure;

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Information, Question, Warning, Error };
enum class Answer { Ok, Cancel, Yes, No };
enum class MousePointer { Default, Hourglass };

// A question of Yes and No alone is answered by one of the two: no Escape and no close box.
struct Box {
  std::string text;
  std::string title = "Kestvar Inventory";
  Buttons buttons = Buttons::Ok;
  Icon icon = Icon::Information;
  std::optional<Answer> defaultAnswer = std::nullopt;  // of Enter; else the first button's
};

struct FileFilter {
  std::string name;     // "Bitmap Files (*.bmp)"
  std::string pattern;  // "*.bmp"
};

struct FileDialog {
  std::string title;
  std::vector<FileFilter> filters;
  std::string start;   // a folder or a file; a name alone lies where people keep their documents
  bool saves = false;  // asks for a file to be made, else for one that is there
};

// Upright, in inches.
struct PaperSize {
  double width, height;
};

// The one interface to the outside: what the system asks of the machine it runs on. The Qt desktop
// and the scripted desktop of the tests implement it. Before it waits for the user (a box, an input
// box, a file dialog, a modal screen) it calls BeforeWait, so that nothing stays locked while a
// person thinks; a box shows the usual pointer, and the one that stood comes back behind it.
class Desktop {
 public:
  virtual ~Desktop() = default;

  Answer MsgBox(const Box& box);
  // Nothing when the user cancels.
  std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                      const std::string& initial = "");
  std::optional<std::string> OpenFileDialog(const FileDialog& dialog);
  // Has asked before a file that is there is to be replaced.
  std::optional<std::string> SaveFileDialog(FileDialog dialog);

  std::function<void()> BeforeWait;
  // The one door to every wait. Whoever comes here has ended what must not last as long as a person
  // thinks: painting is on and no screen is being set up.
  void WaitComes() const;

  // Windows, as the ScreenStack drives them. RunModal returns once CloseWindow was called for the
  // screen or all loops were ended.
  virtual void OpenWindow(Screen& screen, bool modal) = 0;
  virtual void RunModal(Screen& screen) = 0;
  virtual void CloseWindow(Screen& screen) = 0;
  virtual void BringToFront(Screen& screen) = 0;
  virtual void EndAllLoops() = 0;
  virtual void DoEvents() = 0;

  // For a routine that may last: nothing else can be used meanwhile, and the windows below stay
  // painted. Cancel is offered where the routine can stop.
  virtual std::unique_ptr<Progress> NewProgress(const std::string& title, bool canCancel) = 0;
  virtual void SetPointer(MousePointer pointer) = 0;
  virtual MousePointer Pointer() const = 0;
  virtual void ClearClipboard() = 0;
  // The sound of something that is not understood.
  virtual void Beep() = 0;
  // Starts a program without waiting; raises 53 when it is not found, 5 when it cannot start.
  // `commandLine` is split at blanks outside of double quotes.
  virtual void StartProgram(const std::string& commandLine) = 0;
  // Whether the file is there and holds a picture that a PictureBox can show.
  virtual bool CanShowPicture(const std::string& path) = 0;
  // False when there is no such file or nothing to show it with.
  virtual bool OpenHelp(const std::string& path) = 0;

  // A new document on the printer, or a PDF under the program's folder when there is none. Raises
  // 482 (printer error) when neither can be written.
  virtual std::unique_ptr<Surface> NewDocument(const std::string& jobName) = 0;
  // The same for a run of documents; without a printer one PDF holds them all. Nothing is made
  // until the first drawing.
  std::unique_ptr<PrintRun> NewPrintRun(const std::string& title);
  // On paper of a kind; else on what the printer has, and letters in a PDF.
  virtual std::unique_ptr<PrintRun> NewPrintRunOn(const std::string& title,
                                                  std::optional<PaperSize> paper) = 0;
  // How wide and high texts come out on paper.
  virtual TextMeasure& Measure() = 0;
  virtual void PrintScreenImage(Screen& screen) = 0;
  // Called with the path of each document that became a PDF, once it is whole.
  std::function<void(const std::string& path)> DocumentSaved;

 protected:
  // For a desktop that looks whether the rule of WaitComes was kept.
  virtual void CheckWait() const {}
  virtual Answer ShowBox(const Box& box) = 0;
  virtual std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                             const std::string& initial) = 0;
  virtual std::optional<std::string> AskFile(const FileDialog& dialog) = 0;
};

}  // namespace kvi
