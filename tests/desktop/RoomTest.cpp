#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>

#include "DesktopTest.h"

namespace kvi::test {

namespace {

// A row that wraps, blocks that fold, and a line that grows.
class Crowded : public Screen {
 public:
  Crowded() : Screen("Crowded") {}
  Layout Arrange() override {
    return Column(
        {Actions({&exit_lab}),
         Row({Field("Category filter:", filter, 2), Field("Sort by:", sort, 2), Gap()}),
         Row({Form({Field(unitCaption, level, 1.5)}), Fill(Column({Field("Unit:", unit), Gap()}))}),
         Fill(Of(grid))});
  }
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  ComboBox filter{*this, "filter"}, sort{*this, "sort"};
  Label unitCaption{*this, "unitCaption", "Re-Order Level (each):"};
  TextBox level{*this, "level"}, unit{*this, "unit"};
  Spread grid{*this, "grid", 3, 3};
};

}  // namespace

class RoomTest : public DesktopTest {
 protected:
  ~RoomTest() override { desktop.CloseAllWindows(); }
  void Resize(int width, int height) {
    desktop.WindowOf(screen)->resize(width, height);
    QCoreApplication::processEvents();
  }
  QScrollArea& Scrolling() { return *desktop.WindowOf(screen)->findChild<QScrollArea*>("content"); }
  QPoint Corner(const Control& control) {
    return Widget(control).mapTo(desktop.WindowOf(screen), QPoint(0, 0));
  }
  Crowded screen;
};

TEST_F(RoomTest, ANarrowWindowWrapsAndScrollsDownAloneWhileTheActionsStay) {
  stack.Show(screen);
  Resize(780, 500);
  EXPECT_EQ(Corner(screen.filter).y(), Corner(screen.sort).y());
  EXPECT_EQ(Corner(screen.level).y(), Corner(screen.unit).y());
  EXPECT_FALSE(Scrolling().verticalScrollBar()->isVisible());
  Resize(340, 200);
  EXPECT_LT(Corner(screen.filter).y(), Corner(screen.sort).y());
  EXPECT_LT(Corner(screen.level).y(), Corner(screen.unit).y());
  EXPECT_FALSE(Scrolling().horizontalScrollBar()->isVisible());
  ASSERT_TRUE(Scrolling().verticalScrollBar()->isVisible());
  const int actions = Corner(screen.exit_lab).y(), field = Corner(screen.sort).y();
  Scrolling().verticalScrollBar()->setValue(40);
  EXPECT_EQ(Corner(screen.exit_lab).y(), actions);
  EXPECT_EQ(Corner(screen.sort).y(), field - 40);
}

TEST_F(RoomTest, ALongUnitWidensNothing) {
  stack.Show(screen);
  const int before = Scrolling().sizeHint().width();
  screen.unitCaption.Caption = "Re-Order Level (" + std::string(200, 'w') + "):";
  QCoreApplication::processEvents();
  EXPECT_LT(Scrolling().sizeHint().width(), before + 200);
  EXPECT_LT(Widget(screen.unitCaption).width(), 400);
}

TEST_F(RoomTest, AFieldThatWasLeftShowsItsBeginning) {
  stack.Show(screen);
  ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.WindowOf(screen)));
  Widget(screen.unit).setFocus();
  for (int i = 0; i < 60; ++i) Type("w");
  EXPECT_EQ(As<QLineEdit>(screen.unit).cursorPosition(), 60);
  Widget(screen.level).setFocus();
  EXPECT_EQ(As<QLineEdit>(screen.unit).cursorPosition(), 0);
}

}  // namespace kvi::test
