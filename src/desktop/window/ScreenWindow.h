#pragma once

#include <QWidget>
#include <map>
#include <vector>

#include "desktop/controls/AccessKeys.h"
#include "desktop/controls/ControlAdapter.h"
#include "desktop/controls/WindowInput.h"
#include "desktop/layout/LayoutBuilder.h"
#include "platform/Screen.h"

class QButtonGroup;
class QMenuBar;

namespace kvi {

class ScrollingContent;

// The window of any screen, drawn from the screen's layout. It follows the focus, so that a control
// is entered and left by the user alone, and asks the system before it closes.
class ScreenWindow : public QWidget, public ScreenView {
 public:
  ScreenWindow(Screen& screen, Gestures& gestures, bool modal);

  Screen& Shown() const { return screen_; }
  // Keeps the window in front of another one.
  void StayAbove(QWidget& owner);
  // Ends the tie to the screen and hides; the window deletes itself when no event of it is under
  // way any more.
  void Dismiss();
  // The widget of a control, or null when the layout has no place for it.
  QWidget* WidgetOf(const Control& control) const;
  // The widget of the control that has the keyboard, or null.
  QWidget* FocusedField() const;
  // To the first field that can be typed into; of a part of the window, where one is given.
  void SetFirstFocus(const QWidget* part = nullptr);
  // The screen has been loaded: the focus goes on from where nothing can be typed.
  void BeginVisit();
  // A screen above was closed: in a list the focus goes from the action to the list.
  void ComeBack();
  // As large as its content asks for, or all of the room for a list.
  void FitInto(const QSize& room);
  // What the user types goes no further than its editor until this.
  void FinishEditing();
  // The bands take the colour of their controls, so that every change of one comes here.
  void ShowColors();
  // Options of one name exclude each other.
  QButtonGroup* OptionGroup(const std::string& name);
  WindowInput& Input() { return input_; }
  AccessKeys& Keys() { return keys_; }
  // Brings late changes of grids into the picture.
  void Settle();

  void CaptionChanged() override;
  void BackColorChanged() override { ShowColors(); }
  void Center() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  ControlAdapter* Place(Control& control);
  void BuildMenus(QMenuBar& bar);
  QWidget* BuildStatus();
  void NameFields();
  bool PressTile(const QKeyEvent& key);
  int FocusRankOf(const ControlAdapter& adapter) const;
  ControlAdapter* AdapterOf(const Control& control) const;
  ControlAdapter* AdapterOf(const QWidget* widget) const;
  void FollowFocus(QWidget* now);

  Screen& screen_;
  AccessKeys keys_;
  WindowInput input_;
  LayoutBuilder builder_;
  std::vector<ControlAdapter*> adapters_;  // owned as children
  std::map<std::string, QButtonGroup*> groups_;
  Panel* content_ = nullptr;
  ScrollingContent* scrolling_ = nullptr;
};

}  // namespace kvi
