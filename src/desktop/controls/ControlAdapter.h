#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <functional>
#include <vector>

#include "platform/Control.h"

class QLineEdit;
class QShortcutEvent;
class QWidget;

namespace kvi {

class Gestures;
class ScreenWindow;

// Ties one widget to its control, both ways. What the control tells is shown without an echo; what
// the user does goes to the system as a gesture, and afterwards the widget shows what the control
// then holds, whether the gesture was taken, changed or refused.
class ControlAdapter : public QObject, public ControlView {
 public:
  // `widget` belongs to its parent and may be null (a menu has none).
  ControlAdapter(Control& control, QWidget* widget, ScreenWindow& window);

  Control& Tied() const { return tied_; }
  QWidget* Widget() const { return widget_; }

  void PropertyChanged(Property property) final;
  void TakeFocus() override;

  // Brings the widget up to the control's state.
  void ShowAll();
  void ShowColorsAgain();
  // A widget that shows and hides with the control's own, such as its field's label.
  void AddCompanion(QWidget& companion);
  // What stands beside the control and names it where it has no caption of its own.
  void SetLabel(const QString& label);
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

  ScreenWindow& window_;

 private:
  bool PressByAccessKey(const QShortcutEvent& event);
  void Showing(const std::function<void()>& show);
  void ShowName();

  Control& tied_;
  QWidget* widget_;
  std::vector<QWidget*> companions_;
  QString label_;
  bool showing_ = false;
};

// An adapter that knows what it ties by their own kinds. The widget belongs to the window.
template <class Kind, class Shown>
class TypedAdapter : public ControlAdapter {
 public:
  TypedAdapter(Kind& control, Shown* shown, ScreenWindow& window)
      : ControlAdapter(control, shown, window), control_(control), shown_(*shown) {}

 protected:
  Kind& control_;
  Shown& shown_;
};

// A text longer than its field is read from its beginning once the field is left.
void ShowBeginningWhenLeft(QLineEdit& field);

// The adapter and widget for a control, by its kind; the widget has no place yet. Menus and their
// items are made by the menu bar.
ControlAdapter* MakeAdapter(Control& control, ScreenWindow& window);

}  // namespace kvi
