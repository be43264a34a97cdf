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

// Fits in 1024 x 700.
Layout KVI_InventoryDetail1Screen::Arrange() {
  const Lines information = {
      Row({Field("Part #:", i_num, 1.7), Of(btnCID)}), Field("Part Na&me:", iname),
      Row({Field("&Category:", category, 1.7), Field("&Location:", location, 1.7)}),
      Field("&Description:", desc), Field("&Bar code scan#:", BarCodeScanId, 1.7)};
  const Lines remarks = {Field("N&otes:", notes, 0, 0.9)};
  Layout choices = Column({Frame("", Column({Of(active_i), Of(n_active_i)})),
                           Frame("", Column({Of(rbCII), Of(rbNCII)}))});
  Layout groups = Column({Of(Label24), Of(RecipeList, 0, 1.3)});
  Layout left = Column({FormOf({information, UnitLines(), VendorLines()}),
                        Row({std::move(choices), Fill(std::move(groups))}), Gap()});
  Layout right = Column({FormOf({CostLines(), LevelLines(), remarks}), Fill(Of(Imageman1)),
                         Of(picpath), Row({Of(Command5), Of(Command7), Gap()})});
  return Column(
      {BannerLayout(), ActionRow(), Fill(Row({std::move(left), Fill(std::move(right))}))});
}

}  // namespace kvi
