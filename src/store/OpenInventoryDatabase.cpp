#include "store/OpenInventoryDatabase.h"

#include <filesystem>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "frame/Application.h"
#include "platform/Hourglass.h"
#include "store/BackUp.h"
#include "store/ConvertAtOpening.h"
#include "store/DropDown.h"
#include "store/RepairItemDefaults.h"
#include "store/Schema.h"
#include "store/UpgradeSchema.h"

namespace kvi {

namespace {

void AddFirstProfitCenter(Application& app) {
  app.profitCenters.Add("General", 0);
  app.ProfitCenterSet.AddNew();
  app.ProfitCenterSet.Set("name", "General");
  app.ProfitCenterSet.Set("pcenter", 0);
  app.ProfitCenterSet.Update();
}

void FillProfitCenters(Application& app) {
  app.profitCenters.Clear();
  for (; !app.ProfitCenterSet.Eof(); app.ProfitCenterSet.MoveNext())
    app.profitCenters.Add(app.ProfitCenterSet.Text("name"),
                          static_cast<int>(app.ProfitCenterSet.Number("pcenter")));
  if (app.profitCenters.Count() == 0) AddFirstProfitCenter(app);
}

// The stored number serves as a position here. One that equals the count is an invalid position,
// which ends the process as any failure on this way does; a negative one is no position at all.
void SelectProfitCenter(Application& app) {
  const int position = app.CurrentProfitCenter;
  const bool usable = position >= 0 && position <= app.profitCenters.Count();
  app.profitCenters.Select(usable ? position : 0);
}

}  // namespace

std::string DatabasePathIn(const Application& app, const std::string& folder) {
  const std::string& place = folder.empty() ? app.ProgramFolder : folder;
  return (std::filesystem::path(place) / kDatabaseFile).string();
}

void OpenInventoryDatabase(Application& app) {
  const std::string path = DatabasePathIn(app, app.DatabaseDirectory);
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) {
    app.desktop.MsgBox({.text = "There is a problem locating KV_Inventory.mdb."});
    throw EndOfProcess{};
  }
  try {
    ConvertAtOpening(app, path);
    app.CurrentDatabase = jet::Database::Open(path, !app.settings.NetworkVisible);
    app.CurrentDatabase.UseDefaultsOf(Schema());
    BackUpOfTheDay(app);
    UpgradeSchema(app.CurrentDatabase, app.desktop);
    RepairItemDefaults(app.CurrentDatabase, app.desktop);
    app.ProfitCenterSet = app.CurrentDatabase.OpenRecordset("SELECT * FROM PCenter;");
    FillProfitCenters(app);
    SelectProfitCenter(app);
  } catch (const RunTimeError& error) {
    app.desktop.MsgBox({.text = "An error has occurred locating KV_Inventory.mdb. (" +
                                Str(error.Number) + "-" + error.Description + ")\n" +
                                "KV Inventory must be shut down.",
                        .icon = Icon::Error});
    throw EndOfProcess{};
  }
  app.desktop.SetPointer(MousePointer::Default);
}

void ReopenInventoryDatabase(Application& app) {
  const int number = app.CurrentProfitCenter;
  app.CurrentProfitCenter = 0;
  OpenInventoryDatabase(app);
  const int position = app.profitCenters.PositionOf(number);
  if (position >= 0 && position < app.profitCenters.Count() &&
      app.profitCenters.NumberAt(position) == number)
    app.profitCenters.Select(position);
  LoadDropLists(app);
}

void RefreshMasterRecordsets(Application& app) {
  const Hourglass busy(app.desktop);
  const std::string number = Str(app.CurrentProfitCenter);
  jet::Database& database = app.CurrentDatabase;
  RefreshItemSet(app);
  app.PartGroupSet =
      database.OpenRecordset("SELECT * FROM R_Master where pcenter = " + number + " ORDER BY name");
  app.PurchaseSet =
      database.OpenRecordset("SELECT * FROM HIST_PURCHASES where pcenter = " + number + " ");
  app.EmployeeSet = database.OpenRecordset("SELECT * FROM EmployeeDB");
  if (app.EmployeeSet.Eof()) app.settings.UseSecurity = 0;
}

void RefreshItemSet(Application& app) {
  app.ItemSet = app.CurrentDatabase.OpenRecordset(
      "SELECT * FROM I_Master where pcenter = " + Str(app.CurrentProfitCenter) + " ORDER BY name");
}

}  // namespace kvi
