#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "frame/GENERAL.h"
#include "partgroups/UpdatePartGroupCosts.h"
#include "security/CheckAccess.h"
#include "stock/KVI_UpdateInventory.h"
#include "store/SaveRecord.h"
#include "valuation/AddPurchase.h"

// The save of both tabs. Every listed row is written, changed or not, from the texts of its cells.
namespace kvi {

void KVI_UpdateInventory::SaveUpdateGrid() {
  if (!CheckAccess(app_.AccessString, kUpdateModule, kWriteAccess)) {
    SayReadOnly();
    LoadUpdateGrid();
    return;
  }
  const Hourglass busy(app_.desktop);
  bool partChanged = false;
  const SaveEnd end = SaveRecord(app_.desktop, [&](SaveStatements& run) {
    jet::WriteBatch batch(app_.CurrentDatabase);
    for (int row = 1; row <= Spread1.MaxRows(); ++row)
      if (SaveRow(row, run)) partChanged = true;
    run([&] { batch.Finish(); });
  });
  if (end != SaveEnd::Saved) return;
  changed_ = false;
  if (tab_ == Tab::Count) {
    // The theoretical levels show what was saved, and the variances are gone.
    SetInputCells();
    LoadUpdateGrid();
  } else {
    FinishPurchases(partChanged);
  }
}

// False for a part that is not there (any more): its row is passed over without a word.
bool KVI_UpdateInventory::SaveRow(int row, SaveStatements& run) {
  jet::Recordset& items = app_.ItemSet;
  const std::string number = Spread1.Text(row, kNumberColumn);
  run([&] { items.FindFirst("INV_ID = '" + number + "'"); });
  if (items.NoMatch()) return false;

  Booking booking;
  // From the edit to the write it is one statement: after a lock it runs again on the level that
  // the other desk left, so that an addition adds to that.
  run([&] {
    run([&] { items.Edit(); });
    booking = BookingOf(
        row, {items.Number("qty_on_hand"), items.Number("cost_per"), items.Number("hi_qty")});
    if (tab_ == Tab::Purchase) items.Set("cost_per", booking.cost_per);
    items.Set("qty_on_hand", booking.qty_on_hand);
    items.Set("valuation", booking.valuation);
    items.Update();
  });
  if (tab_ == Tab::Purchase && booking.bought > 0) run([&] { BookReceipt(number, booking); });
  return true;
}

// Texts that are no numbers, and blanks, count as 0.
Booking KVI_UpdateInventory::BookingOf(int row, const PartLevel& part) const {
  const double entry = Val(Spread1.Text(row, kEntryColumn));
  if (tab_ == Tab::Count) return BookCount(part, entry, Units());
  return BookPurchase(part, Val(Spread1.Text(row, kQuantityColumn)), entry, Units());
}

// Without a profit center, and without an ordered quantity and price: those come with orders alone.
void KVI_UpdateInventory::BookReceipt(const std::string& number, const Booking& booking) {
  constexpr std::size_t kToTheMinute = 10;
  AddPurchase(app_.PurchaseSet,
              {.inv_id = number,
               .day = app_.clock.Now(),
               .quantity = booking.bought,
               .price = booking.cost_per,
               .transaction = "Spdy:" + Left(MakeTimeStamp(app_.clock), kToTheMinute)});
}

// The grid is not loaded again: the costs stay as they were typed.
void KVI_UpdateInventory::FinishPurchases(bool partChanged) {
  if (partChanged && AskYesNo("You made a change to one or more items(s).  Should we update the "
                              "part groups?",
                              "Speedy Update"))
    UpdatePartGroupCosts(app_);
  for (int row = 1; row <= Spread1.MaxRows(); ++row) Spread1.SetText(row, kQuantityColumn, "0");
}

}  // namespace kvi
