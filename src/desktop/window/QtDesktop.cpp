#include "desktop/window/QtDesktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDialog>
#include <QEventLoop>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenuBar>
#include <QProcess>
#include <QShortcut>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>

#include "base/RunTimeError.h"
#include "desktop/look/Look.h"
#include "desktop/look/Picture.h"
#include "desktop/look/QtText.h"
#include "desktop/printing/PrintService.h"
#include "desktop/window/CommandLine.h"
#include "desktop/window/ProgressWindow.h"
#include "desktop/window/ScreenReaderFaces.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/Gestures.h"
#include "platform/ScreenStack.h"
#include "platform/Surface.h"

namespace kvi {

namespace {

constexpr int kInvalidProcedureCall = 5;
constexpr int kFileNotFound = 53;

// Alt with a letter is an access key or nothing: no field takes the letter as typed.
class AltTypesNothing : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !receiver->isWidgetType() ||
        qobject_cast<QMenu*>(receiver) != nullptr || qobject_cast<QMenuBar*>(receiver) != nullptr)
      return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const auto commands = Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier;
    return (key->modifiers() & commands) == Qt::AltModifier && !key->text().isEmpty() &&
           key->text()[0].isPrint();
  }
};

std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv) {
  if (!QtDesktop::HasDisplay()) qputenv("QT_QPA_PLATFORM", "offscreen");
  auto app = std::make_unique<QApplication>(argc, argv);
  QApplication::setApplicationName("kestvar-inventory");
  QApplication::setQuitOnLastWindowClosed(false);
  ApplyLook(*app);
  InstallScreenReaderFaces();
  app->installEventFilter(new AltTypesNothing(app.get()));
  return app;
}

// The program as the machine knows it: a path that stands, or a name that PATH finds.
QString FindProgram(const QString& name) {
  if (name.contains('/')) return QFileInfo(name).isFile() ? name : QString();
  return QStandardPaths::findExecutable(name);
}

}  // namespace

bool QtDesktop::HasDisplay() {
  return !qEnvironmentVariableIsEmpty("DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

QtDesktop::QtDesktop(int& argc, char** argv)
    : app_(MakeApplication(argc, argv)),
      printing_(std::make_unique<PrintService>(
          [this](const std::string& text) { MsgBox({.text = text}); },
          [this](const std::string& path) {
            if (DocumentSaved) DocumentSaved(path);
          })) {}

QtDesktop::~QtDesktop() {
  CloseAllWindows();
}

void QtDesktop::SetProgramFolder(const std::string& folder) {
  printing_->SetProgramFolder(ToQt(folder));
}

void QtDesktop::PrintInto(const std::string& pdf) {
  printing_->PrintInto(ToQt(pdf));
}

bool QtDesktop::HasPrinter() {
  return PrintService::HasPrinter();
}

void QtDesktop::SetStack(ScreenStack& stack) {
  gestures_ = std::make_unique<Gestures>(stack);
}

int QtDesktop::RunEventLoop() {
  if (!ended_ && !shown_.empty()) {
    isRunning_ = true;
    QApplication::exec();
    isRunning_ = false;
  }
  CloseAllWindows();
  return 0;
}

void QtDesktop::CloseAllWindows() {
  while (!shown_.empty()) CloseWindow(*shown_.back().screen);
  // What deletes itself does so in an event loop, which may be over.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::vector<QtDesktop::Shown>::iterator QtDesktop::Find(const Screen& screen) {
  return std::find_if(shown_.begin(), shown_.end(),
                      [&](const Shown& shown) { return shown.screen == &screen; });
}

ScreenWindow* QtDesktop::WindowOf(const Screen& screen) const {
  for (const Shown& shown : shown_)
    if (shown.screen == &screen) return shown.window;
  return nullptr;
}

void QtDesktop::OpenWindow(Screen& screen, bool modal) {
  QWidget* below = DialogParent();
  auto* window = new ScreenWindow(screen, *gestures_, modal);
  shown_.push_back({&screen, window, nullptr});
  if (modal && below != nullptr) window->StayAbove(*below);
  auto* help = new QShortcut(QKeySequence::HelpContents, window);
  QObject::connect(help, &QShortcut::activated, window, [this, &screen] {
    if (HelpWanted) HelpWanted(screen);
  });
  window->show();
  window->activateWindow();
}

void QtDesktop::RunModal(Screen& screen) {
  if (ended_ || Find(screen) == shown_.end()) return;
  QEventLoop loop;
  Find(screen)->window->BeginVisit();
  Find(screen)->loop = &loop;
  loop.exec();
  const auto shown = Find(screen);
  if (shown != shown_.end()) shown->loop = nullptr;
}

void QtDesktop::CloseWindow(Screen& screen) {
  const auto found = Find(screen);
  if (found == shown_.end()) return;
  const Shown closed = *found;
  shown_.erase(found);
  closed.window->Dismiss();
  if (closed.loop != nullptr) closed.loop->quit();
  if (shown_.empty()) {
    // (Before that loop, an exit would take away every box and screen that comes until it runs.)
    if (isRunning_) QApplication::exit();
    return;
  }
  shown_.back().window->ComeBack();
  shown_.back().window->activateWindow();
}

void QtDesktop::BringToFront(Screen& screen) {
  const auto found = Find(screen);
  if (found == shown_.end()) return;
  std::rotate(found, found + 1, shown_.end());
  shown_.back().window->showNormal();
  shown_.back().window->raise();
  shown_.back().window->activateWindow();
}

void QtDesktop::EndAllLoops() {
  ended_ = true;
  for (QDialog* dialog : dialogs_) dialog->reject();
  for (const Shown& shown : shown_)
    if (shown.loop != nullptr) shown.loop->quit();
  QApplication::exit();
}

// Keys and clicks wait: a routine that lets events run does not expect another one to begin.
void QtDesktop::DoEvents() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

std::unique_ptr<Progress> QtDesktop::NewProgress(const std::string& title, bool canCancel) {
  return std::make_unique<ProgressWindow>(ToQt(title), canCancel, DialogParent());
}

void QtDesktop::SetPointer(MousePointer pointer) {
  if (pointer == pointer_) return;
  pointer_ = pointer;
  if (pointer == MousePointer::Hourglass)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

void QtDesktop::ClearClipboard() {
  QApplication::clipboard()->clear();
}

void QtDesktop::Beep() {
  QApplication::beep();
}

void QtDesktop::StartProgram(const std::string& commandLine) {
  QStringList words = SplitCommandLine(ToQt(commandLine));
  const QString program = words.isEmpty() ? QString() : FindProgram(words.takeFirst());
  if (program.isEmpty()) throw RunTimeError(kFileNotFound);
  if (!QProcess::startDetached(program, words)) throw RunTimeError(kInvalidProcedureCall);
}

bool QtDesktop::CanShowPicture(const std::string& path) {
  return !ReadPicture(ToQt(path)).isNull();
}

bool QtDesktop::OpenHelp(const std::string& path) {
  if (!QFileInfo(ToQt(path)).isFile()) return false;
  const bool isCompiled = ToQt(path).endsWith(".chm");
  const QString viewer = isCompiled ? QStandardPaths::findExecutable("xchm") : QString();
  if (!viewer.isEmpty()) return QProcess::startDetached(viewer, {ToQt(path)});
  return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path)));
}

std::unique_ptr<Surface> QtDesktop::NewDocument(const std::string& jobName) {
  return printing_->NewDocument(jobName,
                                shown_.empty() ? jobName : shown_.back().screen->Caption());
}

std::unique_ptr<PrintRun> QtDesktop::NewPrintRunOn(const std::string& title,
                                                   std::optional<PaperSize> paper) {
  return printing_->NewRun(title, paper);
}

TextMeasure& QtDesktop::Measure() {
  return printing_->Measure();
}

void QtDesktop::PrintScreenImage(Screen& screen) {
  ScreenWindow* window = WindowOf(screen);
  if (window == nullptr) return;
  window->Settle();
  printing_->PrintPicture(window->grab(), screen.Caption());
}

bool QtDesktop::SavePicture(Screen& screen, const std::string& pngPath, int width, int height) {
  ScreenWindow* window = WindowOf(screen);
  if (window == nullptr) return false;
  window->Settle();
  window->FitInto({width, height});
  QCoreApplication::processEvents();
  return window->grab().save(ToQt(pngPath), "PNG");
}

}  // namespace kvi
