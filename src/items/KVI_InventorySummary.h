#pragma once

#include "frame/KviScreen.h"
#include "grids/RowSearch.h"
#include "grids/ScanField.h"
#include "grids/WorkbookItem.h"
#include "platform/Spread.h"

namespace kvi {

class ItemDetailScreen;

// The list of the parts of the current profit center, in 21 columns: filtered, sorted, printed and
// exported. Its grid is read-only, and is what the detail screens step along.
class KVI_InventorySummary : public KviScreen {
 public:
  // Every action that takes a part from the grid reads this column.
  static constexpr int kNumberColumn = 4;
  static constexpr int kNameColumn = 1;
  static constexpr int kDescriptionColumn = 5;

  explicit KVI_InventorySummary(Application& app);

  void Activate() override;
  void Unload() override;
  void EndVisit() override;
  bool TakesWholeDisplay() const override { return true; }
  Layout Arrange() override;

  // Fills the grid by the filters and the sort order, narrowed by what is searched for. A failure
  // ends it without a word; the rows filled so far stay.
  void LoadItemGrid();
  // Leaves the screen by its own actions; the window's own box asks nothing.
  void exit_is();

  ComboBox CatCombo{*this, "CatCombo", ComboBox::Style::ListOnly};
  ComboBox VendorCombo{*this, "VendorCombo", ComboBox::Style::ListOnly};
  ComboBox SortCombo{*this, "SortCombo", ComboBox::Style::ListOnly};
  OptionButton AutoRefresh{*this, "AutoRefresh", "Auto refresh"};
  OptionButton ManualRefresh{*this, "ManualRefresh", "Manual refresh"};
  ActionLabel refresh_lab{*this, "refresh_lab", "Refres&h"};
  ActionLabel new_lab{*this, "new_lab", "&New"};
  ActionLabel duplicate{*this, "duplicate", "&Duplicate"};
  ActionLabel remove{*this, "remove", "&Remove"};
  ActionLabel find_lab{*this, "find_lab", "F&ind"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel labels_lab{*this, "labels_lab", "&Labels"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  Label Label2{*this, "Label2"};
  Spread Spread1{*this, "Spread1"};
  RowSearch search{*this, SearchedList()};
  ScanField scan{app_, *this, Spread1, kNumberColumn};
  StatusBar StatusBar1{*this, "StatusBar1", 2};
  Menu m_file{*this, "m_file", "&File"};
  MenuItem m_export{m_file, "m_export", "Export to spreadsheet"};
  WorkbookItem m_workbook{m_file, app_, *this, Spread1};
  MenuItem m_f_exit{m_file, "m_f_exit", "E&xit this screen"};

 protected:
  void Prepare() override;

 private:
  void HandleEvents();
  std::string Query() const;
  bool ShowsAll() const;
  void FillGrid();
  void FillFilters();
  void FillFilter(ComboBox& combo, const std::string& table, const std::string& all,
                  const std::string& shown);
  RowSearch::List SearchedList();
  void ReloadHidden(bool shade);
  void ShowRefreshMode();
  void ShowPosition();
  void ShowNarrowed();
  void ShowEmptyText();
  void FindItem();
  void PrintList();
  // Of the selected rows, or of all where none are.
  void PrintLabels();
  // The layout of the detail screen that the preferences choose.
  ItemDetailScreen& DetailScreen();
  void OpenItem(int row);
  void GoToPart(const std::string& number);
  void NewItem();
  void DuplicateActive();
  void RemoveActive();
  bool RemoveItem(const std::string& number);
  void ReopenItemSet();
  bool MayWrite();
};

}  // namespace kvi
