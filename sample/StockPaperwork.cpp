#include <algorithm>

#include "base/Date.h"
#include "base/Format.h"
#include "sample/Directory.h"
#include "sample/Stockroom.h"

namespace kvi {
namespace {

using stockroom::Invoice;
using stockroom::Order;
using stockroom::Part;

constexpr int kOrdersPerCenter = 2;
constexpr std::size_t kLongestOrder = 25;

// Order numbers are drawn, and drawn again when taken: the program itself would let two orders
// share their lines, the sample does not.
int DrawId(const std::vector<Order>& orders, Dice& dice) {
  for (;;) {
    const int id = dice.Between(1, 30000);
    if (std::ranges::find(orders, id, &Order::Id) == orders.end()) return id;
  }
}

// The name that the program offers, or that of a vendor's invoice to be received against.
std::string OrderName(long day, bool againstInvoice, Dice& dice) {
  if (againstInvoice) return "Invoice:" + std::to_string(dice.Between(40000, 59999));
  Date moment = AddDays(Date{}, day);
  moment.hour = dice.Between(7, 15);
  moment.minute = dice.Below(60);
  return "Order " + Format(moment, "HH:MM AM/PM") + "-" + Format(moment, "mm/dd/yyyy");
}

// An order as stockrooms have them too: a line without a price, and one of a part that is gone.
void PlaceOddOrder(Stockroom& room, Dice& dice) {
  Order order{DrawId(room.Orders, dice), "Invoice:4711", LastPurchaseDay(), 0, {}};
  for (const Part& part : room.Parts) {
    if (!part.Active || part.ProfitCenter != 0) continue;
    order.Lines.push_back({part.InvId, 4, order.Lines.empty() ? part.Cents : 0});
    if (order.Lines.size() == 2) break;
  }
  order.Lines.push_back({"GONE-4711", 1, 950});
  room.Orders.push_back(std::move(order));
}

}  // namespace

void PlaceOrders(Stockroom& room, Dice& dice) {
  for (int center = 0; center < kProfitCenterCount; ++center) {
    std::vector<const Part*> low;
    for (const Part& part : room.Parts)
      if (part.Active && part.ProfitCenter == center && part.OnHand < part.ReOrder * 100)
        low.push_back(&part);
    const std::size_t share = (low.size() + kOrdersPerCenter - 1) / kOrdersPerCenter;
    auto next = low.begin();
    for (int i = 0; i < kOrdersPerCenter; ++i) {
      Order order{
          DrawId(room.Orders, dice), {}, LastPurchaseDay() - dice.Between(1, 5), center, {}};
      order.Name = OrderName(order.Day, i == 1, dice);
      for (; next != low.end() && order.Lines.size() < std::min(share, kLongestOrder); ++next)
        order.Lines.push_back(
            {(*next)->InvId, ((*next)->Par * 100 - (*next)->OnHand + 99) / 100, (*next)->Cents});
      room.Orders.push_back(std::move(order));
    }
  }
  PlaceOddOrder(room, dice);
}

void RegisterInvoices(Stockroom& room, int count, Dice& dice) {
  for (int i = 0; i < count; ++i) {
    const Vendor& vendor = dice.Pick(Vendors());
    const long day = WorkDay(LastPurchaseDay() - 120 + i * 120 / count);
    Invoice invoice{
        vendor.Name, {}, day, day + (dice.Percent(70) ? 30 : 15), dice.Between(4000, 480000), 0};
    invoice.Number = dice.Percent(50) ? std::to_string(dice.Between(10000, 99999))
                                      : std::string(vendor.Code) + "-" +
                                            std::to_string(dice.Between(1000, 9999));
    invoice.AdjustedCents =
        dice.Percent(80) ? invoice.Cents : invoice.Cents - dice.Between(500, 3900);
    room.Invoices.push_back(std::move(invoice));
  }
}

}  // namespace kvi
