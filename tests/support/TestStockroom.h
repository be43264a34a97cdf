#pragma once

#include <functional>
#include <memory>
#include <string>

#include "frame/Application.h"
#include "platform/Gestures.h"
#include "platform/Spread.h"
#include "start/Main.h"
#include "support/ScriptedDesktop.h"
#include "support/TemporaryFolder.h"

namespace kvi {
class KVI_Utilities;
}

namespace kvi::test {

// Always Monday, 9 March 2026, 14:05:06.
class FixedClock : public Clock {
 public:
  Date Now() const override { return {2026, 3, 9, 14, 5, 6}; }
};

class FixedChance : public Chance {
 public:
  double Next() override { return 0.5; }
};

// A stockroom of its own for one test: a folder with the INI files and a real database with three
// profit centers whose numbers have gaps ("Stores" 0, "Annex" 4, "Garage" 9), and the program on
// it.
class TestStockroom {
 public:
  TestStockroom();
  ~TestStockroom();

  // Adds rows, as FillTable reads them.
  void Fill(const std::string& table, const std::string& rows);
  // What a query gives, a line a row, cells parted by "|"; Null reads "Null".
  std::string Rows(const std::string& sql);
  void Execute(const std::string& sql);
  // One key of KVI.INI's own section.
  void Set(const std::string& key, const std::string& value);
  std::string Get(const std::string& key) const;

  // Runs the load of Main. False when the process ended instead. Whoever asks for the program or
  // its user before starts it with all rights.
  bool Start(const std::string& commandLine = "");
  Application& App();
  Main& MainScreen() { return App().Get<Main>(); }
  // Ends the process by the Exit tile; true when it did.
  bool Exit();
  // Opens Utilities by its tile, runs the user's acts there and leaves it by its label.
  void InUtilities(const std::function<void(KVI_Utilities&)>& act);

  TemporaryFolder folder;
  ScriptedDesktop desktop;
  FixedClock clock;
  FixedChance chance;
  Gestures& user();

  std::string DatabaseFile() const { return folder / "KV_Inventory.mdb"; }
  std::string DailyCopy() const { return folder / "backups/2026-03-09 daily.mdb"; }
  // The copy that an act leaves behind.
  std::string CopyBefore(const std::string& act) const {
    return folder / ("backups/2026-03-09 140506 before " + act + ".mdb");
  }

 private:
  jet::Database& Store();
  void NothingIsHalfDone();

  jet::Database own_;  // while the program does not run
  std::unique_ptr<Application> app_;
  std::unique_ptr<Gestures> user_;
};

// What a save asks when another desk's lock lasts, under the title "KV Inventory Save".
inline constexpr const char* kLockQuestion =
    "WARNING - Waiting for other user(s) to save changes to this data!\n\n"
    "Your changes will overwrite any previous changes.\n\n"
    "Attempt to save changes again?";

// The grid's visible texts, a line a row without the headings, cells parted by "|"; columns from
// first to last, -1 the grid's last.
std::string GridText(const Spread& grid, int firstCol = 1, int lastCol = -1);

}  // namespace kvi::test
