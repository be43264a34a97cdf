#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "desktop/window/QtDesktop.h"
#include "desktop/window/ScreenWindow.h"
#include "stock/KVI_UpdateInventory.h"
#include "support/TestStockroom.h"

namespace kvi::test {
namespace {

void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
  QTest::keyClick(QApplication::focusWidget(), key, with);
}

void Type(const char* text) {
  for (; *text != '\0'; ++text) QTest::keyClick(QApplication::focusWidget(), *text);
}

TEST(ScanKeysTest, AShelfIsCountedByTheScannerAndTheDigitsAlone) {
  TestStockroom stockroom;
  stockroom.Fill("I_Master",
                 "inv_id | pcenter | name | BarCodeScan | active\n 1 | 0 | Belt | BC1 | YES\n"
                 "2 | 0 | Cap | BC2 | YES\n 3 | 0 | Ring | BC3 | YES");
  char program[] = "scan";
  char* arguments[] = {program, nullptr};
  int count = 1;
  QtDesktop desktop(count, arguments);
  Application app(
      {desktop, stockroom.clock, stockroom.chance, stockroom.folder.Path().string(), ""});
  desktop.SetStack(app.screens);
  app.screens.Load(app.Get<Main>());
  auto& screen = app.Get<KVI_UpdateInventory>();
  app.screens.Show(screen);
  ScreenWindow& window = *desktop.WindowOf(screen);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  auto& scan = dynamic_cast<QLineEdit&>(*window.WidgetOf(screen.scan.Scan));
  const auto counts = [&] {
    return GridText(screen.Spread1, KVI_UpdateInventory::kEntryColumn,
                    KVI_UpdateInventory::kEntryColumn);
  };

  EXPECT_TRUE(window.WidgetOf(screen.Spread1)->hasFocus()) << "the list comes first";
  screen.Spread1.SetActiveCell(1, KVI_UpdateInventory::kEntryColumn);
  Type("5");
  Press(Qt::Key_B, Qt::ControlModifier);
  EXPECT_EQ(counts(), "5\n0.00\n0.00\n") << "what is being typed is in";
  for (const char* code : {"bc3", "BC2"}) {
    EXPECT_TRUE(scan.hasFocus());
    Type(code);
    Press(Qt::Key_Return);
    EXPECT_FALSE(scan.hasFocus());
    Type("12");
    Press(Qt::Key_Return);
  }
  EXPECT_EQ(counts(), "5\n12\n12\n");
  Type("oops");
  Press(Qt::Key_Return);
  EXPECT_EQ(scan.selectedText(), "oops") << "the next scan takes its place";
  Type("BC1");
  Press(Qt::Key_Return);
  EXPECT_EQ(screen.Spread1.ActiveRow(), 1);
  desktop.CloseAllWindows();
}

}  // namespace
}  // namespace kvi::test
