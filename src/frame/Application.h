#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <typeindex>
#include <vector>

#include "base/Value.h"
#include "frame/ProfitCenters.h"
#include "frame/Settings.h"
#include "jet/Database.h"
#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "platform/Gestures.h"
#include "platform/Screen.h"
#include "platform/ScreenStack.h"

namespace kvi {

// What a process is started with and on.
struct Surroundings {
  Desktop& desktop;
  Clock& clock;
  Chance& chance;
  std::string programFolder;  // without a separator at its end
  std::string commandLine;
};

// The state of one process, under the names by which every subsystem knows it. One instance, made
// in main and handed to the screens; routines take the parts of it that they need. The long-lived
// recordsets are open to replacement by any routine, so nobody keeps a reference to one across a
// call.
class Application {
 public:
  explicit Application(const Surroundings& surroundings);

  Desktop& desktop;
  Clock& clock;
  Chance& chance;
  const std::string ProgramFolder;
  const std::string CommandLine;
  ScreenStack screens;

  jet::Database CurrentDatabase;
  jet::Recordset ItemSet;          // parts of the profit center by name
  jet::Recordset PartGroupSet;     // part groups of the profit center by name
  jet::Recordset PurchaseSet;      // purchases of the profit center
  jet::Recordset EmployeeSet;      // all employees
  jet::Recordset ProfitCenterSet;  // all profit centers
  ProfitCenters profitCenters;

  std::string AccessString;  // four characters; the third is the write right
  std::string DatabaseDirectory;
  int CurrentProfitCenter = 0;
  std::string CurrentCategory;
  std::string CurrentOrderVendor;
  std::string SpreadsheetPath;
  bool UseColors = false;
  bool ItemsAtHand = false;  // parts stood in the profit center when usage was opened
  int HighlightColor = kWhite;
  Value CurrentEmployeeCode;  // Null until the checkpoint decided, -999 when nobody is signed in
  std::string CurrentEmployeeName;
  std::array<std::string, 8> DayNames;  // 1 to 7
  bool PartGroupCostsStale = false;
  bool ReturnedFromFind = false;
  std::string DataFilePath;  // the answer of KVI_GetILocation
  bool DataFileCancelled = false;
  Settings settings;

  // A file in the program's folder.
  std::string InProgramFolder(const std::string& fileName) const;

  // The one object of a screen class, made when it is first asked for.
  template <class T>
  T& Get() {
    auto& screen = made_[std::type_index(typeid(T))];
    if (!screen) screen = std::make_unique<T>(*this);
    return static_cast<T&>(*screen);
  }

  // Combos that hold a drop list, filled by LoadDropLists for as long as the program runs.
  struct DropListCombo {
    ComboBox* combo;
    std::string table;
  };
  std::vector<DropListCombo> DropListCombos;

 private:
  std::map<std::type_index, std::unique_ptr<Screen>> made_;
};

}  // namespace kvi
