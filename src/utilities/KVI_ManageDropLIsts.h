#pragma once

#include <array>
#include <string>

#include "frame/KviScreen.h"
#include "platform/Spread.h"

namespace kvi {

// Edits the drop-list tables, one at a time. A list has no identity of rows: every save replaces it
// whole, and empty rows fall out. Values that parts already use remain on those parts.
class KVI_ManageDropLIsts : public KviScreen {
 public:
  explicit KVI_ManageDropLIsts(Application& app);

  void Activate() override;
  void Exit() override;
  Layout Arrange() override;

  OptionButton o_iil{*this, "o_iil", "Inventory location"};
  OptionButton o_iic{*this, "o_iic", "Inventory category"};
  OptionButton o_hib{*this, "o_hib", "'How inventoried'"};
  OptionButton o_rc{*this, "o_rc", "Part group category"};
  OptionButton o_hub{*this, "o_hub", "'How used'"};
  OptionButton o_hpb{*this, "o_hpb", "'How purchased'"};
  OptionButton o_wto{*this, "o_wto", "Vendor"};
  ComboBox PaperGoodsCombo{*this, "PaperGoodsCombo"};
  Spread Spread1{*this, "Spread1", 1};
  ActionLabel Save{*this, "Save", "&Save"};
  ActionLabel remove{*this, "remove", "&Remove"};
  ActionLabel sort_lab{*this, "sort_lab", "S&ort"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel vendors{*this, "vendors", "&Vendors"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};

 protected:
  void Prepare() override;

 private:
  struct List {
    OptionButton* option;
    const char* table;
    const char* sortField;
  };

  void ShowList(const List& list);
  void load_data(const List& list);
  // False when the list was not saved; what was typed stays then.
  bool save_changes();
  bool SaveIfWanted();
  void RewriteList(const std::string& table);
  void RemoveRow();
  void SortRows();
  void PrintList();

  const std::array<List, 7> lists_;
  const List* shown_ = nullptr;
  bool changed_ = false;
};

}  // namespace kvi
