#include "utilities/KVI_GetILocation.h"

namespace kvi {

KVI_GetILocation::KVI_GetILocation(Application& app)
    : KviScreen(app, "KVI_GetILocation", "Location", "Inventory - Location") {
  save.Click = [this] { Browse(); };
  Label12.Click = [this] { Answer(false); };
  Label11.Cancel = true;
  Label11.Click = [this] { Exit(); };
}

void KVI_GetILocation::Prepare() {
  if (!app_.DataFilePath.empty()) txtPath.Text = app_.DataFilePath;
}

void KVI_GetILocation::Browse() {
  const auto chosen = app_.desktop.OpenFileDialog({.title = "Select Data File",
                                                   .filters = {{"All Files (*.*)", "*.*"}},
                                                   .start = app_.ProgramFolder});
  if (chosen) txtPath.Text = *chosen;
}

void KVI_GetILocation::Answer(bool cancelled) {
  app_.DataFileCancelled = cancelled;
  if (!cancelled) app_.DataFilePath = txtPath.Text;
  CloseScreen();
}

Layout KVI_GetILocation::Arrange() {
  return Column({BannerLayout(), Actions({&save, &Label12, &Label11}),
                 Field("&Location of inventory data file:", txtPath, 5), Gap()});
}

}  // namespace kvi
