#include "ordering/SavedOrders.h"

#include <algorithm>

#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

namespace {

constexpr std::size_t kLongestName = 50;

jet::Recordset OpenOrders(jet::Database& database, int profitCenter) {
  return database.OpenRecordset("SELECT * from PSO_Master where pcenter = " + Str(profitCenter) +
                                " ");
}

int IdOf(const jet::Recordset& order) {
  return static_cast<int>(order.Number("pso_id"));
}

}  // namespace

int NewOrderId(Chance& chance) {
  // The largest number below 1 that single precision holds: the draw never reaches 1 by rounding.
  constexpr float kHighest = 0x1.fffffep-1F;
  const float drawn = std::min(static_cast<float>(chance.Next()), kHighest);
  return static_cast<int>(drawn * 30000.0F + 1.0F);
}

std::vector<std::string> OrderNames(jet::Database& database, int profitCenter) {
  std::vector<std::string> names;
  for (auto orders = OpenOrders(database, profitCenter); !orders.Eof(); orders.MoveNext())
    names.push_back(orders.Text("pso_name"));
  return names;
}

jet::Recordset OrderAt(jet::Database& database, int profitCenter, int position) {
  jet::Recordset orders = OpenOrders(database, profitCenter);
  for (; position > 0 && !orders.Eof(); --position) orders.MoveNext();
  return orders;
}

OrderLines LinesOfOrder(jet::Database& database, const jet::Recordset& order) {
  OrderLines lines;
  auto set = database.OpenRecordset(
      "SELECT * from PSO_detail where pcenter = " + Str(order.Number("pcenter")) +
      " and pso_id = " + Str(IdOf(order)));
  for (; !set.Eof(); set.MoveNext()) {
    const std::string number = Trim(set.Text("pso_inv_id"));
    lines.try_emplace(number, OrderLine{number, set.Number("pso_qty"), set.Number("pso_price")});
  }
  return lines;
}

OnOrder QuantitiesOnOrder(jet::Database& database, int profitCenter) {
  OnOrder sums;
  auto set = database.OpenRecordset(
      "SELECT pso_inv_id, sum(pso_qty) as sumof_qty from PSO_Detail where pcenter = " +
      Str(profitCenter) + " group by pso_inv_id");
  for (; !set.Eof(); set.MoveNext())
    sums.try_emplace(set.Text("pso_inv_id"), set.Number("sumof_qty"));
  return sums;
}

void WriteOrder(jet::Database& database, const SavedOrder& order) {
  database.WriteAtOnce([&] {
    jet::Recordset master = OpenOrders(database, order.profitCenter);
    master.AddNew();
    master.Set("pso_name", Left(order.name, kLongestName));
    master.Set("pso_date", order.date);
    master.Set("pso_id", order.id);
    master.Set("pcenter", order.profitCenter);
    master.Update();
    jet::Recordset detail = database.OpenRecordset(
        "SELECT * from PSO_detail where pcenter = " + Str(order.profitCenter) + " ");
    for (const OrderLine& line : order.lines) {
      detail.AddNew();
      detail.Set("pcenter", order.profitCenter);
      detail.Set("pso_id", order.id);
      detail.Set("pso_inv_id", line.inv_id);
      detail.Set("pso_qty", line.quantity);
      detail.Set("pso_price", line.price);
      detail.Update();
    }
  });
}

// What is written must differ, or no other desk would see it: the time of day joins the order's
// date.
void ClaimOrder(jet::Recordset& order, const Date& now) {
  order.Edit();
  Date date = order["pso_date"].IsDate() ? order["pso_date"].AsDate() : now;
  date.hour = now.hour;
  date.minute = now.minute;
  date.second = now.second;
  order.Set("pso_date", date);
  order.Update();
}

void DeleteOrder(jet::Database& database, jet::Recordset& order) {
  const int id = IdOf(order);
  database.WriteAtOnce([&] {
    order.Delete();
    database.Execute("DELETE * FROM PSO_Detail WHERE pso_id = " + Str(id));
  });
}

}  // namespace kvi
