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

ItemDetailScreen::Lines ItemDetailScreen::UnitLines() {
  const auto line = [](const char* label, TextBox& quantity, ComboBox& unit, Label& formula) {
    return Row({Field(label, quantity, kNumberWidth), Of(unit, kUnitWidth), Fill(Of(formula))});
  };
  return {Row({Field("", lblQuantity, kNumberWidth), Of(lblUnit)}),
          line("How Purchased:", hp_qty, how_purchased, HowPurchasedFormula),
          line("How &Inventoried:", hi_qty, how_inv, HowInvFormula),
          line("How &Used:", hu_qty, how_used, HowUsedFormula)};
}

ItemDetailScreen::Lines ItemDetailScreen::CostLines() {
  return {Field(lblCostHowPurchased, hp_cost_per, kNumberWidth),
          Field(lblCostHowInv, hi_cost_per, kNumberWidth),
          Field(lblCostHowUsed, hu_cost_per, kNumberWidth)};
}

ItemDetailScreen::Lines ItemDetailScreen::LevelLines() {
  constexpr double kStepWidth = 0.35;
  return {Row({Field(Label7, qty_on_hand, kNumberWidth), Of(cmdAddOnHand, kStepWidth),
               Of(cmdMinusOnHand, kStepWidth)}),
          Field(Label16, valuation, kNumberWidth), Field(Label5, re_order, kNumberWidth),
          Field(Label11, optimal, kNumberWidth)};
}

ItemDetailScreen::Lines ItemDetailScreen::VendorLines() {
  Lines lines;
  for (int n = 1; n <= kVendors; ++n) {
    const Vendor vendor = VendorOf(n);
    lines.push_back(Row({Field(vendor.VendorOpt, vendor.where, 2.0),
                         Field("Inv. #:", vendor.v_id, 0.95), Field("Price:", vendor.Price, 0.8)}));
  }
  return lines;
}

Layout ItemDetailScreen::FormOf(const std::vector<Lines>& groups) {
  Lines lines;
  for (const Lines& group : groups) lines.insert(lines.end(), group.begin(), group.end());
  return Form(std::move(lines));
}

}  // namespace kvi
