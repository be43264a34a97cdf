#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/GENERAL.h"
#include "ordering/KVI_OrderSystem.h"
#include "partgroups/UpdatePartGroupCosts.h"
#include "security/CheckAccess.h"
#include "stock/StockBooking.h"
#include "store/DButils.h"
#include "store/SaveRecord.h"
#include "valuation/AddPurchase.h"

// An order saved, received and removed.
namespace kvi {

namespace {

constexpr const char* kTitle = "Par Sheet Order";
constexpr int kDataChanged = 3197;

}  // namespace

bool KVI_OrderSystem::MayWrite() {
  if (CheckAccess(app_.AccessString, kOrderModule, kWriteAccess)) return true;
  SayReadOnly();
  return false;
}

void KVI_OrderSystem::save_changes() {
  if (!MayWrite()) return;
  Telling([this] {
    if (ShownTab() == Tab::Place)
      SaveTemplate();
    else
      ReceiveOrder();
  });
}

// A failure ends what was begun; rows that are written stay.
void KVI_OrderSystem::Telling(const std::function<void()>& work) {
  try {
    work();
  } catch (const RunTimeError& error) {
    Inform("An error has occured: " + Str(error.Number) + "-" + error.Description);
  }
}

// Whatever the answer, the suggestions are worked out anew.
void KVI_OrderSystem::SaveTemplate() {
  const Date now = app_.clock.Now();
  const auto name = app_.desktop.InputBox(
      "Saving this data will create a 'template order' which you can later 'receive'.  Please "
      "enter the name of this order (or use the default name) or hit cancel.",
      kTitle, "Order " + Format(now, "HH:MM AM/PM") + "-" + Format(now, "MM/DD/YYYY"));
  if (name && !name->empty()) {
    const SavedOrder order{app_.CurrentProfitCenter, NewOrderId(app_.chance), *name,
                           now.WithoutTime(), OrderedLines()};
    if (!WriteUnderLocks(app_.desktop, app_.CurrentDatabase,
                         [&] { WriteOrder(app_.CurrentDatabase, order); }))
      return;
    Inform("Order complete.", kTitle);
    Spread1.ForgetTyping();
  }
  load_data();
}

// A quantity of 0 makes no line; a negative one stands as it is.
std::vector<OrderLine> KVI_OrderSystem::OrderedLines() const {
  std::vector<OrderLine> lines;
  for (int row = 1; row <= Spread1.MaxRows(); ++row)
    if (const double quantity = Val(Spread1.Text(row, kQuantityColumn)); quantity != 0)
      lines.push_back(
          {Spread1.Text(row, kNumberColumn), quantity, Val(Spread1.Text(row, kCostColumn))});
  return lines;
}

void KVI_OrderSystem::ReceiveOrder() {
  if (!AskYesNo("This option will receive an order and update levels based on the values listed in "
                "the 'Quantity Received' column.\n\nUse this button after you have verified that "
                "the order you placed was shipped and received.  Once complete, this order will be "
                "removed so that you do not inadvertently add to twice.\n\nContinue?",
                "Par Order Sheet"))
    return;
  bool partChanged = false;
  if (!BookOrder(partChanged)) return;
  changed_ = false;
  Spread1.ForgetTyping();
  if (partChanged && AskYesNo("You made a change to one or more item(s).  Should we update the "
                              "part groups?",
                              "Speedy Update"))
    UpdatePartGroupCosts(app_);
  RemoveSavedOrder();
}

// Claims the opened order; false when the user would not wait for another desk's lock. The claim
// stands outside of the question about locks: within it, what another desk changed is passed over,
// and here it must not be. So the question comes from a statement that changes nothing.
bool KVI_OrderSystem::ClaimOpened() {
  const auto touchNothing = [this] {
    app_.CurrentDatabase.Execute("UPDATE PSO_Master SET pso_id = pso_id WHERE pso_id < 0");
  };
  for (;;) {
    try {
      ClaimOrder(opened_, app_.clock.Now());
      return true;
    } catch (const RunTimeError& error) {
      if (error.Number == kDataChanged || !IsLockError(error.Number)) throw;
    }
    if (!WriteUnderLocks(app_.desktop, app_.CurrentDatabase, touchNothing)) return false;
  }
}

bool KVI_OrderSystem::BookOrder(bool& partChanged) {
  const Hourglass busy(app_.desktop);
  if (!ClaimOpened()) return false;
  int booked = 0;
  const auto book = [&](int row) { partChanged |= ReceiveRow(row); };
  const auto isBooked = [&](int row) {
    ++booked;
    // Saving again after a stop does not book it again.
    Spread1.SetText(row, kQuantityColumn, "0");
  };
  return WriteUnderLocks(
      app_.desktop, app_.CurrentDatabase,
      [&] { SaveRows(app_.CurrentDatabase, Spread1.MaxRows(), book, isBooked); },
      [&] {
        const std::string text = SavedBefore(booked, Spread1.MaxRows());
        return text.empty() ? text : text + kNothingTwice;
      });
}

// False for a part that is not there (any more). Every part that is listed is written, also one
// that nothing came of: it takes the cost that stands beside it.
bool KVI_OrderSystem::ReceiveRow(int row) {
  const std::string number = Trim(Spread1.Text(row, kNumberColumn));
  jet::Recordset& items = app_.ItemSet;
  items.FindFirst("INV_ID = '" + number + "'");
  if (items.NoMatch()) return false;
  const auto cell = [&](int col) { return Val(Spread1.Text(row, col)); };
  items.Edit();
  const Booking booking =
      BookPurchase({items.Number("qty_on_hand"), items.Number("cost_per")}, cell(kQuantityColumn),
                   cell(kCostColumn), ShownAs::Purchased);
  items.Set("cost_per", booking.cost_per);
  items.Set("qty_on_hand", booking.qty_on_hand);
  items.Set("valuation", booking.valuation);
  items.Update();
  if (booking.bought > 0)
    AddPurchase(app_.PurchaseSet,
                {.inv_id = number,
                 .day = app_.clock.Now().WithoutTime(),
                 .quantity = booking.bought,
                 .price = booking.cost_per,
                 .transaction = TransactionName(),
                 .order = Purchase::Order{app_.CurrentProfitCenter, cell(kOrderedColumn),
                                          cell(kOrderedCostColumn)}});
  return true;
}

// An order that bears an invoice's name hands it on to the history.
std::string KVI_OrderSystem::TransactionName() const {
  constexpr const char* kInvoice = "Invoice:";
  const std::string& name = orders.Text();
  return name.starts_with(kInvoice) ? Trim(name) : MakeTimeStamp(app_.clock);
}

void KVI_OrderSystem::RemoveSavedOrder() {
  const bool receiving = ShownTab() == Tab::Receive;
  // Behind the tab that places orders none is opened: the position alone tells which, and without
  // one it is the first.
  if (!receiving)
    opened_ = OrderAt(app_.CurrentDatabase, app_.CurrentProfitCenter, orders.ListIndex());
  if (!opened_.Eof() && !WriteUnderLocks(app_.desktop, app_.CurrentDatabase,
                                         [&] { DeleteOrder(app_.CurrentDatabase, opened_); }))
    return;
  if (!receiving) return load_data();
  if (orders.ListIndex() >= 0) orders.RemoveItem(orders.ListIndex());
  if (orders.ListCount() == 0) return EndReceiving();
  orders.SetListIndex(0);
}

}  // namespace kvi
