#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "platform/Progress.h"
#include "platform/Screen.h"

namespace kvi::test {

namespace {

std::string BoxText(const std::string& title, const std::string& text) {
  return "[" + title + "] " + text;
}

class ScriptedProgress : public Progress {
 public:
  ScriptedProgress(ScriptedDesktop& desktop, std::string title, bool canCancel)
      : desktop_(desktop), title_(std::move(title)), canCancel_(canCancel) {}
  bool Cancelled() const override { return cancelled_; }

 protected:
  void Told() override {
    if (Done() == 0)
      desktop_.progress.push_back(title_ + ": " + Step() + ", " + std::to_string(Total()));
    EXPECT_TRUE(Total() == 0 || Done() <= Total()) << Step();
    if (desktop_.cancelAt == std::pair(Step(), Done())) {
      EXPECT_TRUE(canCancel_) << title_ << " offers no Cancel";
      cancelled_ = canCancel_;
    }
  }

 private:
  ScriptedDesktop& desktop_;
  const std::string title_;
  const bool canCancel_;
  bool cancelled_ = false;
};

}  // namespace

ScriptedDesktop::~ScriptedDesktop() {
  AllCame();
}

void ScriptedDesktop::ExpectBox(std::string text, Answer answer, std::string title) {
  steps_.push_back({.kind = "box", .text = BoxText(title, text), .answer = answer});
}

void ScriptedDesktop::Meanwhile(std::function<void()> action) {
  steps_.back().user = std::move(action);
}

void ScriptedDesktop::ExpectInput(std::string prompt, std::optional<std::string> answer,
                                  std::string title) {
  steps_.push_back({.kind = "input", .text = BoxText(title, prompt), .typed = std::move(answer)});
}

void ScriptedDesktop::ExpectFile(std::string title, std::optional<std::string> answer) {
  steps_.push_back({.kind = "file", .text = std::move(title), .typed = std::move(answer)});
}

void ScriptedDesktop::ExpectScreen(std::string name, std::function<void()> user) {
  steps_.push_back({.kind = "screen", .text = std::move(name), .user = std::move(user)});
}

void ScriptedDesktop::ExpectProgram(std::string commandLine, int failsWith) {
  steps_.push_back({.kind = "program", .text = std::move(commandLine), .failsWith = failsWith});
}

void ScriptedDesktop::AllCame() {
  for (const Step& step : steps_) ADD_FAILURE() << "never came: " << step.kind << " " << step.text;
  steps_.clear();
}

std::optional<ScriptedDesktop::Step> ScriptedDesktop::Take(const std::string& kind,
                                                           const std::string& text) {
  if (steps_.empty()) {
    ADD_FAILURE() << "unexpected " << kind << ": " << text;
    return std::nullopt;
  }
  if (steps_.front().kind != kind || steps_.front().text != text) {
    ADD_FAILURE() << "came:     " << kind << " " << text << "\nexpected: " << steps_.front().kind
                  << " " << steps_.front().text;
    return std::nullopt;
  }
  Step step = std::move(steps_.front());
  steps_.pop_front();
  return step;
}

void ScriptedDesktop::OpenWindow(Screen& screen, bool) {
  openWindows.push_back(screen.Name());
}

void ScriptedDesktop::RunModal(Screen& screen) {
  const auto step = Take("screen", screen.Name());
  if (!step) return;
  step->user();
  if (ended) return;
  for (const std::string& open : openWindows)
    if (open == screen.Name()) ADD_FAILURE() << screen.Name() << " was left open";
}

void ScriptedDesktop::CloseWindow(Screen& screen) {
  std::erase(openWindows, screen.Name());
}

void ScriptedDesktop::BringToFront(Screen& screen) {
  std::erase(openWindows, screen.Name());
  openWindows.push_back(screen.Name());
}

std::unique_ptr<Progress> ScriptedDesktop::NewProgress(const std::string& title, bool canCancel) {
  return std::make_unique<ScriptedProgress>(*this, title, canCancel);
}

void ScriptedDesktop::StartProgram(const std::string& commandLine) {
  const auto step = Take("program", commandLine);
  if (step && step->failsWith != 0) throw RunTimeError(step->failsWith);
}

bool ScriptedDesktop::CanShowPicture(const std::string& path) {
  return !brokenPictures.contains(path);
}

bool ScriptedDesktop::OpenHelp(const std::string& path) {
  helpOpened.push_back(path);
  return helpOpens;
}

std::unique_ptr<Surface> ScriptedDesktop::NewDocument(const std::string& jobName) {
  documents.push_back(std::make_shared<RecordedDocument>());
  documents.back()->jobName = jobName;
  return std::make_unique<RecordingSurface>(documents.back());
}

std::unique_ptr<PrintRun> ScriptedDesktop::NewPrintRunOn(const std::string& title,
                                                         std::optional<PaperSize>) {
  return std::make_unique<RecordingRun>(title, documents);
}

void ScriptedDesktop::PrintScreenImage(Screen& screen) {
  screensPrinted.push_back(screen.Name());
}

Answer ScriptedDesktop::ShowBox(const Box& box) {
  const auto step = Take("box", BoxText(box.title, box.text));
  if (step && step->user) step->user();
  return step ? step->answer : Answer::Cancel;
}

std::optional<std::string> ScriptedDesktop::AskText(const std::string& prompt,
                                                    const std::string& title, const std::string&) {
  const auto step = Take("input", BoxText(title, prompt));
  return step ? step->typed : std::nullopt;
}

std::optional<std::string> ScriptedDesktop::AskFile(const FileDialog& dialog) {
  const auto step = Take("file", dialog.title);
  return step ? step->typed : std::nullopt;
}

}  // namespace kvi::test
