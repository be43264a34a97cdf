#include "bench/BenchDesktop.h"

#include <cstdio>
#include <cstdlib>

#include "platform/Progress.h"
#include "platform/Screen.h"
#include "platform/Surface.h"

namespace kvi::bench {
namespace {

[[noreturn]] void Unexpected(const char* what, const std::string& text) {
  std::fprintf(stderr, "Unexpected %s: %s\n", what, text.c_str());
  std::abort();
}

class NobodyLooks : public Progress {
 public:
  bool Cancelled() const override { return false; }

 protected:
  void Told() override {}
};

}  // namespace

std::unique_ptr<Progress> BenchDesktop::NewProgress(const std::string&, bool) {
  return std::make_unique<NobodyLooks>();
}
void BenchDesktop::RunModal(Screen& screen) {
  Unexpected("screen", screen.Name());
}
void BenchDesktop::StartProgram(const std::string& commandLine) {
  Unexpected("program", commandLine);
}
std::unique_ptr<Surface> BenchDesktop::NewDocument(const std::string& jobName) {
  Unexpected("document", jobName);
}
std::unique_ptr<PrintRun> BenchDesktop::NewPrintRunOn(const std::string& title,
                                                      std::optional<PaperSize>) {
  Unexpected("print run", title);
}
TextMeasure& BenchDesktop::Measure() {
  Unexpected("measure", "");
}
Answer BenchDesktop::ShowBox(const Box& box) {
  Unexpected("box", box.text);
}
std::optional<std::string> BenchDesktop::AskText(const std::string& prompt, const std::string&,
                                                 const std::string&) {
  Unexpected("question", prompt);
}
std::optional<std::string> BenchDesktop::AskFile(const FileDialog& dialog) {
  Unexpected("file dialog", dialog.title);
}

}  // namespace kvi::bench
