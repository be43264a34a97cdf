#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Desktop.h"

class QApplication;
class QDialog;
class QEventLoop;
class QWidget;

namespace kvi {

class Gestures;
class PrintService;
class ScreenStack;
class ScreenWindow;

// The desktop on Qt: windows, boxes, printer and programs of the machine it runs on. It owns the
// application object and the windows of the shown screens, which must be closed before the screens
// end. Events of windows enter the system through the stack's guard, so no exception crosses an
// event loop.
class QtDesktop : public Desktop {
 public:
  // Draws off screen when the machine has no display. `argc` must live as long as the desktop.
  QtDesktop(int& argc, char** argv);
  ~QtDesktop() override;

  static bool HasDisplay();

  // Both before the first window: the folder that holds `printed/`, and the door for events.
  void SetProgramFolder(const std::string& folder);
  void SetStack(ScreenStack& stack);

  // What is printed goes into this PDF from here on.
  void PrintInto(const std::string& pdf);
  static bool HasPrinter();

  // F1 on a shown screen.
  std::function<void(const Screen& screen)> HelpWanted;

  // Runs until EndAllLoops or until no window is open, then takes all windows away.
  int RunEventLoop();
  void CloseAllWindows();

  // The window of a shown screen as a PNG, as on a display of that many pixels; false when it has
  // none or the file cannot be written.
  bool SavePicture(Screen& screen, const std::string& pngPath, int width, int height);
  // The window of a shown screen, or null.
  ScreenWindow* WindowOf(const Screen& screen) const;

  void OpenWindow(Screen& screen, bool modal) override;
  void RunModal(Screen& screen) override;
  void CloseWindow(Screen& screen) override;
  void BringToFront(Screen& screen) override;
  void EndAllLoops() override;
  void DoEvents() override;
  std::unique_ptr<Progress> NewProgress(const std::string& title, bool canCancel) override;
  void SetPointer(MousePointer pointer) override;
  MousePointer Pointer() const override { return pointer_; }
  void ClearClipboard() override;
  void Beep() override;
  void StartProgram(const std::string& commandLine) override;
  bool CanShowPicture(const std::string& path) override;
  bool OpenHelp(const std::string& path) override;
  std::unique_ptr<Surface> NewDocument(const std::string& jobName) override;
  std::unique_ptr<PrintRun> NewPrintRunOn(const std::string& title,
                                          std::optional<PaperSize> paper) override;
  TextMeasure& Measure() override;
  void PrintScreenImage(Screen& screen) override;

 protected:
  Answer ShowBox(const Box& box) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override;
  std::optional<std::string> AskFile(const FileDialog& dialog) override;

 private:
  struct Shown {
    Screen* screen;
    ScreenWindow* window;
    QEventLoop* loop;  // of a modal screen that is waited for
  };
  std::vector<Shown>::iterator Find(const Screen& screen);
  QWidget* DialogParent() const;
  int RunDialog(QDialog& dialog);

  std::unique_ptr<QApplication> app_;
  std::unique_ptr<Gestures> gestures_;
  std::unique_ptr<PrintService> printing_;
  std::vector<Shown> shown_;  // the last one is in front
  std::vector<QDialog*> dialogs_;
  MousePointer pointer_ = MousePointer::Default;
  bool isRunning_ = false, ended_ = false;
};

}  // namespace kvi
