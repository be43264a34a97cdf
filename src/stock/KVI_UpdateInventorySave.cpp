#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "frame/GENERAL.h"
#include "grids/SprdSubs.h"
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
  int saved = 0;
  bool partChanged = false;
  const auto saveRow = [&](int row) { partChanged |= SaveRow(row); };
  const auto rowIsSaved = [&](int row) {
    ++saved;
    // Saving again after a stop does not add it again.
    if (tab_ == Tab::Purchase) Spread1.SetText(row, kQuantityColumn, "0");
  };
  const auto alreadySaved = [&] { return AlreadySaved(saved); };
  const auto saveAll = [&] {
    SaveRows(app_.CurrentDatabase, Spread1.MaxRows(), saveRow, rowIsSaved);
  };
  if (SaveRecord(app_.desktop, app_.CurrentDatabase, saveAll, alreadySaved) != SaveEnd::Saved)
    return;
  changed_ = false;
  Spread1.ForgetTyping();
  if (tab_ == Tab::Count) {
    // The theoretical levels show what was saved, and the variances are gone.
    SetInputCells();
    LoadUpdateGrid();
  } else {
    FinishPurchases(partChanged);
  }
  Say(CountOf(saved, "part") + " saved");
}

std::string KVI_UpdateInventory::AlreadySaved(int rows) const {
  const std::string text = SavedBefore(rows, Spread1.MaxRows());
  return text.empty() || tab_ == Tab::Count ? text : text + kNothingTwice;
}

// False for a part that is not there (any more): its row is passed over without a word.
bool KVI_UpdateInventory::SaveRow(int row) {
  jet::Recordset& items = app_.ItemSet;
  const std::string number = Spread1.Text(row, kNumberColumn);
  items.FindFirst("INV_ID = '" + number + "'");
  if (items.NoMatch()) return false;

  items.Edit();
  const Booking booking = BookingOf(
      row, {items.Number("qty_on_hand"), items.Number("cost_per"), items.Number("hi_qty")});
  if (tab_ == Tab::Purchase) items.Set("cost_per", booking.cost_per);
  items.Set("qty_on_hand", booking.qty_on_hand);
  items.Set("valuation", booking.valuation);
  items.Update();
  if (tab_ == Tab::Purchase && booking.bought > 0) BookReceipt(number, booking);
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

// The grid is not loaded again: the costs stay as they were typed. (The quantities are 0 before the
// groups are costed, so that a costing that fails does not let the next save add them again.)
void KVI_UpdateInventory::FinishPurchases(bool partChanged) {
  if (partChanged && AskYesNo("You made a change to one or more items(s).  Should we update the "
                              "part groups?",
                              "Speedy Update"))
    UpdatePartGroupCosts(app_);
}

}  // namespace kvi
