#pragma once

#include "frame/KviScreen.h"
#include "grids/WorkbookItem.h"
#include "platform/Spread.h"

namespace kvi {

// The list of the vendors, of all profit centers alike. A vendor is known by its name alone, by
// which parts name up to three: removing one takes the parts away that have it first.
class KVI_VendorSummary : public KviScreen {
 public:
  static constexpr int kNameColumn = 1;
  static constexpr int kPhoneColumn = 8;

  explicit KVI_VendorSummary(Application& app);

  void Activate() override;
  void Exit() override;
  bool TakesWholeDisplay() const override { return true; }
  Layout Arrange() override;

  void load_data();
  // A vendor is saved on its own screen: nothing is written here.
  void save_changes() {}

  ActionLabel new_lab{*this, "new_lab", "&New"};
  ActionLabel remove{*this, "remove", "&Remove"};
  ActionLabel duplicate{*this, "duplicate", "Remove &all"};
  ActionLabel save{*this, "save", "&Save"};
  ActionLabel find_lab{*this, "find_lab", "F&ind"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  Label Label1{*this, "Label1", "Double-click on row to display detail view"};
  Spread Spread1{*this, "Spread1"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};
  Menu m_file{*this, "m_file", "&File"};
  MenuItem m_export{m_file, "m_export", "&Export to spreadsheet"};
  WorkbookItem m_workbook{m_file, app_, *this, Spread1};
  MenuItem m_exit{m_file, "m_exit", "E&xit this screen"};

 protected:
  void Prepare() override;

 private:
  void HandleEvents();
  void FillList();
  void ShowPosition();
  void OpenVendor(int row);
  void NewVendor();
  void RemoveVendor();
  void EmptyList();
  void FindVendor();

  bool changed_ = false;  // a cell was typed into, which the lock forbids
};

}  // namespace kvi
