#include "support/TestStockroom.h"

#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "platform/IniFile.h"
#include "store/Schema.h"
#include "support/TableText.h"
#include "utilities/KVI_Utilities.h"

namespace kvi::test {

TestStockroom::TestStockroom() {
  WriteFile(folder / "TARNWK.INI", "[TARNWK]\nDatabasePath=\nBrowserPath=\nColorScheme=\n");
  Set("SectionActive", "True");
  Set("CompanyName", "Harbour Works");
  CreateInventoryDatabase(DatabaseFile());
  // Each test's start but those of copies themselves finds the copy of the day made.
  std::filesystem::create_directory(folder / "backups");
  WriteFile(DailyCopy(), "");
  Fill("PCenter", "name | pcenter\n Stores | 0\n Annex | 4\n Garage | 9");
}

TestStockroom::~TestStockroom() {
  desktop.AllCame();
  app_.reset();
}

jet::Database& TestStockroom::Store() {
  if (app_ && app_->CurrentDatabase.IsOpen()) return app_->CurrentDatabase;
  if (!own_.IsOpen()) own_ = jet::Database::Open(DatabaseFile(), false);
  return own_;
}

void TestStockroom::Fill(const std::string& table, const std::string& rows) {
  FillTable(Store(), table, rows);
}

std::string TestStockroom::Rows(const std::string& sql) {
  jet::Recordset set = Store().OpenRecordset(sql);
  return RowsText(set);
}

void TestStockroom::Execute(const std::string& sql) {
  Store().Execute(sql);
}

void TestStockroom::Set(const std::string& key, const std::string& value) {
  IniFile(folder / "KVI.INI").Write("KestvarInventory", key, value);
}

std::string TestStockroom::Get(const std::string& key) const {
  return IniFile(folder / "KVI.INI").Read("KestvarInventory", key, "(none)");
}

bool TestStockroom::Start(const std::string& commandLine) {
  own_.Close();
  user_.reset();
  app_ = std::make_unique<Application>(
      Surroundings{desktop, clock, chance, folder.Path().string(), commandLine});
  user_ = std::make_unique<Gestures>(app_->screens);
  desktop.checkWait = [this] { NothingIsHalfDone(); };
  try {
    app_->screens.Load(app_->Get<Main>());
    return true;
  } catch (const EndOfProcess&) {
    return false;
  }
}

void TestStockroom::NothingIsHalfDone() {
  for (Screen* screen : app_->screens.Shown()) {
    const auto* kvi = dynamic_cast<const KviScreen*>(screen);
    EXPECT_FALSE(kvi != nullptr && kvi->IsSettingUp()) << screen->Name() << " waits in its set-up";
    for (const Control* control : screen->Controls()) {
      const auto* grid = dynamic_cast<const Spread*>(control);
      EXPECT_TRUE(grid == nullptr || grid->ReDraw()) << screen->Name() << " waits unpainted";
    }
  }
}

Application& TestStockroom::App() {
  if (!app_ && !Start()) ADD_FAILURE() << "the program did not start";
  return *app_;
}

Gestures& TestStockroom::user() {
  if (!app_ && !Start()) ADD_FAILURE() << "the program did not start";
  return *user_;
}

void TestStockroom::InUtilities(const std::function<void(KVI_Utilities&)>& act) {
  auto& utilities = App().Get<KVI_Utilities>();
  desktop.ExpectScreen("KVI_Utilities", [&] {
    act(utilities);
    user().Click(utilities.exit_lab);
  });
  user().Click(MainScreen().Label7);
  desktop.AllCame();
}

bool TestStockroom::Exit() {
  desktop.ended = false;
  user().Click(MainScreen().Label9);
  return desktop.ended;
}

std::string GridText(const Spread& grid, int firstCol, int lastCol) {
  std::string text;
  const int last = lastCol < 0 ? grid.MaxCols() : lastCol;
  for (int row = 1; row <= grid.MaxRows(); ++row) {
    for (int col = firstCol; col <= last; ++col)
      text += (col > firstCol ? "|" : "") + grid.Text(row, col);
    text += "\n";
  }
  return text;
}

}  // namespace kvi::test
