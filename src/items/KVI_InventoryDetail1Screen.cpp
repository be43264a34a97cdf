#include "items/KVI_InventoryDetail1Screen.h"

namespace kvi {

// The corporate flag is not read when the screen becomes active: the two choices stay as the part
// before left them, and a save writes what they show.
KVI_InventoryDetail1Screen::KVI_InventoryDetail1Screen(Application& app)
    : ItemDetailScreen(app, {.name = "KVI_InventoryDetail1Screen",
                             .vendors = Vendors::Plain,
                             .readsCorporateFlag = false,
                             .atFirstPart = "Already at beginning of recordset",
                             .askForNumber = "What new inventory part ID# would you like to use? "
                                             "(15 characters maximum)",
                             .reportMask = ""}) {}

Layout KVI_InventoryDetail1Screen::Arrange() {
  Layout information =
      Form({Row({Field("Part #:", i_num, 1.6), Of(btnCID)}), Field("Part Name:", iname),
            Row({Field("Category:", category, 1.9), Field("Location:", location, 1.9)}),
            Field("Description:", desc), Field("Bar code scan#:", BarCodeScanId, 2.4)});
  Layout choices = Row({Frame("", Column({Of(active_i), Of(n_active_i)})),
                        Frame("", Column({Of(rbCII), Of(rbNCII)}))});
  Layout left = Column(
      {std::move(information), UnitForm(), Row({CostForm(), LevelForm()}), std::move(choices)});
  Layout right = Column({VendorForm(), Text("Notes:"), Fill(Of(notes)),
                         Fill(Row({Fill(Column({Of(Label24), Fill(Of(RecipeList))})),
                                   Fill(Column({Fill(Of(Imageman1)), Of(picpath),
                                                Row({Of(Command5), Of(Command7)})}))}))});
  return Column(
      {BannerLayout(), ActionRow(), Fill(Row({std::move(left), Fill(std::move(right))}))});
}

}  // namespace kvi
