#include "start/Main.h"

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/ApplyColorScheme.h"
#include "frame/INI_SUBS.h"
#include "frame/Manual.h"
#include "frame/Wording.h"
#include "items/KVI_ChooseVendors.h"
#include "items/KVI_InventoryDetail.h"
#include "items/KVI_InventorySummary.h"
#include "ordering/KVI_OrderSystem.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/KVI_PGSummary.h"
#include "reports/KVI_ReportsAnalysis.h"
#include "security/CheckAccess.h"
#include "security/KVI_SecurityCheckpoint.h"
#include "start/Version.h"
#include "stock/KVI_UpdateInventory.h"
#include "store/DropDown.h"
#include "store/OpenInventoryDatabase.h"
#include "usage/KVI_UsageAnalysis.h"
#include "utilities/DeleteAllRecords.h"
#include "utilities/FullAccess.h"
#include "utilities/KVI_Backups.h"
#include "utilities/KVI_Utilities.h"
#include "valuation/ItemValuation.h"
#include "vendors/KVI_VendorSummary.h"

namespace kvi {

Main::Main(Application& app) : Screen("Main", "Kestvar Inventory"), app_(app) {
  app_.profitCenters.ShowIn(pcenter);
  pcenter.LostFocus = [this] { LeaveProfitCenter(); };
  Label1.Click = [this] {
    if (MayOpen(kInventoryModule)) app_.screens.ShowModal(app_.Get<KVI_InventorySummary>());
  };
  MaintProc.Click = [this] {
    if (MayOpen(kPartGroupModule)) app_.screens.ShowModal(app_.Get<KVI_PGSummary>());
  };
  Label16.Click = [this] {
    if (MayOpen(kOrderModule)) app_.screens.ShowModal(app_.Get<KVI_OrderSystem>());
  };
  Label6.Click = [this] {
    if (MayOpen(kUpdateModule)) app_.screens.ShowModal(app_.Get<KVI_UpdateInventory>());
  };
  Label2.Click = [this] {
    app_.ItemsAtHand = MayOpenWithItems(kUsageModule);
    if (app_.ItemsAtHand) app_.screens.ShowModal(app_.Get<KVI_UsageAnalysis>());
  };
  Label3.Click = [this] { OpenReports(); };
  m_f_new.Click = [this] { StartNewDatabase(); };
  m_f_backup.Click = [this] { app_.Get<KVI_Backups>().BackUpNow(); };
  m_f_restore.Click = [this] { app_.screens.ShowModal(app_.Get<KVI_Backups>()); };
  m_f_print.Click = [this] { OpenReports(); };
  Label7.Click = [this] {
    if (MayOpen(kUtilityModule)) app_.screens.ShowModal(app_.Get<KVI_Utilities>());
  };
  vendors.Click = [this] { app_.screens.ShowModal(app_.Get<KVI_VendorSummary>()); };
  Label9.Click = m_f_exit.Click = [this] { Exit(); };
  m_help_sm.Click = [this] { OpenHelp(app_); };
}

// The order counts: later steps read what earlier ones left, and the user can touch nothing before
// the end.
void Main::Load() {
  app_.desktop.SetPointer(MousePointer::Hourglass);
  ReadRights();
  app_.HighlightColor = kWhite;
  FillDayNames();
  CenterForm();
  app_.Get<KVI_Utilities>();
  app_.Get<KVI_InventoryDetail>();
  app_.Get<KVI_ChooseVendors>();
  app_.Get<KVI_PGDetail>();
  ReadSettings(app_);
  network.Visible = app_.settings.NetworkVisible;
  OpenInventoryDatabase(app_);
  app_.screens.Show(*this);
  app_.desktop.ClearClipboard();
  LoadDropLists(app_);
  app_.desktop.SetPointer(MousePointer::Default);
  if (app_.settings.UseSecurity == 1) AskWhoItIs();
  lblVersion.Caption = VersionText();
  ApplyColorScheme(app_, *this);
}

void Main::ReadRights() {
  constexpr std::size_t kFirst = 4, kCount = 4;
  // The four characters stand where the marker ends when it comes first; wherever else the marker
  // stands, the same four positions are taken.
  const bool handedOver = app_.CommandLine.find("/S:") != std::string::npos;
  app_.AccessString = handedOver ? Mid(app_.CommandLine, kFirst, kCount) : "WWWW";
}

void Main::FillDayNames() {
  app_.DayNames = {"",          "Sunday",   "Monday", "Tuesday",
                   "Wednesday", "Thursday", "Friday", "Saturday"};
}

void Main::AskWhoItIs() {
  app_.screens.ShowModal(app_.Get<KVI_SecurityCheckpoint>());
  if (app_.CurrentEmployeeCode.IsNull()) {
    app_.desktop.MsgBox({.text = "You have not entered a valid ID number or have hit 'cancel'.  "
                                 "Please try again."});
    throw EndOfProcess{};
  }
  if (app_.CurrentEmployeeCode.Number() < 1) throw EndOfProcess{};
}

// Takes the position for the number, unlike the combo of Utilities, which looks the number up.
void Main::LeaveProfitCenter() {
  app_.CurrentProfitCenter = pcenter.ListIndex();
}

bool Main::MayOpen(int module) {
  if (CheckAccess(app_.AccessString, module, kReadAccess)) return true;
  app_.desktop.MsgBox({.text = "Current security clearance does not allow access to this module."});
  return false;
}

bool Main::MayOpenWithItems(int module) {
  if (!MayOpen(module)) return false;
  if (app_.ItemSet.RecordCount() > 0) return true;
  app_.desktop.MsgBox(
      {.text = "No items in the system.  Click on the '+' icon to add a new item."});
  return false;
}

void Main::OpenReports() {
  if (!MayOpenWithItems(kReportModule)) return;
  // Every report of valuations works on figures renewed at this moment.
  UpdateAllValuations(app_.CurrentDatabase, app_.settings.Valuation, app_.desktop,
                      app_.CurrentProfitCenter);
  app_.screens.ShowModal(app_.Get<KVI_ReportsAnalysis>());
}

// Not by the exit: the settings are written and the database is closed already.
void Main::StartNewDatabase() {
  if (!HasFullAccess(app_) || !NewDatabaseWipe(app_)) return;
  app_.desktop.MsgBox({.text = "A new database has been created. Please restart the program."});
  throw EndOfProcess{};
}

void Main::Unload() {
  try {
    WriteSettings(app_);
    app_.desktop.DoEvents();
    app_.CurrentDatabase.Close();
    app_.desktop.DoEvents();
  } catch (const RunTimeError& error) {
    app_.desktop.MsgBox({.text = Str(error.Number) + " " + error.Description, .icon = Icon::Error});
  }
  throw EndOfProcess{};
}

Layout Main::Arrange() {
  return Column({Banner({&banner.Label21, &banner.Maintenance, &banner.Label17}, &Label20),
                 Row({Field("Profit &center:", pcenter, 2.5), Gap(), Of(network), Of(Label4),
                      Of(lblVersion)}),
                 Fill(Tiles(3, {&Label1, &MaintProc, &Label6, &Label16, &Label2, &Label3, &vendors,
                                &Label7, &Label9}))});
}

}  // namespace kvi
