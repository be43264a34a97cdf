#include "desktop/controls/ChoiceAdapters.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QPointer>
#include <QRadioButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>

#include "desktop/controls/AccessKeys.h"
#include "desktop/controls/WindowInput.h"
#include "desktop/look/Compact.h"
#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"
#include "desktop/window/ScreenWindow.h"
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

// An option of a group. The arrows go through the group and choose nothing: whoever passes by has
// not decided. A click, Space and Enter choose.
class OptionWidget : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        return click();
      case Qt::Key_Up:
      case Qt::Key_Left:
        return GoOn(-1, Qt::BacktabFocusReason);
      case Qt::Key_Down:
      case Qt::Key_Right:
        return GoOn(1, Qt::TabFocusReason);
      default:
        return QRadioButton::keyPressEvent(event);
    }
  }

 private:
  void GoOn(qsizetype step, Qt::FocusReason reason) {
    const QList<QAbstractButton*> options = group()->buttons();
    const qsizetype count = options.size(), here = options.indexOf(this);
    for (qsizetype i = 1; i < count; ++i) {
      QAbstractButton* next = options[(here + i * step + i * count) % count];
      if (next->isEnabled() && next->isVisible()) return next->setFocus(reason);
    }
  }
};

}  // namespace

ListAdapter::ListAdapter(ListBox& list, ScreenWindow& window)
    : TypedAdapter(list, new Compact<QListWidget>(&window), window) {
  shown_.setUniformItemSizes(true);
  connect(&shown_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0) Hand([&](Gestures& user) { user.Choose(control_, row); });
  });
  connect(&shown_, &QListWidget::itemDoubleClicked, this,
          [this] { Hand([this](Gestures& user) { user.DoubleClick(control_); }); });
}

void ListAdapter::ShowState() {
  if (control_.ListCount() < shown_.count()) shown_.clear();
  for (int i = shown_.count(); i < control_.ListCount(); ++i)
    shown_.addItem(ToQt(control_.List(i)));
  if (shown_.currentRow() != control_.ListIndex()) shown_.setCurrentRow(control_.ListIndex());
}

// Enter does what a double click does.
bool ListAdapter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && control_.DblClick) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      Hand([this](Gestures& user) { user.DoubleClick(control_); });
      return true;
    }
  }
  return ControlAdapter::eventFilter(watched, event);
}

CheckAdapter::CheckAdapter(CheckBox& box, ScreenWindow& window)
    : TypedAdapter(box, new QCheckBox(&window), window) {
  connect(&shown_, &QCheckBox::clicked, this,
          [this] { Hand([this](Gestures& user) { user.Tick(control_); }); });
}

void CheckAdapter::ShowState() {
  shown_.setText(window_.Keys().Claim(&control_, ToQt(control_.Caption)));
  shown_.setChecked(control_.Value);
}

void CheckAdapter::ShowColors() {
  ColorCaption(shown_, control_, Backdrop());
}

OptionAdapter::OptionAdapter(OptionButton& option, ScreenWindow& window)
    : TypedAdapter(option, new OptionWidget(&window), window) {
  window.OptionGroup(option.Group())->addButton(&shown_);
  connect(&shown_, &QRadioButton::clicked, this,
          [this] { Hand([this](Gestures& user) { user.Choose(control_); }); });
}

// The toolkit's group makes one tab stop of its options, but would never let the last one be turned
// off.
void OptionAdapter::ShowState() {
  shown_.setText(window_.Keys().Claim(&control_, ToQt(control_.Caption)));
  if (shown_.isChecked() == control_.Value) return;
  QButtonGroup* group = shown_.group();
  group->setExclusive(false);
  shown_.setChecked(control_.Value);
  group->setExclusive(true);
}

void OptionAdapter::ShowColors() {
  ColorCaption(shown_, control_, Backdrop());
}

TabAdapter::TabAdapter(TabStrip& strip, ScreenWindow& window)
    : TypedAdapter(strip, new QTabWidget(&window), window) {
  // A click on a tab takes the focus, as it ends what is being typed elsewhere.
  shown_.tabBar()->setFocusPolicy(Qt::StrongFocus);
  shown_.tabBar()->installEventFilter(this);
  SetLabel("Tabs");
  connect(&shown_, &QTabWidget::currentChanged, this, [this](int tab) {
    if (tab < 0) return;
    Hand([&](Gestures& user) { user.Choose(control_, tab); });
    ShowState();  // the screen may have refused
  });
  for (const auto& [key, step] : {std::pair{Qt::Key_PageUp, -1}, {Qt::Key_PageDown, 1}}) {
    auto* shortcut = new QShortcut(Qt::ControlModifier | key, &window);
    connect(shortcut, &QShortcut::activated, this, [this, by = step] { GoOn(by); });
  }
}

// As by a click on the tab: what is being typed elsewhere comes in first. Then the focus is again
// where it was, or in the first field of the tab that came.
void TabAdapter::GoOn(int step) {
  const int tab = shown_.currentIndex() + step;
  if (tab < 0 || tab >= shown_.count()) return;
  const QPointer<QWidget> before = window_.FocusedField();
  const QPointer<TabAdapter> self(this);
  shown_.tabBar()->setFocus(Qt::ShortcutFocusReason);
  shown_.setCurrentIndex(tab);
  if (!self || !window_.Input().IsOpen() || !before || before == &shown_) return;
  if (before->isVisible())
    before->setFocus(Qt::OtherFocusReason);
  else
    window_.SetFirstFocus(shown_.currentWidget());
}

// The wheel changes no tab: what was typed under this one would be gone with a slip of the finger.
bool TabAdapter::eventFilter(QObject* watched, QEvent* event) {
  if (watched == shown_.tabBar() && event->type() == QEvent::Wheel) return true;
  return ControlAdapter::eventFilter(watched, event);
}

void TabAdapter::ShowState() {
  shown_.setCurrentIndex(control_.Tab);
}

}  // namespace kvi
