#include <QImage>
#include <map>

#include "DesktopTest.h"
#include "desktop/controls/ActionButton.h"
#include "desktop/look/Shades.h"

namespace kvi::test {

namespace {

// The contrast of what is painted: between the colour that most of the picture has and the one that
// stands out most from it. Frames at the edge do not count.
double PaintedContrast(const QImage& picture) {
  constexpr int kFrame = 6;
  std::map<QRgb, int> colors;
  for (int y = kFrame; y < picture.height() - kFrame; ++y)
    for (int x = kFrame; x < picture.width() - kFrame; ++x) ++colors[picture.pixel(x, y)];
  const auto most =
      std::ranges::max_element(colors, {}, [](const auto& color) { return color.second; });
  double contrast = 1;
  for (const auto& color : colors)
    contrast = std::max(contrast, Contrast(QColor(most->first), QColor(color.first)));
  return contrast;
}

}  // namespace

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
