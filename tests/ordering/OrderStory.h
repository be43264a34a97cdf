#pragma once

#include "base/RunTimeError.h"
#include "ordering/KVI_OrderSystem.h"
#include "support/Story.h"

namespace kvi::test {

// A buyer at the par sheet. It lists, by name: 10 "Belt" (6 below par, below its re-order level),
// 9 "Ring" (at par) and 100 "Seal" (half a piece below par). 20 of "Seal" are on order in two saved
// orders, "Weekly" (7) and "Invoice:4711" (8), whose line for "Belt" has no price.
class OrderStory : public ScreenStory<KVI_OrderSystem> {
 protected:
  OrderStory() {
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | name | category | location | desc | how_purchased | "
                   "optimal | re_order | qty_on_hand | cost_per | where1 | active\n"
                   "10 | 0 | Belt | Belts | Bin 2 | wide | case | 10 | 5 | 4 | 12 | Acme | YES\n"
                   "9 | 0 | Ring | Seals | Bin 3 | | bag | 4 | 2 | 4 | 2.346 | Bolt & Co | yes\n"
                   "100 | 0 | Seal | Belts | Bin 1 | thin | each | 5.5 | 5 | 5 | 3 | Acme | YES\n"
                   "11 | 0 | Old | Belts | Bin 9 | | each | 9 | 5 | 1 | 3 | Acme | NO\n"
                   "12 | 4 | Far | Belts | Bin 9 | | each | 9 | 5 | 1 | 3 | Acme | YES");
    stockroom.Fill("Vendor_Info", "Name\n Acme\n Bolt & Co");
    stockroom.Fill("PSO_Master",
                   "pso_id | pso_name | pso_date | pcenter\n"
                   "7 | Weekly | 3/1/2026 | 0\n 8 | Invoice:4711 | 3/2/2026 | 0\n"
                   "9 | Far | 3/2/2026 | 4");
    stockroom.Fill("PSO_Detail",
                   "pcenter | pso_id | pso_inv_id | pso_qty | pso_price\n"
                   "0 | 7 | 100 | 12 | 2.5\n 0 | 7 | 9 | 3 | 2\n 0 | 8 | 100 | 8 | 2\n"
                   "0 | 8 | 10 | 1 | \n 4 | 9 | 12 | 1 | 1");
  }

  // Opens the screen by its tile, runs the user's acts and leaves it; `questions` are expected
  // while leaving.
  void Order(
      const Acts& user, const Acts& questions = [] {}) {
    Visit<KVI_OrderSystem>(&Main::Label16, [&] {
      user();
      questions();
    });
  }
  void Receive(
      const Acts& user, const Acts& questions = [] {}) {
    Order(
        [&] {
          stockroom.user().Choose(Screen().TabStrip1, 1);
          user();
        },
        questions);
  }
  std::string Items() {
    return stockroom.Rows(
        "SELECT inv_id, qty_on_hand, cost_per, valuation FROM I_Master WHERE pcenter = 0 and "
        "active = 'YES' ORDER BY name");
  }
};

}  // namespace kvi::test
