#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/Controls.h"

namespace kvi {

// One part as a detail screen shows it: the text of these controls is the item, and no other copy
// of it is kept, since several results depend on rounding through the text. Numbers stay text while
// they are edited and go through Val each time they are used.
class WorkingItem {
 public:
  enum class Vendors { WithPurchaseSize, Plain };

  WorkingItem(Screen& screen, Vendors vendors);

  // What belongs to vendor 1, 2 or 3.
  struct Vendor {
    ComboBox& where;
    TextBox& v_id;
    TextBox& Price;
    OptionButton& VendorOpt;
  };
  static constexpr int kVendors = 3;
  Vendor VendorOf(int n);

  // Active and corporate: a part that nobody switched off stands in every list.
  void ChooseForNewPart();

  // The combos that offer a drop list, each with the table of its values.
  struct DropList {
    ComboBox* combo;
    const char* table;
  };
  std::vector<DropList> DropLists();

 private:
  void GiveSpokenNames();

  Screen& screen_;

 public:
  TextBox i_num{screen_, "i_num"};
  TextBox iname{screen_, "iname"};
  ComboBox category{screen_, "category"};
  ComboBox location{screen_, "location"};
  TextBox desc{screen_, "desc"};
  TextBox BarCodeScanId{screen_, "BarCodeScanId"};
  TextBox notes{screen_, "notes"};
  OptionButton active_i{screen_, "active_i", "Active item", "Frame1"};
  OptionButton n_active_i{screen_, "n_active_i", "Non-active item", "Frame1"};
  OptionButton rbCII{screen_, "rbCII", "Corporate inventory item", "Frame2"};
  OptionButton rbNCII{screen_, "rbNCII", "Non-corporate inventory item", "Frame2"};

  Label lblQuantity{screen_, "lblQuantity", "Quantity:"};
  Label lblUnit{screen_, "lblUnit", "Unit:"};
  TextBox hp_qty{screen_, "hp_qty"};  // a fixed 1 that completes the row of the three units
  ComboBox how_purchased{screen_, "how_purchased"};
  Label HowPurchasedFormula{screen_, "HowPurchasedFormula"};  // stays empty
  TextBox hi_qty{screen_, "hi_qty"};
  ComboBox how_inv{screen_, "how_inv"};
  Label HowInvFormula{screen_, "HowInvFormula"};
  TextBox hu_qty{screen_, "hu_qty"};
  ComboBox how_used{screen_, "how_used"};
  Label HowUsedFormula{screen_, "HowUsedFormula"};

  Label lblCostHowPurchased{screen_, "lblCostHowPurchased", "Cost Per Purchased Unit:"};
  TextBox hp_cost_per{screen_, "hp_cost_per"};  // the only cost that is stored
  Label lblCostHowInv{screen_, "lblCostHowInv", "Cost Per Inventoried Unit:"};
  TextBox hi_cost_per{screen_, "hi_cost_per"};
  Label lblCostHowUsed{screen_, "lblCostHowUsed", "Cost Per Used Unit:"};
  TextBox hu_cost_per{screen_, "hu_cost_per"};

  // Levels are in the purchased unit.
  Label Label7{screen_, "Label7", "Current Inv. On-Hand:"};
  TextBox qty_on_hand{screen_, "qty_on_hand"};
  Label Label16{screen_, "Label16", "Valuation:"};
  TextBox valuation{screen_, "valuation"};
  Label Label5{screen_, "Label5", "Re-Order Level:"};
  TextBox re_order{screen_, "re_order"};
  Label Label11{screen_, "Label11", "Par Level:"};
  TextBox optimal{screen_, "optimal"};
  Label Label24;
  ListBox RecipeList{screen_, "RecipeList"};

  OptionButton VendorOpt1{screen_, "VendorOpt1", "Vendor 1:", "vendor"};
  ComboBox where1{screen_, "where1"};
  TextBox v_id1{screen_, "v_id1"};
  TextBox Price1{screen_, "Price1"};
  OptionButton VendorOpt2{screen_, "VendorOpt2", "Vendor 2:", "vendor"};
  ComboBox where2{screen_, "where2"};
  TextBox v_id2{screen_, "v_id2"};
  TextBox Price2{screen_, "Price2"};
  OptionButton VendorOpt3{screen_, "VendorOpt3", "Vendor 3:", "vendor"};
  ComboBox where3{screen_, "where3"};
  TextBox v_id3{screen_, "v_id3"};
  TextBox Price3{screen_, "Price3"};
  std::optional<Label> LblPurchaseSize;

  PictureBox Imageman1{screen_, "Imageman1"};
  TextBox picpath{screen_, "picpath"};
};

}  // namespace kvi
