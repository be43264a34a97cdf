#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <functional>
#include <vector>

#include "platform/Control.h"

class QButtonGroup;
class QShortcutEvent;
class QWidget;

namespace kvi {

class AccessKeys;
class Gestures;
class Screen;
class WindowInput;

// What the adapters of one window share.
struct WindowContext {
  Screen& screen;
  WindowInput& input;
  AccessKeys& keys;
  QWidget& window;
  std::function<QButtonGroup*(const std::string& name)> optionGroup;
  std::function<void()> colorsChanged;  // of a control; bands take theirs from their labels
  // A menu takes no focus by itself, so that what is being typed must be handed over.
  std::function<void()> finishEditing;
};

// Ties one widget to its control, both ways. What the control tells is shown without an echo; what
// the user does goes to the system as a gesture, and afterwards the widget shows what the control
// then holds, whether the gesture was taken, changed or refused.
class ControlAdapter : public QObject, public ControlView {
 public:
  // `widget` belongs to its parent and may be null (a menu has none).
  ControlAdapter(Control& control, QWidget* widget, WindowContext& context);

  Control& Tied() const { return control_; }
  QWidget* Widget() const { return widget_; }

  void PropertyChanged(Property property) final;
  void TakeFocus() override;

  // Brings the widget up to the control's state.
  void ShowAll();
  void ShowColorsAgain();
  // A widget that shows and hides with the control's own, such as its field's label.
  void AddCompanion(QWidget& companion);
  // Hands over what the user has typed so far, where that waits for a key (a cell's editor).
  virtual void FinishEditing() {}
  // The window closes or the screen ends: the control is not looked at any more.
  virtual void Release() {}

 protected:
  // Everything but enabled, visible and colours.
  virtual void ShowState() = 0;
  virtual void Show(Property) { ShowState(); }
  virtual void ShowEnabled();
  virtual void ShowVisible();
  virtual void ShowColors();

  void Hand(const std::function<void(Gestures&)>& gesture);
  bool IsShowing() const { return showing_; }
  QColor Backdrop() const;
  bool eventFilter(QObject* watched, QEvent* event) override;

  WindowContext& context_;

 private:
  bool PressByAccessKey(const QShortcutEvent& event);
  void Showing(const std::function<void()>& show);

  Control& control_;
  QWidget* widget_;
  std::vector<QWidget*> companions_;
  bool showing_ = false;
};

// The adapter and widget for a control, by its kind; the widget has no parent yet. Menus and their
// items are made by the menu bar.
ControlAdapter* MakeAdapter(Control& control, WindowContext& context);

}  // namespace kvi
