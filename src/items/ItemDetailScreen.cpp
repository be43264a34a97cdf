#include "items/ItemDetailScreen.h"

#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/StrgSubs.h"
#include "items/ChangePartNumber.h"
#include "items/DetailReport.h"
#include "items/ItemCosts.h"
#include "items/ItemPicture.h"
#include "platform/Surface.h"
#include "security/CheckAccess.h"
#include "store/DButils.h"
#include "valuation/ItemValuation.h"

namespace kvi {

namespace {

constexpr std::size_t kLongestListText = 50;

}  // namespace

ItemDetailScreen::ItemDetailScreen(Application& app, const Differences& differences)
    : KviScreen(app, differences.name, "Inventory Detail", "Inventory - Inventory Detail"),
      WorkingItem(static_cast<Screen&>(*this), differences.vendors),
      differences_(differences) {
  btnCID.Tip = "Change the part number";
  cmdAddOnHand.Tip = "Add to on-hand";
  cmdMinusOnHand.Tip = "Take from on-hand";
  WatchChanges();
  HandleActions();
  HandleLostFocus();
}

void ItemDetailScreen::OpenPart(const std::string& number) {
  i_num.Text = number;
  SetCaption("Detail");
  app_.screens.ShowModal(*this);
}

void ItemDetailScreen::SetDirty(bool dirty) {
  if (dirty == itemDirty_) return;
  itemDirty_ = dirty;
  Say(dirty ? "Changes are not saved" : "");
}

std::string ItemDetailScreen::SavedText() const {
  return "Part " + Trim(i_num.Text()) + " saved";
}

void ItemDetailScreen::Prepare() {
  BlankFormulas();
}

void ItemDetailScreen::BlankFormulas() {
  for (Label* formula : {&HowInvFormula, &HowUsedFormula, &HowPurchasedFormula})
    formula->Caption = "";
}

void ItemDetailScreen::EndVisit() {
  // The next part that is opened is no new one, and its load no change.
  itemLoaded_ = newItem_ = false;
  Say("");
}

void ItemDetailScreen::WatchChanges() {
  const auto changed = [this] { SetDirty(true); };
  for (TextBox* box :
       {&BarCodeScanId, &desc, &hi_qty, &hp_cost_per, &hu_qty, &i_num, &notes, &optimal, &Price1,
        &Price2, &Price3, &qty_on_hand, &re_order, &v_id1, &v_id2, &v_id3})
    box->Change = changed;
  for (const DropList& list : DropLists()) {
    list.combo->Change = changed;
    list.combo->Click = changed;
  }
  for (OptionButton* option : {&active_i, &n_active_i, &rbCII, &rbNCII}) option->Click = changed;
  for (OptionButton* option : {&VendorOpt1, &VendorOpt2, &VendorOpt3})
    option->Click = [this] {
      SetDirty(true);
      RefreshVendorColor();
    };
  iname.Change = [this] {
    SetDirty(true);
    ShowName();
  };
  hu_cost_per.Change = [this] {
    if (itemLoaded_) app_.PartGroupCostsStale = true;
  };
}

void ItemDetailScreen::HandleActions() {
  save.Click = [this] { SaveAndLock(); };
  previous_lab.Click = [this] { StepItem(-1); };
  next_lab.Click = [this] { StepItem(+1); };
  dai.Click = [this] { AddItem(); };
  print_lab.Click = [this] { PrintReport(); };
  sprint_lab.Click = [this] { PrintImage(); };
  exit_lab.Click = [this] { Leave(); };
  btnCID.Click = [this] { ChangeNumber(); };
  cmdAddOnHand.Click = [this] { AddOnHand(*this); };
  cmdMinusOnHand.Click = [this] { MinusOnHand(*this); };
  Command5.Click = [this] { SelectImage(); };
  Command7.Click = [this] { RemoveImage(); };
}

// What comes when a field loses the focus; a change of its text alone only marks the item.
void ItemDetailScreen::HandleLostFocus() {
  for (TextBox* quantity : {&hi_qty, &hu_qty})
    // Both guard the used quantity; an inventoried one of 0 is set right at the save.
    quantity->LostFocus = [this] {
      GuardUsedQuantity(*this, app_.desktop);
      Recalc();
    };
  for (ComboBox* unit : {&how_inv, &how_used, &how_purchased}) CutWhenLeft(*unit, true);
  for (ComboBox* text : {&category, &location}) CutWhenLeft(*text, false);
  hp_cost_per.LostFocus = [this] { LeaveCost(); };
  qty_on_hand.LostFocus = [this] {
    qty_on_hand.Text = Format(Val(qty_on_hand.Text()), kAmountMask);
    Recalc();
  };
  optimal.LostFocus = [this] {
    if (optimal.Text().empty()) optimal.Text = "0";
  };
  for (int n = 1; n <= kVendors; ++n)
    VendorOf(n).where.LostFocus = [this, n] {
      ApplyVendorAvailability(*this, n);
      RefreshVendorColor();
    };
  iname.LostFocus = [this] { iname.Text = StripAmpersands(StripQuotes(iname.Text())); };
  i_num.LostFocus = [this] { LeaveNumber(); };
}

void ItemDetailScreen::CutWhenLeft(ComboBox& combo, bool isUnit) {
  combo.LostFocus = [this, &combo, isUnit] {
    combo.Text = Left(combo.Text(), kLongestListText);
    if (isUnit) Recalc();
  };
}

void ItemDetailScreen::Recalc() {
  RecalcItemCosts(*this, [this](const std::string& number, double quantity, double cost) {
    return ItemValuation(app_.CurrentDatabase, app_.settings.Valuation, app_.desktop, number,
                         quantity, cost);
  });
}

void ItemDetailScreen::LeaveCost() {
  hp_cost_per.Text = Format(Val(hp_cost_per.Text()), kCostMask);
  Recalc();
}

void ItemDetailScreen::LeaveNumber() {
  if (i_num.Locked) return;
  if (OpenItemRecord(app_.CurrentDatabase, Trim(i_num.Text()))) {
    Inform("Inv ID Number " + Trim(i_num.Text()) +
           " already exists. Please enter a new ID number.");
    i_num.Text = "";
    i_num.SetFocus();
  }
  ShowPartGroups();
}

void ItemDetailScreen::UseVendorPrice() {
  const int n = VendorOpt1.Value ? 1 : VendorOpt2.Value ? 2 : 3;
  const double price = Val(VendorOf(n).Price.Text());
  if (app_.desktop.MsgBox({.text = "Use price for vendor no. " + Str(n) + " as current price?",
                           .title = "PBI",
                           .buttons = Buttons::YesNo,
                           .icon = Icon::Question}) == Answer::No)
    return;
  hp_cost_per.Text = Str(price);
  LeaveCost();
  SetDirty(true);
}

bool ItemDetailScreen::CaptionSaysNew() const {
  return Caption().find("Add New") != std::string::npos;
}

void ItemDetailScreen::SaveAndLock() {
  if (itemDirty_) SaveItem();
  if (!CaptionSaysNew()) return;
  SetCaption("Maintenance");
  i_num.Locked = true;
}

void ItemDetailScreen::SelectImage() {
  try {
    if (SelectPicture(*this, app_.desktop)) SetDirty(true);
  } catch (const RunTimeError& error) {
    Inform(Str(error.Number) + " " + error.Description);
  }
}

void ItemDetailScreen::RemoveImage() {
  ShowPicture(*this, "");
  SetDirty(true);
}

void ItemDetailScreen::PrintReport() {
  if (missing_ || Caption() == "Detail - Add New Item") return;
  if (itemDirty_) {
    if (!AskOkCancel("Changes must be saved before printing.  Save changes and print?")) return;
    SaveItem();
  }
  const Hourglass busy(app_.desktop);
  const auto page = app_.desktop.NewDocument("Detail Report");
  PrintDetailReport(*page, *this,
                    {.companyTitle = app_.settings.CompanyName,
                     .today = app_.clock.Now().WithoutTime(),
                     .moneyMask = differences_.reportMask});
}

void ItemDetailScreen::Leave() {
  if (itemDirty_ && AskYesNo("Changes have been made.  Save before exiting?")) {
    SaveItem();
    SetDirty(false);
  }
  Exit();
}

void ItemDetailScreen::ChangeNumber() {
  if (!CheckAccess(app_.AccessString, kInventoryModule, kWriteAccess))
    return SayReadOnly("KV Inventory");
  if (missing_) return Inform("Change not made.");
  if (itemDirty_) {
    SaveItem();
    SetDirty(false);
  }
  const auto answer = app_.desktop.InputBox(differences_.askForNumber, "Change inventory part #");
  const std::string number = Trim(Left(answer.value_or(""), kLongestPartNumber));
  if (number.empty()) return Inform("Change not made.");
  if (OpenItemRecord(app_.CurrentDatabase, number))
    return Inform("Part # already in use.  Change not made.");
  if (!AskOkCancel("This will change the current part # to " + number +
                   ". Once this change has been made, this screen must exit.  Your changes have "
                   "already been saved.\n\nContinue?"))
    return Inform("Change not made.");
  // No failure is handled here: the pointer then stays busy, and earlier statements stay done.
  app_.desktop.SetPointer(MousePointer::Hourglass);
  ChangePartNumber(app_.CurrentDatabase, UCase(Trim(i_num.Text())), number);
  app_.desktop.SetPointer(MousePointer::Default);
  Inform("Change is complete.");
  CloseScreen();
}

}  // namespace kvi
