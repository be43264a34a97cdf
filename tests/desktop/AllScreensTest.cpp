#include <QAbstractButton>
#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <fstream>
#include <set>

#include "DesktopTest.h"
#include "PaintedContrast.h"
#include "frame/Application.h"
#include "start/Main.h"
#include "support/AllScreens.h"
#include "support/TestStockroom.h"
#include "usage/KVI_UsageAnalysis.h"

// What every screen keeps in its window.
namespace kvi::test {
namespace {

// Nobody is there to answer what an empty stockroom asks.
class UnattendedDesktop : public QtDesktop {
 public:
  using QtDesktop::QtDesktop;

 protected:
  Answer ShowBox(const Box&) override { return Answer::Ok; }
};

class AllScreensWindowTest : public testing::Test {
 protected:
  ~AllScreensWindowTest() override { desktop.CloseAllWindows(); }

  void Start(const std::string& scheme = "") {
    std::ofstream(stockroom.folder / "TARNWK.INI")
        << "[TARNWK]\nDatabasePath=\nColorScheme=" << scheme << "\n";
    app = std::make_unique<Application>(Surroundings{desktop, stockroom.clock, stockroom.chance,
                                                     stockroom.folder.Path().string(), ""});
    desktop.SetStack(app->screens);
    app->screens.Load(app->Get<Main>());
  }
  void OnEach(const std::function<void(Screen&, QWidget& window)>& look) {
    for (Screen* screen : AllScreens(*app)) {
      app->screens.Show(*screen);
      QCoreApplication::processEvents();
      look(*screen, *desktop.WindowOf(*screen));
      if (screen != &app->Get<Main>()) app->screens.Hide(*screen);
    }
  }

  TestStockroom stockroom;
  char program_[8] = "desktop";
  char* arguments_[2] = {program_, nullptr};
  int count_ = 1;
  UnattendedDesktop desktop{count_, arguments_};
  std::unique_ptr<Application> app;
};

std::string Name(QAccessibleInterface& face) {
  return face.text(QAccessible::Name).toStdString();
}

// What can have the keyboard, without the parts of a list, a grid or a tab bar.
void CollectFocusable(QAccessibleInterface& face, std::vector<std::string>& names) {
  if (face.state().focusable) names.push_back(Name(face));
  const bool isWhole = face.role() == QAccessible::List || face.role() == QAccessible::Table ||
                       face.role() == QAccessible::PageTabList;
  for (int i = 0; !isWhole && i < face.childCount(); ++i) CollectFocusable(*face.child(i), names);
}

TEST_F(AllScreensWindowTest, EachControlHasANameOfItsOwn) {
  Start();
  OnEach([](Screen& screen, QWidget& shown) {
    QAccessibleInterface& window = *QAccessible::queryAccessibleInterface(&shown);
    EXPECT_EQ(window.role(), QAccessible::Window);
    EXPECT_EQ(Name(window), screen.Caption());
    std::vector<std::string> names;
    CollectFocusable(window, names);
    EXPECT_FALSE(names.empty()) << screen.Name();
    std::set<std::string> taken;
    for (const std::string& name : names)
      EXPECT_TRUE(!name.empty() && taken.insert(name).second) << screen.Name() << ": " << name;
  });
}

// Where the text of a label or button is painted; empty where none is in sight.
QRect TextPlace(const QWidget& widget) {
  constexpr int kIndicator = 24;
  const auto* label = qobject_cast<const QLabel*>(&widget);
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  const bool hasText =
      (label && !label->text().trimmed().isEmpty()) || (button && !button->text().isEmpty());
  if (!hasText || !widget.isVisible() || !widget.isEnabled()) return {};
  QRect place = widget.visibleRegion().boundingRect();
  if (qobject_cast<const QCheckBox*>(button) || qobject_cast<const QRadioButton*>(button))
    place.setLeft(place.left() + kIndicator);
  // A line that is half out of sight shows no ink.
  if (place.height() < widget.fontMetrics().height()) return {};
  return place.translated(widget.mapTo(widget.window(), QPoint(0, 0)));
}

class AllScreensContrastTest : public AllScreensWindowTest,
                               public testing::WithParamInterface<const char*> {};

TEST_P(AllScreensContrastTest, EveryTextCanBeReadInTheColourScheme) {
  Start(GetParam());
  OnEach([](Screen& screen, QWidget& window) {
    const QImage picture = window.grab().toImage();
    for (const QWidget* widget : window.findChildren<QWidget*>())
      if (const QRect place = TextPlace(*widget); !place.isEmpty()) {
        EXPECT_GE(PaintedContrast(picture.copy(place), 1), 4.5)
            << screen.Name() << ": " << widget->property("text").toString().toStdString();
      }
  });
}
INSTANTIATE_TEST_SUITE_P(Schemes, AllScreensContrastTest,
                         testing::Values("", "1", "2", "3", "4", "5", "6", "7"));

TEST_F(AllScreensWindowTest, AListThatWasHiddenForItsLoadHasTheKeyboardThen) {
  Start();
  auto& usage = app->Get<KVI_UsageAnalysis>();
  QTimer::singleShot(0, qApp, [&] {
    EXPECT_EQ(desktop.WindowOf(usage)->FocusedField(),
              desktop.WindowOf(usage)->WidgetOf(usage.Spread1));
    app->screens.CloseByUser(usage);
  });
  app->screens.ShowModal(usage);
}

}  // namespace
}  // namespace kvi::test
