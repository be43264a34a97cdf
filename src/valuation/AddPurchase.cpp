#include "valuation/AddPurchase.h"

namespace kvi {

void AddPurchase(jet::Recordset& purchases, const Purchase& purchase) {
  purchases.AddNew();
  purchases.Set("INV_ID", purchase.inv_id);
  purchases.Set("p_date", purchase.day.WithoutTime());
  purchases.Set("p_qty", purchase.quantity);
  purchases.Set("TRANS_NUM", purchase.transaction);
  purchases.Set("Price", purchase.price);
  if (purchase.order) {
    purchases.Set("PCenter", purchase.order->profitCenter);
    purchases.Set("o_qty", purchase.order->quantity);
    purchases.Set("o_price", purchase.order->price);
  }
  purchases.Update();
}

}  // namespace kvi
