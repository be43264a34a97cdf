#include <QScrollBar>
#include <QWheelEvent>

#include "DesktopTest.h"
#include "desktop/controls/SheetAdapters.h"
#include "platform/Canvas.h"

namespace kvi::test {
namespace {

class SheetScreen : public Screen {
 public:
  SheetScreen() : Screen("KVI_Sheet", "Sheet") {}
  Layout Arrange() override { return Column({Fill(sheet.Arrange())}); }
  ScrolledSheet sheet{*this};
};

class SheetTest : public DesktopTest {
 protected:
  SheetTest() {
    SheetSurface paper(desktop.Measure(), 8.5, 11);
    paper.FillBox(0, 0, 1, 1, kBlack);
    screen.sheet.canvas.Show(paper.TakeMarks(), 12240, 15840);
    stack.Show(screen);
    EXPECT_TRUE(QTest::qWaitForWindowActive(desktop.WindowOf(screen)));
    desktop.WindowOf(screen)->resize(500, 400);
    QCoreApplication::processEvents();
  }
  ~SheetTest() override { desktop.CloseAllWindows(); }
  QWidget& Sheet() { return Widget(screen.sheet.canvas); }
  // Whether the sheet's corner shows where it stands, by the box in it.
  bool IsDark(int x, int y) { return Sheet().grab().toImage().pixelColor(x, y).lightness() < 60; }

  SheetScreen screen;
};

TEST_F(SheetTest, BarsKeysAndWheelMoveTheSheetAndZoomIsTheWindowsOwn) {
  ScrolledSheet& sheet = screen.sheet;
  const int whole = sheet.VScroll1.Max;
  ASSERT_EQ(whole, sheet.canvas.Height() - sheet.canvas.InsideHeight());
  EXPECT_TRUE(IsDark(5, 5));
  Sheet().setFocus();
  Press(Qt::Key_Down);
  EXPECT_EQ(sheet.VScroll1.Value, sheet.VScroll1.SmallChange);
  As<QScrollBar>(sheet.VScroll1).setValue(whole);
  EXPECT_EQ(sheet.canvas.Top, -whole);
  EXPECT_FALSE(IsDark(5, 5));
  Press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(sheet.VScroll1.Max, whole) << "less of the sheet is in sight";
  Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(sheet.VScroll1.Max, whole);
  for (int step = 0; step < 9; ++step) Press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_LT(sheet.VScroll1.Max, whole);
  EXPECT_LE(sheet.VScroll1.Value, sheet.VScroll1.Max);
  EXPECT_EQ(sheet.canvas.Height(), 15840);
  Press(Qt::Key_0, Qt::ControlModifier);
  const auto turn = [&](int angle, Qt::KeyboardModifiers keys) {
    QWheelEvent event({5, 5}, {5, 5}, {}, {0, angle}, Qt::NoButton, keys, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Sheet(), &event);
  };
  const int before = whole / 2;
  As<QScrollBar>(sheet.VScroll1).setValue(before);
  turn(60, Qt::NoModifier);
  turn(60, Qt::NoModifier);
  EXPECT_EQ(sheet.VScroll1.Value, before - sheet.VScroll1.SmallChange);
  turn(120, Qt::ControlModifier);
  EXPECT_GT(sheet.VScroll1.Max, whole);
}

}  // namespace
}  // namespace kvi::test
