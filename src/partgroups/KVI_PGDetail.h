#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frame/KviScreen.h"
#include "grids/ScanField.h"
#include "partgroups/PartGroupRecord.h"
#include "platform/Spread.h"

namespace kvi {

// The builder of one part group: its header, its lines above, and below them the parts from which
// lines are made. The texts of the grid are what is saved and printed. It works on the row of
// PartGroupSet that the summary chose; its caption tells whether the group is new. The cost of a
// group is not its business. Leaving it hides it.
class KVI_PGDetail : public KviScreen {
 public:
  // Columns of the lines. Quantity and notes are typed.
  static constexpr int kNumberColumn = 1;
  static constexpr int kNameColumn = 2;
  static constexpr int kHowUsedColumn = 3;
  static constexpr int kQuantityColumn = 4;
  static constexpr int kCostColumn = 5;
  static constexpr int kPercentColumn = 6;
  static constexpr int kDescriptionColumn = 7;
  static constexpr int kNotesColumn = 8;

  explicit KVI_PGDetail(Application& app);

  // Shows an empty group until the user leaves.
  void OpenNew();
  // Shows the group on which PartGroupSet stands, listed under this number.
  void OpenGroup(const std::string& number);

  void Activate() override;
  void Exit() override;
  void EndVisit() override;
  bool TakesWholeDisplay() const override { return true; }
  Layout Arrange() override;

  // Something was typed, added or taken away since the last load or save.
  bool LineChanged() const { return lineChanged_; }
  // Writes the group with its lines, all or nothing. Refused for want of the right, it returns to
  // the stored group.
  void SavePartGroup();
  // Prints the group as it stands on the screen.
  void print_report();

  // Kept for those who know the screen by them; both do nothing.
  void calc_wi_cost() {}
  void calc_data() {}
  // No control of this version calls the rest. Adds the active part on the active line, which is
  // asked about where it holds one, and goes to the next empty line.
  void add_to_rec_wi();
  // Adds the active group of the list of groups as a nested line; the first with the suffix behind
  // its number, by which no later costing finds it, the other without.
  void add_rec_to_rec_wi();
  void AddBareGroup();
  // Which list stands below.
  void ListParts();
  void ListGroups();

  ActionLabel save{*this, "save", "Sa&ve"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel sprint_lab{*this, "sprint_lab", "Sc&reen print"};
  ActionLabel find_lab{*this, "find_lab", "F&ind"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  Label Label12{*this, "Label12"};
  TextBox rec_id{*this, "rec_id"};
  Label Label6{*this, "Label6"};
  TextBox rname{*this, "rname"};
  Label Label3{*this, "Label3"};
  ComboBox rec_cat{*this, "rec_cat"};
  Label Label10{*this, "Label10"};
  TextBox notes{*this, "notes"};
  Label Label1{*this, "Label1"};
  Spread Spread1{*this, "Spread1"};
  Button AddToRecipe{*this, "AddToRecipe", "^^ &Add part to part group ^^"};
  Button Command2{*this, "Command2", "&Delete row"};
  Label Label2{*this, "Label2"};
  Label CatLabel{*this, "CatLabel", "Category"};
  ComboBox CatCombo{*this, "CatCombo", ComboBox::Style::ListOnly};
  Spread Spread2{*this, "Spread2"};
  ScanField scan{app_, *this, Spread2, kNumberColumn};
  StatusBar StatusBar1{*this, "StatusBar1", 2};
  Menu m_file{*this, "m_file", "&File"};
  MenuItem m_f_recalc{m_file, "m_f_recalc", "Re-calc ingrediant prices from SYSCO"};
  MenuItem m_f_print{m_file, "m_f_print", "&Print"};
  MenuItem m_f_exit{m_file, "m_f_exit", "E&xit this screen"};
  Menu m_sort{*this, "m_sort", "&Sort"};
  MenuItem m_s_name{m_sort, "m_s_name", "Sort general inventory by name"};
  MenuItem m_s_id{m_sort, "m_s_id", "Sort general inventory by inventory #"};
  MenuItem m_s_cat{m_sort, "m_s_cat", "Sort general inventory by category"};

 protected:
  void Prepare() override;

 private:
  void HandleEvents();
  void HandleRows();
  void WatchChanges();
  bool IsNew() const;
  bool Write(const PartGroupSave& group);
  void FindAvailable();
  // Tells the active row of one of the grids, whose texts may be cut.
  void ShowRow(const Spread& grid);

  // The lines, in KVI_PGDetailLines.cpp.
  void SetUpLines();
  void ShowEntries(const std::vector<PartGroupEntry>& entries);
  std::vector<PartGroupEntry> Entries() const;
  bool HasLine(int row) const { return !Spread1.Text(row, kNumberColumn).empty(); }
  // The first line without a part from a row on; the grid grows where there is none.
  int EmptyLine(int from = 1);
  void CopyToLine(int row, int part);
  void AddSelected();
  void AddItemLine();
  void AddGroupLine(const std::string& suffix);
  void RemoveLines();
  void LinesChanged();
  void CalcLinePercents();

  // What is loaded, in KVI_PGDetailLoad.cpp.
  void load_data();
  void LoadGroup();
  void ShowHeader(const PartGroupHeader& header);
  void FillCategories();
  enum class Listed { None, Parts, Groups };
  // Sets the list below up for what stands in it.
  void StandUnder(Listed listed, const std::string& caption);
  void SortBy(const MenuItem& entry);
  int SortColumn(const MenuItem& entry) const;
  // Fills the list below; says so when it stays empty.
  void FillAvailable();
  bool FillAvailableParts();
  void FillAvailableGroups();

  bool lineChanged_ = false;
  bool missing_ = false;  // the group could not be loaded, and is not saved either
  Listed listed_ = Listed::None;
  std::string stored_;  // the statement of the lines that the next save replaces
};

}  // namespace kvi
