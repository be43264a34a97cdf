#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "DesktopTest.h"
#include "desktop/window/ProgressWindow.h"

namespace kvi::test {

using ProgressTest = DesktopTest;

constexpr qint64 kNever = 1'000'000'000;

TEST_F(ProgressTest, ItStandsOverTheWindowTakesAllInputAndCanBeCancelled) {
  ShowSample();
  ProgressPace atOnce{.patience = 0, .repaint = 0};
  ProgressWindow progress("Printing", true, desktop.WindowOf(sample), atOnce);
  progress.Begin("Page 1 of 3", 3);
  progress.Done(2);
  ASSERT_NE(progress.Window(), nullptr);
  EXPECT_TRUE(progress.Window()->isVisible());
  EXPECT_EQ(progress.Window()->findChild<QLabel*>()->text(), "Page 1 of 3");
  EXPECT_EQ(progress.Window()->findChild<QProgressBar*>()->value(), 2);

  const QWindow& below = *desktop.WindowOf(sample)->windowHandle();
  QTest::mouseClick(const_cast<QWindow*>(&below), Qt::LeftButton, {},
                    Widget(sample.save).mapTo(desktop.WindowOf(sample), QPoint(10, 10)));
  progress.Done(2);
  EXPECT_EQ(sample.TakeLog(), "");

  EXPECT_FALSE(progress.Cancelled());
  QTest::keyClick(progress.Window(), Qt::Key_Escape);
  EXPECT_TRUE(progress.Cancelled());
  EXPECT_TRUE(progress.Window()->isVisible()) << "the routine ends it, not the key";
}

TEST_F(ProgressTest, ItComesForWhatLastsAlone) {
  ShowSample();
  for (const qint64 lasting : {qint64(0), kNever}) {
    ProgressWindow progress("Costing", false, desktop.WindowOf(sample),
                            {.patience = kNever, .shortest = 0, .lasting = lasting});
    progress.Begin("Part groups", 10);
    EXPECT_EQ(progress.Window(), nullptr) << "nothing is foretold yet";
    progress.Done(1);
    EXPECT_EQ(progress.Window() != nullptr, lasting == 0);
    if (lasting != 0) continue;
    EXPECT_EQ(progress.Window()->findChild<QPushButton*>(), nullptr);
    QTest::keyClick(progress.Window(), Qt::Key_Escape);
    EXPECT_TRUE(progress.Window()->isVisible());
    EXPECT_FALSE(progress.Cancelled());
  }
}

}  // namespace kvi::test
