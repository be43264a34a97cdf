#pragma once

#include <string>
#include <vector>

#include "frame/KviScreen.h"
#include "items/ItemRecord.h"
#include "items/WorkingItem.h"

namespace kvi {

// One part, loaded, edited, saved and stepped along the summary's grid: all that the two layouts of
// the detail screen do alike. A layout gives the places of the controls and its few differences.
class ItemDetailScreen : public KviScreen, public WorkingItem {
 public:
  // What a layout does in its own way.
  struct Differences {
    const char* name;
    Vendors vendors;
    bool readsCorporateFlag;   // when the screen becomes active
    const char* atFirstPart;   // said when there is no part before
    const char* askForNumber;  // the prompt of the part number change
    const char* reportMask;    // of cost and valuation on the Detail Report; "" as shown
  };

  // Shows the part until the user leaves it.
  void OpenPart(const std::string& number);

  void Activate() override { LoadItemOnActivate(); }
  void EndVisit() override;

  // Loads the part whose number stands in i_num; what fails is shown and passed over. Where the
  // part is gone or locked the fields are blank, and a save refuses them.
  void LoadItemOnActivate();
  // The same less the drop lists and the vendors' enabling. False when there is no such part.
  bool LoadInvItem_2();
  // Checks and writes the part on the screen. The changed state ends with success alone.
  void SaveItem();
  // Along the rows of the summary's grid, as they stand: +1 or -1.
  void StepItem(int direction);
  // Blanks the working item for the add button of this screen.
  void ClearItemFields();
  // Blanks it for the summary's New, which has a list of its own.
  void PrepareNewItem();
  // Offers the current vendor's price as the part's cost. No control of this version calls it.
  void UseVendorPrice();

  // An edit was made since the last load or save.
  bool ItemDirty() const { return itemDirty_; }
  // The screen was set to add a part through dai.
  bool NewItem() const { return newItem_; }

  ActionLabel save{*this, "save", "&Save"};
  ActionLabel previous_lab{*this, "previous_lab", "&Previous"};
  ActionLabel next_lab{*this, "next_lab", "&Next"};
  ActionLabel dai{*this, "dai", "&Add"};
  ActionLabel print_lab{*this, "print_lab", "Prin&t"};
  ActionLabel sprint_lab{*this, "sprint_lab", "Screen p&rint"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};
  Button btnCID{*this, "btnCID", "change"};
  Button cmdAddOnHand{*this, "cmdAddOnHand", "+"};
  Button cmdMinusOnHand{*this, "cmdMinusOnHand", "-"};
  Button Command5{*this, "Command5", "Select Image"};
  Button Command7{*this, "Command7", "Remove Image"};

 protected:
  ItemDetailScreen(Application& app, const Differences& differences);

  void Prepare() override;
  Layout ActionRow();
  // Groups of fields as lines of a form, so that a layout can line up their labels.
  using Lines = std::vector<Layout>;
  Lines UnitLines();
  Lines CostLines();
  Lines LevelLines();
  Lines VendorLines();
  static Layout FormOf(const std::vector<Lines>& groups);

 private:
  void WatchChanges();
  void SetDirty(bool dirty);
  std::string SavedText() const;
  void HandleActions();
  void HandleLostFocus();
  void CutWhenLeft(ComboBox& combo, bool isUnit);

  void FillLists(const LoadStatements& run);
  jet::Recordset ReadRow(const std::string& trimmedKey, const LoadStatements& run);
  bool ShowRow(const jet::Recordset& row, const LoadStatements& run);
  void LoadItemRecord();
  void TakeAsLoaded();
  void ShowNothing();
  void ShowPartGroups();
  void BlankFields();
  void BlankFormulas();
  void BlankItem();
  bool NumberIsWanted();
  void WarnOfSharedName();
  void GiveNumber();
  void WriteItem();

  void Recalc();
  void RefreshVendorColor() {}  // changes nothing: the vendors have no colours in this design
  void LeaveCost();
  void LeaveNumber();
  void SaveAndLock();
  void AddItem();
  void ChangeNumber();
  void SelectImage();
  void RemoveImage();
  void PrintReport();
  // Asks about unsaved changes. The window's own box is the Exit without the question.
  void Leave();
  // A part that was never loaded; typing a name ends it, since the caption then shows the name.
  bool CaptionSaysNew() const;
  void ShowName() { SetCaption("Detail - " + iname.Text()); }

  const Differences differences_;
  bool itemDirty_ = false;
  bool newItem_ = false;
  bool itemLoaded_ = false;  // from then on a changed used cost makes part group costs stale
  bool missing_ = false;     // the part under i_num could not be loaded, and is not saved either
};

}  // namespace kvi
