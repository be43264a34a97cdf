#include "desktop/controls/LabelAdapters.h"

#include <QPushButton>

#include "desktop/controls/AccessKeys.h"
#include "desktop/controls/ActionButton.h"
#include "desktop/look/ElidingLabel.h"
#include "desktop/look/Panel.h"
#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"
#include "desktop/window/ScreenWindow.h"
#include "platform/Gestures.h"
#include "platform/Screen.h"

namespace kvi {

namespace {

constexpr qsizetype kLongText = 70;  // wraps from here on, in characters

}  // namespace

LabelAdapter::LabelAdapter(Label& label, ScreenWindow& window)
    : TypedAdapter(label, new ElidingLabel(&window), window) {}

void LabelAdapter::SetBuddy(ControlAdapter& field) {
  field_ = &field;
  shown_.setBuddy(field.Widget());
  shown_.AskForLittle();
}

void LabelAdapter::ShowState() {
  const QString caption = ToQt(control_.Caption);
  if (field_ != nullptr) {
    shown_.setText(window_.Keys().Claim(&control_, caption));
    field_->SetLabel(caption);
  } else {
    shown_.setText(PlainCaption(caption));
  }
  shown_.setWordWrap(caption.size() > kLongText);
}

void LabelAdapter::ShowColors() {
  const int back = control_.BackColor;
  const bool asPanel = back == kToolkitColor || back == window_.Shown().BackColor() ||
                       ClassicColor(back) == Backdrop();
  const QColor ink = ClassicColor(control_.ForeColor);
  const QColor wanted = asPanel ? Backdrop() : BackdropColor(back, control_.ForeColor);
  // A warning in red stands on red in one of the schemes.
  const QColor ground = asPanel && ink.isValid() ? GroundFor(ink, wanted) : wanted;
  QPalette palette;
  palette.setColor(QPalette::Window, ground);
  palette.setColor(QPalette::WindowText, ink.isValid() ? ink : InkOn(ground));
  shown_.setPalette(palette);
  shown_.setAutoFillBackground(!asPanel || ground != wanted);
}

ActionAdapter::ActionAdapter(ActionLabel& label, ScreenWindow& window)
    : TypedAdapter(label, new ActionButton(&window), window) {
  connect(&shown_, &QAbstractButton::clicked, this,
          [this] { Hand([this](Gestures& user) { user.Click(control_); }); });
}

void ActionAdapter::ShowState() {
  shown_.setText(window_.Keys().Claim(&control_, ToQt(control_.Caption)));
  shown_.updateGeometry();
}

void ActionAdapter::ShowColors() {
  const QColor back = ClassicColor(control_.BackColor);
  const QColor ground = back.isValid() ? back : Backdrop();
  const QColor fore = ClassicColor(control_.ForeColor);
  shown_.SetColors(fore.isValid() ? fore : InkOn(ground), ground);
}

ButtonAdapter::ButtonAdapter(Button& button, ScreenWindow& window)
    : TypedAdapter(button, new QPushButton(&window), window) {
  shown_.setAutoDefault(true);  // Enter presses it
  connect(&shown_, &QAbstractButton::clicked, this,
          [this] { Hand([this](Gestures& user) { user.Click(control_); }); });
}

void ButtonAdapter::ShowState() {
  shown_.setText(window_.Keys().Claim(&control_, ToQt(control_.Caption)));
}

}  // namespace kvi
