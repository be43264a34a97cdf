#include "desktop/controls/LabelAdapters.h"

#include <QLabel>
#include <QPushButton>

#include "desktop/controls/AccessKeys.h"
#include "desktop/controls/ActionButton.h"
#include "desktop/look/Panel.h"
#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"
#include "platform/Gestures.h"
#include "platform/Screen.h"

namespace kvi {

namespace {

constexpr qsizetype kLongText = 70;  // wraps from here on, in characters

}  // namespace

LabelAdapter::LabelAdapter(Label& label, WindowContext& context)
    : ControlAdapter(label, new QLabel(&context.window), context),
      label_(label),
      shown_(static_cast<QLabel&>(*Widget())) {
  shown_.setTextFormat(Qt::PlainText);
}

void LabelAdapter::SetBuddy(QWidget& field) {
  shown_.setBuddy(&field);
}

void LabelAdapter::ShowState() {
  const QString caption = ToQt(label_.Caption);
  if (shown_.buddy() != nullptr) {
    shown_.setText(context_.keys.Claim(&label_, caption));
    shown_.buddy()->setAccessibleName(PlainCaption(caption));
  } else {
    shown_.setText(PlainCaption(caption));
  }
  shown_.setWordWrap(caption.size() > kLongText);
}

void LabelAdapter::ShowColors() {
  const int back = label_.BackColor;
  const bool asPanel = back == kToolkitColor || back == context_.screen.BackColor() ||
                       ClassicColor(back) == Backdrop();
  const QColor ground = asPanel ? Backdrop() : BackdropColor(back, label_.ForeColor);
  const QColor ink = ClassicColor(label_.ForeColor);
  QPalette palette;
  palette.setColor(QPalette::Window, ground);
  palette.setColor(QPalette::WindowText, ink.isValid() ? ink : InkOn(ground));
  shown_.setPalette(palette);
  shown_.setAutoFillBackground(!asPanel);
}

ActionAdapter::ActionAdapter(ActionLabel& label, WindowContext& context)
    : ControlAdapter(label, new ActionButton(&context.window), context),
      label_(label),
      shown_(static_cast<ActionButton&>(*Widget())) {
  connect(&shown_, &QAbstractButton::clicked, this,
          [this] { Hand([this](Gestures& user) { user.Click(label_); }); });
}

void ActionAdapter::ShowState() {
  shown_.setText(context_.keys.Claim(&label_, ToQt(label_.Caption)));
  shown_.setAccessibleName(PlainCaption(ToQt(label_.Caption)));
  shown_.updateGeometry();
}

void ActionAdapter::ShowColors() {
  const QColor back = ClassicColor(label_.BackColor);
  const QColor ground = back.isValid() ? back : Backdrop();
  const QColor fore = ClassicColor(label_.ForeColor);
  shown_.SetColors(fore.isValid() ? fore : InkOn(ground), ground);
}

ButtonAdapter::ButtonAdapter(Button& button, WindowContext& context)
    : ControlAdapter(button, new QPushButton(&context.window), context),
      button_(button),
      shown_(static_cast<QPushButton&>(*Widget())) {
  shown_.setAutoDefault(true);  // Enter presses it
  connect(&shown_, &QAbstractButton::clicked, this,
          [this] { Hand([this](Gestures& user) { user.Click(button_); }); });
}

void ButtonAdapter::ShowState() {
  shown_.setText(context_.keys.Claim(&button_, ToQt(button_.Caption)));
  shown_.setAccessibleName(PlainCaption(ToQt(button_.Caption)));
}

}  // namespace kvi
