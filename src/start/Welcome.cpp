#include "start/Welcome.h"

#include <filesystem>

#include "platform/Hourglass.h"

namespace kvi {

Welcome::Welcome(Application& app) : Screen("Welcome", "Kestvar Inventory"), app_(app) {
  empty.Default = true;
  empty.Click = [this] { SetUp({}); };
  sample.Click = [this] { SetUp(fill_); };
  shared.Click = [this] { OpenShared(); };
  old.Click = [this] {
    SetUp({});
    hasOldData_ = isSetUp_;
  };
  leave.Cancel = true;
  leave.Click = [this] { Exit(); };
}

bool Welcome::AskHowToStart(std::function<void(jet::Database&)> fill) {
  fill_ = std::move(fill);
  app_.screens.ShowModal(*this);
  return isSetUp_;
}

void Welcome::SetUp(const std::function<void(jet::Database&)>& fill) {
  {
    const Hourglass busy(app_.desktop);
    SetUpFolder(app_.ProgramFolder, FindSpreadsheetProgram(), fill);
  }
  isSetUp_ = true;
  CloseScreen();
}

void Welcome::OpenShared() {
  const auto file = app_.desktop.OpenFileDialog(
      {"Where is the stockroom?", {{"Stockroom (KV_Inventory.mdb)", "KV_Inventory.mdb"}}, ""});
  if (!file) return;
  settingsOfDesk_ = SetUpDesk(app_.ProgramFolder, FindSpreadsheetProgram(),
                              std::filesystem::path(*file).parent_path());
  isSetUp_ = true;
  CloseScreen();
}

void Welcome::TakeBack() {
  std::error_code ignored;
  for (const SetUpFile& file : settingsOfDesk_)
    if (file.Made) std::filesystem::remove(file.Path, ignored);
}

Layout Welcome::Arrange() {
  return Column(
      {Of(greeting), Of(question), Of(empty), Of(sample), Of(shared), Of(old), Of(leave)});
}

}  // namespace kvi
