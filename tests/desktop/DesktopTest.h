#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "SampleScreen.h"
#include "desktop/look/QtText.h"
#include "desktop/window/QtDesktop.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/ScreenStack.h"
#include "support/TemporaryFolder.h"

namespace kvi::test {

// A desktop with its stack, and the sample screen in a window that has the keyboard.
class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    desktop.SetStack(stack);
    desktop.SetProgramFolder(folder.Path().string());
  }
  ~DesktopTest() override { desktop.CloseAllWindows(); }

  void ShowSample() {
    stack.Show(sample);
    ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.WindowOf(sample)));
    Widget(sample.save).setFocus();
    sample.TakeLog();
  }

  QWidget& Widget(const Control& control) {
    return *desktop.WindowOf(control.Owner())->WidgetOf(control);
  }
  template <class T>
  T& As(const Control& control) {
    return dynamic_cast<T&>(Widget(control));
  }
  // Runs a step once the event loop that comes next waits.
  void Later(const std::function<void()>& step) { QTimer::singleShot(0, qApp, step); }
  // At the left, where a check box has its box.
  static void Click(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {10, widget.height() / 2});
  }
  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  // Each key goes to whoever has the focus by then.
  static void Type(const QString& text) {
    for (const QChar& key : text) QTest::keyClick(QApplication::focusWidget(), key.toLatin1());
  }

  TemporaryFolder folder;
  char program_[8] = "desktop";
  char* arguments_[2] = {program_, nullptr};
  int count_ = 1;
  QtDesktop desktop{count_, arguments_};
  ScreenStack stack{desktop};
  SampleScreen sample;
};

}  // namespace kvi::test
