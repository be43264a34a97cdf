
#include "DesktopTest.h"
#include "PaintedContrast.h"
#include "desktop/controls/ActionButton.h"
#include "desktop/look/Shades.h"

namespace kvi::test {

class ContrastTest : public DesktopTest {
 protected:
  void Color(int back, int fore) {
    sample.resting = fore;
    sample.SetBackColor(back);
    const auto color = [&](Control& control) {
      control.BackColor = back;
      control.ForeColor = fore;
    };
    color(sample.heading);
    color(sample.save);
    color(sample.second);
    QCoreApplication::processEvents();
  }
  double Of(const Control& control) {
    QWidget& widget = Widget(control);
    const QPoint corner = widget.mapTo(widget.window(), QPoint(0, 0));
    return PaintedContrast(widget.window()->grab({corner, widget.size()}).toImage());
  }
};

TEST_F(ContrastTest, ActionsTilesAndHeadingsCanBeReadInEveryColourScheme) {
  const struct {
    int back, fore;
  } schemes[] = {{kBlack, kWhite},    {kDarkGrey, kWhite},  {kLightGrey, kWhite},
                 {kDarkGrey, kBlack}, {kLightGrey, kBlack}, {kRed, kWhite},
                 {kBlue, kWhite},     {kMagenta, kWhite}};
  ShowSample();
  ActionButton tile;
  tile.SetLook(ActionButton::Look::Tile);
  tile.setText("Inventory - keep the parts");
  tile.resize(tile.sizeHint());
  for (const auto& scheme : schemes) {
    SCOPED_TRACE(testing::Message() << "back " << scheme.back << ", fore " << scheme.fore);
    Color(scheme.back, scheme.fore);
    Widget(sample.second).setFocus();
    EXPECT_GE(Of(sample.save), 4.5);
    EXPECT_GE(Of(sample.heading), 4.5);
    sample.Hover(sample.save);
    EXPECT_EQ(sample.save.ForeColor, kBrightGreen);
    EXPECT_GE(Of(sample.save), 4.5) << "under the mouse";
    Widget(sample.save).setFocus();
    EXPECT_GE(Of(sample.save), 4.5) << "with the focus";
    sample.clear_labels();
    EXPECT_EQ(sample.save.ForeColor, scheme.fore);
    for (const int ink : {scheme.fore, kBrightGreen})
      for (const bool pressed : {false, true}) {
        tile.SetColors(ClassicColor(ink), ClassicColor(scheme.back));
        tile.setDown(pressed);
        EXPECT_GE(PaintedContrast(tile.grab().toImage()), 4.5) << "tile, ink " << ink;
      }
  }
}

}  // namespace kvi::test
