#pragma once

#include "frame/KviScreen.h"
#include "grids/WorkbookItem.h"
#include "platform/Spread.h"

namespace kvi {

// The list of the part groups of the current profit center, and the only door to their builder. A
// row of the list is a position in PartGroupSet, so both are loaded together and keep one order.
class KVI_PGSummary : public KviScreen {
 public:
  static constexpr int kNameColumn = 1;
  static constexpr int kCategoryColumn = 2;
  static constexpr int kNumberColumn = 3;
  static constexpr int kCostColumn = 4;
  static constexpr int kNotesColumn = 5;

  explicit KVI_PGSummary(Application& app);

  void Activate() override;
  void Unload() override;
  bool TakesWholeDisplay() const override { return true; }
  Layout Arrange() override;

  // Opens PartGroupSet in the order chosen, and fills the list from it.
  void LoadPartGroupList();

  ActionLabel new_lab{*this, "new_lab", "&New"};
  ActionLabel remove{*this, "remove", "&Remove"};
  ActionLabel duplicate{*this, "duplicate", "&Duplicate"};
  ActionLabel refresh_lab{*this, "refresh_lab", "Refres&h"};
  ActionLabel find_lab{*this, "find_lab", "F&ind"};
  ActionLabel Label3{*this, "Label3", "&Update costs"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  Label Label1{*this, "Label1", "Sort by:"};
  OptionButton sort_name{*this, "sort_name", "Name"};
  OptionButton sort_cate{*this, "sort_cate", "Category"};
  OptionButton sort_rnum{*this, "sort_rnum", "Part group #"};
  Label Label2{*this, "Label2"};
  Spread Spread1{*this, "Spread1"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};
  Menu m_file{*this, "m_file", "&File"};
  MenuItem m_export{m_file, "m_export", "&Export to spreadsheet"};
  WorkbookItem m_workbook{m_file, app_, *this, Spread1};
  MenuItem m_f_exit{m_file, "m_f_exit", "E&xit this screen"};

 protected:
  void Prepare() override;

 private:
  void HandleEvents();
  std::string Query() const;
  // False when there is nothing to list.
  bool FillList();
  int SortColumn() const;
  void ShowPosition();
  void StandOn(int row);
  bool MayWrite();
  void NewGroup();
  void OpenGroup(int row);
  void RemoveGroups();
  void DuplicateActive();
  void FindGroup();
  void PrintList();

  bool loadNeeded_ = false;  // since the screen's load; coming back to it loads nothing
};

}  // namespace kvi
