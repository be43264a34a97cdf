#include "items/ItemCosts.h"

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

namespace {

// The share of one of `parts` in a cost, as text; parts of zero or less have none.
std::string Share(const std::string& cost, const std::string& parts) {
  const double count = Val(parts);
  return count > 0 ? Format(Val(cost) / count, kCostMask) : "0.00";
}

void ChangeOnHand(WorkingItem& item, double by) {
  item.qty_on_hand.Text = Str(Val(item.qty_on_hand.Text()) + by);
  item.valuation.Text =
      Format(Val(item.hp_cost_per.Text()) * Val(item.qty_on_hand.Text()), "$#####0.00");
}

}  // namespace

void RecalcItemCosts(WorkingItem& item, const ValueOfLevel& valueOf) {
  const std::string purchased = item.how_purchased.Text, inventoried = item.how_inv.Text,
                    used = item.how_used.Text;
  // The quantities are shown as they were typed. HowPurchasedFormula is never written.
  item.HowUsedFormula.Caption =
      "1 " + inventoried + " = " + item.hu_qty.Text() + " " + used + "(s)";
  item.HowInvFormula.Caption =
      "1 " + purchased + " = " + item.hi_qty.Text() + " " + inventoried + "(s)";
  item.lblCostHowUsed.Caption = "Cost Per " + used + ":";
  item.lblCostHowInv.Caption = "Cost Per " + inventoried + ":";
  item.lblCostHowPurchased.Caption = "Cost Per " + purchased + ":";

  item.hp_cost_per.Text = Format(Val(item.hp_cost_per.Text()), kCostMask);
  item.hi_cost_per.Text = Share(item.hp_cost_per.Text, item.hi_qty.Text);
  // From the rounded text of the inventoried cost, not from the purchased cost.
  item.hu_cost_per.Text = Share(item.hi_cost_per.Text, item.hu_qty.Text);
  item.valuation.Text =
      Format(valueOf(item.i_num.Text, Val(item.qty_on_hand.Text()), Val(item.hp_cost_per.Text())),
             kAmountMask);

  item.Label7.Caption = "Current Inv. On-Hand (" + purchased + "):";
  item.Label16.Caption = "Valuation:";
  item.Label5.Caption = "Re-Order Level (" + purchased + "):";
  item.Label11.Caption = "Par Level (" + purchased + "):";
  if (item.LblPurchaseSize) item.LblPurchaseSize->Caption = "Price per " + purchased + ":";
}

void GuardUsedQuantity(WorkingItem& item, Desktop& desktop) {
  if (Val(item.hu_qty.Text()) > 0) return;
  desktop.MsgBox({.text = "How Used Quantity cannot be zero or less.  Setting to 1."});
  item.hu_qty.Text = "1";
}

void AddOnHand(WorkingItem& item) {
  ChangeOnHand(item, 1);
}

void MinusOnHand(WorkingItem& item) {
  ChangeOnHand(item, -1);
}

void ApplyVendorAvailability(WorkingItem& item, int n) {
  const WorkingItem::Vendor vendor = item.VendorOf(n);
  const bool named = !Trim(vendor.where.Text()).empty();
  vendor.VendorOpt.Enabled = named;
  if (!named) vendor.VendorOpt.Value = false;
}

}  // namespace kvi
