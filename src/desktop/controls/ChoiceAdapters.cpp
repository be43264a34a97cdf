#include "desktop/controls/ChoiceAdapters.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

#include "desktop/controls/AccessKeys.h"
#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"
#include "platform/Gestures.h"

namespace kvi {

namespace {

// A caption that stands on the panel must read on whatever colour a scheme gives that.
void ColorCaption(QWidget& widget, const Control& control, const QColor& backdrop) {
  const QColor ink = ClassicColor(control.ForeColor);
  QPalette palette;
  palette.setColor(QPalette::Active, QPalette::WindowText, ink.isValid() ? ink : InkOn(backdrop));
  palette.setColor(QPalette::Inactive, QPalette::WindowText, ink.isValid() ? ink : InkOn(backdrop));
  palette.setColor(QPalette::Disabled, QPalette::WindowText,
                   Blend(backdrop, InkOn(backdrop), 0.45));
  widget.setPalette(palette);
}

}  // namespace

ListAdapter::ListAdapter(ListBox& list, WindowContext& context)
    : ControlAdapter(list, new QListWidget(&context.window), context),
      list_(list),
      shown_(static_cast<QListWidget&>(*Widget())) {
  shown_.setUniformItemSizes(true);
  connect(&shown_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0) Hand([&](Gestures& user) { user.Choose(list_, row); });
  });
  connect(&shown_, &QListWidget::itemDoubleClicked, this,
          [this] { Hand([this](Gestures& user) { user.DoubleClick(list_); }); });
}

void ListAdapter::ShowState() {
  if (list_.ListCount() < shown_.count()) shown_.clear();
  for (int i = shown_.count(); i < list_.ListCount(); ++i) shown_.addItem(ToQt(list_.List(i)));
  if (shown_.currentRow() != list_.ListIndex()) shown_.setCurrentRow(list_.ListIndex());
}

// Enter does what a double click does.
bool ListAdapter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && list_.DblClick) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      Hand([this](Gestures& user) { user.DoubleClick(list_); });
      return true;
    }
  }
  return ControlAdapter::eventFilter(watched, event);
}

CheckAdapter::CheckAdapter(CheckBox& box, WindowContext& context)
    : ControlAdapter(box, new QCheckBox(&context.window), context),
      box_(box),
      shown_(static_cast<QCheckBox&>(*Widget())) {
  connect(&shown_, &QCheckBox::clicked, this,
          [this] { Hand([this](Gestures& user) { user.Tick(box_); }); });
}

void CheckAdapter::ShowState() {
  shown_.setText(context_.keys.Claim(&box_, ToQt(box_.Caption)));
  shown_.setChecked(box_.Value);
}

void CheckAdapter::ShowColors() {
  ColorCaption(shown_, box_, Backdrop());
}

OptionAdapter::OptionAdapter(OptionButton& option, WindowContext& context)
    : ControlAdapter(option, new QRadioButton(&context.window), context),
      option_(option),
      shown_(static_cast<QRadioButton&>(*Widget())) {
  context.optionGroup(option.Group())->addButton(&shown_);
  connect(&shown_, &QRadioButton::clicked, this,
          [this] { Hand([this](Gestures& user) { user.Choose(option_); }); });
}

// The toolkit's group gives the arrow keys, but would never let the last one be turned off.
void OptionAdapter::ShowState() {
  shown_.setText(context_.keys.Claim(&option_, ToQt(option_.Caption)));
  if (shown_.isChecked() == option_.Value) return;
  QButtonGroup* group = shown_.group();
  group->setExclusive(false);
  shown_.setChecked(option_.Value);
  group->setExclusive(true);
}

void OptionAdapter::ShowColors() {
  ColorCaption(shown_, option_, Backdrop());
}

TabAdapter::TabAdapter(TabStrip& strip, WindowContext& context)
    : ControlAdapter(strip, new QTabWidget(&context.window), context),
      strip_(strip),
      shown_(static_cast<QTabWidget&>(*Widget())) {
  // A click on a tab takes the focus, as it ends what is being typed elsewhere.
  shown_.tabBar()->setFocusPolicy(Qt::StrongFocus);
  connect(&shown_, &QTabWidget::currentChanged, this, [this](int tab) {
    if (tab >= 0) Hand([&](Gestures& user) { user.Choose(strip_, tab); });
  });
}

void TabAdapter::ShowState() {
  shown_.setCurrentIndex(strip_.Tab);
}

}  // namespace kvi
