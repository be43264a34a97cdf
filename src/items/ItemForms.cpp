#include "items/ItemDetailScreen.h"

// The groups of fields that both layouts place, each in its own way.
namespace kvi {

namespace {

constexpr double kNumberWidth = 1.1;  // inches
constexpr double kUnitWidth = 1.7;

}  // namespace

Layout ItemDetailScreen::ActionRow() {
  return Actions({&save, &previous_lab, &next_lab, &dai, &print_lab, &sprint_lab, &exit_lab});
}

Layout ItemDetailScreen::UnitForm() {
  const auto line = [](const char* label, TextBox& quantity, ComboBox& unit, Label& formula) {
    return Row({Field(label, quantity, kNumberWidth), Of(unit, kUnitWidth), Fill(Of(formula))});
  };
  return Form({Row({Field("", lblQuantity, kNumberWidth), Of(lblUnit)}),
               line("How Purchased:", hp_qty, how_purchased, HowPurchasedFormula),
               line("How Inventoried:", hi_qty, how_inv, HowInvFormula),
               line("How Used:", hu_qty, how_used, HowUsedFormula)});
}

Layout ItemDetailScreen::CostForm() {
  return Form({Field(lblCostHowPurchased, hp_cost_per, kNumberWidth),
               Field(lblCostHowInv, hi_cost_per, kNumberWidth),
               Field(lblCostHowUsed, hu_cost_per, kNumberWidth)});
}

Layout ItemDetailScreen::LevelForm() {
  constexpr double kStepWidth = 0.35;
  return Form({Row({Field(Label7, qty_on_hand, kNumberWidth), Of(cmdAddOnHand, kStepWidth),
                    Of(cmdMinusOnHand, kStepWidth)}),
               Field(Label16, valuation, kNumberWidth), Field(Label5, re_order, kNumberWidth),
               Field(Label11, optimal, kNumberWidth)});
}

Layout ItemDetailScreen::VendorForm() {
  std::vector<Layout> lines;
  for (int n = 1; n <= kVendors; ++n) {
    const Vendor vendor = VendorOf(n);
    lines.push_back(Row({Field(vendor.VendorOpt, vendor.where, 2.2),
                         Field("Inv. #:", vendor.v_id, 1.2), Field("Price:", vendor.Price, 0.9)}));
  }
  return Form(std::move(lines));
}

}  // namespace kvi
