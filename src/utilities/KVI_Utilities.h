#pragma once

#include "frame/KviScreen.h"
#include "frame/Wording.h"
#include "utilities/BulkTasks.h"

namespace kvi {

// Preferences, and the operations on all parts at once. The settings themselves live in the
// Application; this screen shows them and writes each change there at once. It exists from the
// start on, since a click in its profit center combo is what selects the profit center.
class KVI_Utilities : public KviScreen {
 public:
  explicit KVI_Utilities(Application& app);

  void Activate() override;
  void Exit() override;
  Layout Arrange() override;

  ComboBox pcenter{*this, "pcenter", ComboBox::Style::ListOnly};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  TabStrip SSTab1{*this, "SSTab1", {"Company Information", "Settings", "Tasks"}};

  TextBox co_title{*this, "co_title"};
  TextBox dir_loc{*this, "dir_loc"};
  TextBox SpreadPath{*this, "SpreadPath"};
  Button browse_dir{*this, "browse_dir", "&Browse..."};
  Button browse_program{*this, "browse_program", "B&rowse..."};

  CheckBox use_security{*this, "use_security", "Use security system"};
  CheckBox use_color{*this, "use_color", "Use alternating color in grids"};
  CheckBox use_osis{*this, "use_osis", "Use alternate view inventory detail screen"};
  // Of this desk, in place of the suite's: the first entry takes the suite's own.
  ComboBox color_scheme{*this, "color_scheme", ComboBox::Style::ListOnly};
  OptionButton OptUseFIFO{*this, "OptUseFIFO", "FIFO", "valuation"};
  OptionButton OptUseAvg{*this, "OptUseAvg", "Weighted Average", "valuation"};
  // The caption is as people know it; the method is the last price.
  OptionButton OptUseLast{*this, "OptUseLast", "LIFO", "valuation"};
  Button cmdUpdateAllValuations{*this, "cmdUpdateAllValuations", "Update All &Valuations"};
  Button Command5{*this, "Command5", "Setup &Employees"};

  Button Command1{*this, "Command1", "&Manage drop lists"};
  Button Command2{*this, "Command2", "Import from inventory"};
  Button Command3{*this, "Command3", "Switch all inv. items to &active"};
  Button Command4{*this, "Command4", "Switch all inv. items to &non-active"};
  Button Command6{*this, "Command6", "Swi&tch all inv. items to corp."};
  Button Command7{*this, "Command7", "S&witch all inv. items to non-corp."};
  Button cmdUpdateRecipeCosts{*this, "cmdUpdateRecipeCosts",
                              "&Update all " + kPartGroupLower + " costs"};
  Button cmdUpdateRecipeItems{*this, "cmdUpdateRecipeItems",
                              "Update " + kPartGroupLower + " items"};
  Button cmdDeleteAllRecipes{*this, "cmdDeleteAllRecipes", "Delete all &" + kPartGroupsLower};
  Button cmdDeleteAllItems{*this, "cmdDeleteAllItems", "Delete inventor&y"};
  Button ZeroBtn{*this, "ZeroBtn", "&Zero out all inventory"};
  Button cmdColWidth{*this, "cmdColWidth", "Re&set spreadsheet column widths"};
  Button create_file{*this, "create_file", "Create daily text &file"};
  Button remove_purchases{*this, "remove_purchases", "Remove all purc&hases"};

 protected:
  void Prepare() override;

 private:
  void HandleSettings();
  void HandleTasks();
  void ShowSettings();
  void ShowProfitCenter();
  void TakeProfitCenter();
  void LeaveProfitCenter();
  // Refuses a folder that has no database.
  void CheckDirectory();
  void BrowseForDirectory();
  void BrowseForProgram();
  void FillColorSchemes();

  // The tasks, in KVI_UtilitiesTasks.cpp. They work on the profit center that the combo shows.
  void WorkOnTheOneShown();
  void AskToRevalue();
  void AskToSwitch(const std::string& what, const FieldValue& to);
  void AskToZero();
  void AskToUpdateItems();
  void AskToRemovePartGroups();
  void AskToRemoveItems();
  void AskToRemovePurchases();
  void AskToResetWidths();

  bool directoryChanged_ = false;
};

}  // namespace kvi
