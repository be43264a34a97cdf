#include "items/WorkingItem.h"

#include "frame/Wording.h"

namespace kvi {

WorkingItem::WorkingItem(Screen& screen, Vendors vendors)
    : screen_(screen), Label24(screen, "Label24", "Used in " + kPartGroup + ":") {
  if (vendors == Vendors::WithPurchaseSize)
    LblPurchaseSize.emplace(screen_, "LblPurchaseSize", "Price per unit:");
  notes.Multiline = true;
  hp_qty.Text = "1";
  ChooseForNewPart();
  for (TextBox* computed : {&hp_qty, &hi_cost_per, &hu_cost_per, &valuation, &picpath})
    computed->Locked = true;
  for (TextBox* number : {&hp_qty, &hi_qty, &hu_qty, &hp_cost_per, &hi_cost_per, &hu_cost_per,
                          &qty_on_hand, &valuation, &re_order, &optimal, &Price1, &Price2, &Price3})
    number->RightAligned = true;
  GiveSpokenNames();
}

void WorkingItem::GiveSpokenNames() {
  Label24.Names = &RecipeList;
  hp_qty.SpokenName = "How purchased, quantity";
  hi_qty.SpokenName = "How inventoried, quantity";
  hu_qty.SpokenName = "How used, quantity";
  how_purchased.SpokenName = "How purchased, unit";
  how_inv.SpokenName = "How inventoried, unit";
  how_used.SpokenName = "How used, unit";
  picpath.SpokenName = "Picture file";
  Imageman1.SpokenName = "Picture";
  for (int n = 1; n <= kVendors; ++n) {
    const Vendor vendor = VendorOf(n);
    const std::string words = "Vendor " + std::to_string(n);
    vendor.where.SpokenName = words + " name";
    vendor.v_id.SpokenName = words + " inv. #";
    vendor.Price.SpokenName = words + " price";
  }
}

void WorkingItem::ChooseForNewPart() {
  active_i.Value = true;
  rbCII.Value = true;
}

WorkingItem::Vendor WorkingItem::VendorOf(int n) {
  if (n == 1) return {where1, v_id1, Price1, VendorOpt1};
  if (n == 2) return {where2, v_id2, Price2, VendorOpt2};
  return {where3, v_id3, Price3, VendorOpt3};
}

std::vector<WorkingItem::DropList> WorkingItem::DropLists() {
  return {{&category, "DD_category"}, {&location, "DD_inv_loc"},
          {&how_inv, "DD_how_inv"},   {&how_used, "DD_how_used"},
          {&where1, "Vendor_Info"},   {&where2, "Vendor_Info"},
          {&where3, "Vendor_Info"},   {&how_purchased, "DD_how_purchased"}};
}

}  // namespace kvi
