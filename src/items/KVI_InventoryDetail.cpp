#include "items/KVI_InventoryDetail.h"

namespace kvi {

KVI_InventoryDetail::KVI_InventoryDetail(Application& app)
    : ItemDetailScreen(app, {.name = "KVI_InventoryDetail",
                             .vendors = Vendors::WithPurchaseSize,
                             .readsCorporateFlag = true,
                             .atFirstPart = "Already at beginning of the list.",
                             .askForNumber = "What new inventory part ID# would you like to use?  "
                                             "(15 characters maximum)",
                             .reportMask = "#####0.00"}) {
  // how_purchased is filled when the screen becomes active, and not before.
  for (const DropList& list : DropLists())
    if (list.combo != &how_purchased) app_.DropListCombos.push_back({list.combo, list.table});
}

void KVI_InventoryDetail::Prepare() {
  ItemDetailScreen::Prepare();
  SSTab1.Tab = 0;
}

Layout KVI_InventoryDetail::Arrange() {
  return Column(
      {BannerLayout(), ActionRow(),
       Fill(Tabs(SSTab1, {InformationPanel(), UsagePanel(), VendorPanel(), PicturePanel()}))});
}

Layout KVI_InventoryDetail::InformationPanel() {
  return Column(
      {Fill(Form({Row({Field("Part #:", i_num, 1.8), Of(btnCID)}), Field("Part Na&me:", iname),
                  Field("&Category:", category, 2.6), Field("&Location:", location, 2.6),
                  Field("&Description:", desc), Field("&Bar code scan#:", BarCodeScanId, 2.6),
                  Fill(Field("N&otes:", notes))})),
       Row({Frame("", Column({Of(active_i), Of(n_active_i)})),
            Frame("", Column({Of(rbCII), Of(rbNCII)}))})});
}

Layout KVI_InventoryDetail::UsagePanel() {
  return Column({FormOf({UnitLines(), CostLines()}),
                 Fill(Row({Frame("On-hand and Ordering Levels:", Form(LevelLines())),
                           Fill(Column({Of(Label24), Fill(Of(RecipeList))}))}))});
}

Layout KVI_InventoryDetail::VendorPanel() {
  return Column({Of(*LblPurchaseSize), Form(VendorLines()), Gap()});
}

Layout KVI_InventoryDetail::PicturePanel() {
  return Column({Fill(Of(Imageman1)), Of(picpath), Row({Of(Command5), Of(Command7), Gap()})});
}

}  // namespace kvi
