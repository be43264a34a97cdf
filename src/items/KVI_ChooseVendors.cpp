#include "items/KVI_ChooseVendors.h"

namespace kvi {

KVI_ChooseVendors::KVI_ChooseVendors(Application& app)
    : KviScreen(app, "KVI_ChooseVendors", "Choose Vendor", "Choose Vendor") {
  app_.DropListCombos.push_back({&where1, "Vendor_Info"});
  u_v1.Value = true;
  exit_lab.Cancel = true;
  exit_lab.Click = [this] { Exit(); };
}

Layout KVI_ChooseVendors::Arrange() {
  return Column({BannerLayout(), Actions({&exit_lab}), Field("&Vendor:", where1, 3),
                 Column({Of(u_v1), Of(u_v2), Of(u_v3)}), Gap()});
}

}  // namespace kvi
