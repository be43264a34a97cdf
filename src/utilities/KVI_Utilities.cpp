#include "utilities/KVI_Utilities.h"

#include <algorithm>
#include <filesystem>

#include "base/Flag.h"
#include "base/Number.h"
#include "base/Text.h"
#include "frame/ApplyColorScheme.h"
#include "frame/INI_SUBS.h"
#include "store/DropDown.h"
#include "store/OpenInventoryDatabase.h"

namespace kvi {

KVI_Utilities::KVI_Utilities(Application& app)
    : KviScreen(app, "KVI_Utilities", "Utilities", "Inventory - Utilities") {
  app_.profitCenters.ShowIn(pcenter);
  pcenter.Click = [this] {
    if (!settingUp_) TakeProfitCenter();
  };
  pcenter.LostFocus = [this] { LeaveProfitCenter(); };
  exit_lab.Click = [this] { Exit(); };
  browse_dir.SpokenName = "Browse for the directory";
  browse_program.SpokenName = "Browse for the program";
  FillColorSchemes();
  HandleSettings();
  HandleTasks();
}

void KVI_Utilities::FillColorSchemes() {
  for (const char* scheme : {"As the suite has it", "White on black", "White on dark grey",
                             "White on light grey", "Black on dark grey", "Black on light grey",
                             "White on red", "White on blue", "White on magenta"})
    color_scheme.AddItem(scheme);
}

void KVI_Utilities::HandleSettings() {
  co_title.Change = [this] { app_.settings.CompanyName = co_title.Text; };
  dir_loc.Change = [this] {
    app_.settings.DatabasePath = dir_loc.Text;
    directoryChanged_ = true;
  };
  dir_loc.LostFocus = [this] { CheckDirectory(); };
  SpreadPath.Change = [this] { app_.SpreadsheetPath = Trim(SpreadPath.Text()); };
  use_security.Click = [this] { app_.settings.UseSecurity = use_security.Value ? 1 : 0; };
  use_color.Click = [this] { app_.UseColors = use_color.Value; };
  use_osis.Click = [this] { app_.settings.UseOldStyleInventoryDetail = use_osis.Value ? 1 : 0; };
  browse_dir.Click = [this] { BrowseForDirectory(); };
  browse_program.Click = [this] { BrowseForProgram(); };
  // The first entry is no number, the second one 0, which no scheme has.
  color_scheme.Click = [this] {
    const int chosen = color_scheme.ListIndex();
    app_.settings.OwnColorScheme = chosen < 1 ? "" : Str(chosen - 1);
  };
  OptUseFIFO.Click = [this] { app_.settings.Valuation = ValuationMethod::FIFO; };
  OptUseAvg.Click = [this] { app_.settings.Valuation = ValuationMethod::Weighted; };
  OptUseLast.Click = [this] { app_.settings.Valuation = ValuationMethod::LastPrice; };
}

void KVI_Utilities::Prepare() {
  SSTab1.Tab = 0;
  dir_loc.Text = app_.settings.DatabasePath;
  directoryChanged_ = false;
}

void KVI_Utilities::Activate() {
  ApplyColorScheme(app_, *this);
  ShowSettings();
  ShowProfitCenter();
}

void KVI_Utilities::ShowSettings() {
  co_title.Text = app_.settings.CompanyName;
  SpreadPath.Text = app_.SpreadsheetPath;
  use_security.Value = app_.settings.UseSecurity != 0;
  use_color.Value = app_.UseColors;
  use_osis.Value = app_.settings.UseOldStyleInventoryDetail != 0;
  const std::string& scheme = app_.settings.OwnColorScheme;
  const int entry = scheme.empty() ? 0 : static_cast<int>(Val(scheme)) + 1;
  color_scheme.SetListIndex(std::clamp(entry, 0, color_scheme.ListCount() - 1));
  const auto method = app_.settings.Valuation;
  OptUseFIFO.Value = method == ValuationMethod::FIFO;
  OptUseAvg.Value = method == ValuationMethod::Weighted;
  OptUseLast.Value = method == ValuationMethod::LastPrice;
}

// Showing is not choosing. A number that no profit center has is the position that Main's combo was
// left at.
void KVI_Utilities::ShowProfitCenter() {
  const Flag settingUp(settingUp_);
  const int position = app_.profitCenters.PositionOf(app_.CurrentProfitCenter);
  pcenter.SetListIndex(std::clamp(position, -1, pcenter.ListCount() - 1));
}

void KVI_Utilities::TakeProfitCenter() {
  app_.CurrentProfitCenter = app_.profitCenters.NumberAt(pcenter.ListIndex());
  RefreshMasterRecordsets(app_);
  // Which switches the sign-in off where there is nobody to sign in.
  use_security.Value = app_.settings.UseSecurity != 0;
}

// Leaving the combo takes the position for the number, and Main's combo follows.
void KVI_Utilities::LeaveProfitCenter() {
  app_.CurrentProfitCenter = pcenter.ListIndex();
  app_.profitCenters.Select(pcenter.ListIndex());
}

void KVI_Utilities::CheckDirectory() {
  std::string folder = dir_loc.Text;
  if (!folder.empty() && (folder.back() == '\\' || folder.back() == '/')) folder.pop_back();
  dir_loc.Text = folder;
  std::error_code failure;
  const auto kind = std::filesystem::status(DatabasePathIn(app_, folder), failure).type();
  if (kind == std::filesystem::file_type::regular) return;
  if (kind == std::filesystem::file_type::none)
    Inform("An error has occurred locating KV_Inventory.mdb. (" + Str(failure.value()) + "-" +
           failure.message() + ")");
  else
    Inform("There is a problem locating KV_Inventory.mdb.");
  dir_loc.Text = "";
}

void KVI_Utilities::BrowseForDirectory() {
  const auto file = app_.desktop.OpenFileDialog(
      {.title = "Select the database",
       .filters = {{"Inventory Database (KV_Inventory.mdb)", "KV_Inventory.mdb"}},
       .start =
           app_.settings.DatabasePath.empty() ? app_.ProgramFolder : app_.settings.DatabasePath});
  if (!file) return;
  dir_loc.Text = std::filesystem::path(*file).parent_path().string();
  CheckDirectory();
}

void KVI_Utilities::BrowseForProgram() {
  const auto program = app_.desktop.OpenFileDialog({.title = "Select the spreadsheet program",
                                                    .filters = {{"All Files (*.*)", "*"}},
                                                    .start = app_.SpreadsheetPath});
  if (program) SpreadPath.Text = *program;
}

void KVI_Utilities::Exit() {
  WriteSettings(app_);
  app_.DatabaseDirectory = dir_loc.Text;
  if (directoryChanged_) {
    OpenInventoryDatabase(app_);
    LoadDropLists(app_);
  }
  CloseScreen();
}

Layout KVI_Utilities::Arrange() {
  constexpr double kPathWidth = 3.5;
  Layout company = Form(
      {Field("&Company Name/Title for Reports:", co_title, kPathWidth),
       Row({Field("&Directory where KV_Inventory.MDB is located (leave blank if normal):", dir_loc,
                  kPathWidth),
            Of(browse_dir)}),
       Text("A directory entered here counts until the program ends. From the next start on it is "
            "the one in the suite's file TARNWK.INI."),
       Row({Field("&Location of Spreadsheet/Database Program", SpreadPath, kPathWidth),
            Of(browse_program)})});
  Layout preferences =
      Column({Of(use_security), Of(use_color), Of(use_osis),
              Row({Field("C&olor scheme (from the next start on):", color_scheme, 2.2), Gap()}),
              Frame("Valuation", Row({Of(OptUseFIFO), Of(OptUseAvg), Of(OptUseLast), Gap()})),
              Row({Of(cmdUpdateAllValuations), Of(Command5), Gap()}), Gap()});
  Layout tasks = Column(
      {GridOf(3, {Of(Command1), Of(Command2), Of(cmdColWidth), Of(Command3), Of(Command4),
                  Of(cmdUpdateRecipeCosts), Of(Command6), Of(Command7), Of(cmdUpdateRecipeItems),
                  Of(create_file)}),
       Gap(),
       Frame("What these take away does not come back; a copy of the database is made before:",
             GridOf(2, {Of(cmdDeleteAllRecipes), Of(cmdDeleteAllItems), Of(remove_purchases),
                        Of(ZeroBtn)}))});
  return Column({BannerLayout(), Actions({&exit_lab}),
                 Row({Field("Current &inventory/profit center:", pcenter, 2.5), Gap()}),
                 Fill(Tabs(SSTab1, {Column({std::move(company), Gap()}), std::move(preferences),
                                    std::move(tasks)}))});
}

}  // namespace kvi
