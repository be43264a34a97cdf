#pragma once

#include "frame/Application.h"
#include "frame/KviScreen.h"

namespace kvi {

// The start object: its load is the whole start-up and its unload ends the process. In between it
// is a launch pad with one tile a module; every other screen opens in front of it.
class Main : public Screen {
 public:
  explicit Main(Application& app);

  void Load() override;
  void Unload() override;
  int RestingColor() const override { return app_.HighlightColor; }
  Layout Arrange() override;

 private:
  Application& app_;

 public:
  ProductBanner banner{*this};
  Label Label20{*this, "Label20", "What would you like to do today?"};
  ActionLabel Label1{*this, "Label1",
                     "&Inventory Maintenance - Build, change or remove inventory items"};
  ActionLabel MaintProc{*this, "MaintProc",
                        "&Part Group Maintenance - Build, change or remove part groups"};
  ActionLabel Label6{*this, "Label6", "Update Inventory \"&On Hand\" && Prices"};
  ActionLabel Label16{*this, "Label16", "&Manage Orders - Par sheet ordering system"};
  ActionLabel Label2{*this, "Label2", "Usage &Analysis - Historical inventory "};
  ActionLabel Label3{*this, "Label3", "&Reports && Analysis"};
  ActionLabel vendors{*this, "vendors", "&Vendors"};
  ActionLabel Label7{*this, "Label7", "&Utilities"};
  ActionLabel Label9{*this, "Label9", "&Exit"};
  Label lblVersion{*this, "lblVersion"};
  Label Label4{*this, "Label4", "BETA"};
  Label network{*this, "network", "Network: ON"};
  ComboBox pcenter{*this, "pcenter", ComboBox::Style::ListOnly};
  Menu m_file{*this, "m_file", "&File"};
  MenuItem m_f_new{m_file, "m_f_new", "&New database..."};
  MenuItem m_f_backup{m_file, "m_f_backup", "&Back up now..."};
  MenuItem m_f_restore{m_file, "m_f_restore", "&Restore..."};
  MenuItem m_f_print{m_file, "m_f_print", "&Print"};
  MenuItem m_f_exit{m_file, "m_f_exit", "E&xit"};
  Menu m_help{*this, "m_help", "&Help"};
  MenuItem m_help_sm{m_help, "m_help_sm", "Kestvar Inventory"};

 private:
  void ReadRights();
  void FillDayNames();
  void AskWhoItIs();
  void LeaveProfitCenter();
  // Whether the module may be entered; says so when not.
  bool MayOpen(int module);
  // The same for a module that needs parts.
  bool MayOpenWithItems(int module);
  void OpenReports();
  void StartNewDatabase();
};

}  // namespace kvi
