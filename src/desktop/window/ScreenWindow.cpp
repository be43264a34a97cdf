#include "desktop/window/ScreenWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include "desktop/controls/ActionButton.h"
#include "desktop/controls/LabelAdapters.h"
#include "desktop/layout/ScrollingContent.h"
#include "desktop/look/Look.h"
#include "desktop/look/Panel.h"
#include "desktop/look/PlainLabel.h"
#include "desktop/look/QtText.h"
#include "desktop/look/Shades.h"
#include "desktop/window/MenuAdapters.h"
#include "platform/Controls.h"
#include "platform/Gestures.h"

namespace kvi {

namespace {

// How much a control wants to be the first one; 0 is not at all. What is typed into comes before
// what is chosen from: a choice that nobody made shall not be left either.
int FocusRank(const Control& control, bool isList) {
  switch (control.Kind()) {
    case ControlKind::Spread:
      return isList ? 4 : 3;
    case ControlKind::TextBox:
      return static_cast<const TextBox&>(control).Locked ? 0 : 3;
    case ControlKind::ComboBox:
      return static_cast<const ComboBox&>(control).GetStyle() == ComboBox::Style::Editable ? 3 : 2;
    case ControlKind::ListBox:
    case ControlKind::OptionButton:
    case ControlKind::CheckBox:
      return 2;
    case ControlKind::ActionLabel:
    case ControlKind::Button:
      return 1;
    default:
      return 0;
  }
}

}  // namespace

ScreenWindow::ScreenWindow(Screen& screen, Gestures& gestures, bool modal)
    : screen_(screen),
      input_(gestures),
      builder_(
          *this, keys_, [this](Control& control) { return Place(control); },
          [this] { input_.Hand([this](Gestures& user) { user.MoveOver(screen_); }); }) {
  setObjectName(ToQt(screen.Name()));
  if (modal) setWindowModality(Qt::ApplicationModal);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* bar = new QMenuBar(this);
  BuildMenus(*bar);
  column->setMenuBar(bar);
  content_ = builder_.Build(screen.Arrange());
  NameFields();
  QWidget* status = BuildStatus();
  for (ControlAdapter* adapter : adapters_) adapter->Tied().Attach(adapter);
  screen_.Attach(this);
  CaptionChanged();
  ShowColors();
  for (ControlAdapter* adapter : adapters_) adapter->ShowAll();
  bar->setVisible(!bar->actions().isEmpty());

  // Only now, as the area takes the content's size with everything shown.
  column->addWidget(new ScrollingContent(content_, this), 1);
  if (status != nullptr) column->addWidget(status);
  // The window manager's frame takes its part of the display.
  FitInto(QWidget::screen()->availableGeometry().size() - QSize(4, 36));
  SetFirstFocus();
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { FollowFocus(now); });
  input_.Open();
}

ControlAdapter* ScreenWindow::Place(Control& control) {
  const bool hasOwnPlace = control.Kind() == ControlKind::StatusBar ||
                           control.Kind() == ControlKind::Menu ||
                           control.Kind() == ControlKind::MenuItem;
  if (hasOwnPlace) return nullptr;
  return adapters_.emplace_back(MakeAdapter(control, *this));
}

void ScreenWindow::BuildMenus(QMenuBar& bar) {
  std::map<const Menu*, MenuAdapter*> menus;
  for (Control* control : screen_.Controls()) {
    if (control->Kind() == ControlKind::Menu) {
      auto& menu = static_cast<Menu&>(*control);
      menus[&menu] = new MenuAdapter(menu, bar, *this);
      adapters_.push_back(menus[&menu]);
    } else if (control->Kind() == ControlKind::MenuItem) {
      auto& item = static_cast<MenuItem&>(*control);
      adapters_.push_back(new MenuItemAdapter(item, menus.at(&item.Parent())->Shown(), *this));
    }
  }
}

QWidget* ScreenWindow::BuildStatus() {
  for (Control* control : screen_.Controls())
    if (control->Kind() == ControlKind::StatusBar)
      return adapters_.emplace_back(MakeAdapter(*control, *this))->Widget();
  return nullptr;
}

// The labels that stand above what they name.
void ScreenWindow::NameFields() {
  for (ControlAdapter* adapter : adapters_) {
    if (adapter->Tied().Kind() != ControlKind::Label) continue;
    const Control* named = static_cast<const Label&>(adapter->Tied()).Names;
    ControlAdapter* field = named == nullptr ? nullptr : AdapterOf(*named);
    if (field != nullptr) static_cast<LabelAdapter*>(adapter)->SetBuddy(*field);
  }
}

QButtonGroup* ScreenWindow::OptionGroup(const std::string& name) {
  QButtonGroup*& group = groups_[name];
  if (group == nullptr) group = new QButtonGroup(this);
  return group;
}

// Not as the owner's child: the owner may be closed first.
void ScreenWindow::StayAbove(QWidget& owner) {
  create();
  windowHandle()->setTransientParent(owner.windowHandle());
}

void ScreenWindow::Dismiss() {
  for (ControlAdapter* adapter : adapters_) {
    adapter->Release();
    adapter->Tied().Attach(nullptr);
  }
  screen_.Attach(nullptr);
  disconnect(qApp, nullptr, this, nullptr);
  input_.Close([this] { deleteLater(); });
  hide();
}

ControlAdapter* ScreenWindow::AdapterOf(const Control& control) const {
  for (ControlAdapter* adapter : adapters_)
    if (&adapter->Tied() == &control) return adapter;
  return nullptr;
}

QWidget* ScreenWindow::WidgetOf(const Control& control) const {
  const ControlAdapter* adapter = AdapterOf(control);
  return adapter == nullptr ? nullptr : adapter->Widget();
}

void ScreenWindow::FinishEditing() {
  for (ControlAdapter* adapter : adapters_)
    if (input_.IsOpen()) adapter->FinishEditing();
}

void ScreenWindow::Settle() {
  for (ControlAdapter* adapter : adapters_) adapter->ShowAll();
}

void ScreenWindow::CaptionChanged() {
  setWindowTitle(ToQt(screen_.Caption()));
}

// The bands take the colour of their controls, as far as a resting text can be read on it, the
// window the screen's; whoever stands on that chooses an ink that reads.
void ScreenWindow::ShowColors() {
  if (content_ == nullptr) return;
  const QColor ground = ClassicColor(screen_.BackColor());
  content_->SetColor(ground.isValid() ? ground : kPanelColor);
  const QColor resting = ClassicColor(screen_.RestingColor());
  for (const auto& band : builder_.Bands()) {
    const QColor color = band.lead == nullptr ? QColor() : ClassicColor(band.lead->BackColor);
    band.panel->SetColor(GroundFor(resting, color.isValid() ? color : QColor(Qt::black)));
  }
  for (ControlAdapter* adapter : adapters_) adapter->ShowColorsAgain();
  for (PlainLabel* label : findChildren<PlainLabel*>()) label->Recolor();
}

void ScreenWindow::Center() {
  const QRect room = screen()->availableGeometry();
  QRect frame = frameGeometry();
  frame.moveCenter(room.center());
  move(std::max(frame.left(), room.left()), std::max(frame.top(), room.top()));
}

void ScreenWindow::FitInto(const QSize& room) {
  resize(screen_.TakesWholeDisplay() ? room : layout()->totalSizeHint().boundedTo(room));
}

int ScreenWindow::FocusRankOf(const ControlAdapter& adapter) const {
  const QWidget* widget = adapter.Widget();
  if (widget == nullptr || !adapter.Tied().Enabled || !widget->isVisibleTo(this)) return 0;
  return FocusRank(adapter.Tied(), screen_.TakesWholeDisplay());
}

// A list is ready for the arrow keys, the launch pad for its first tile, a form for its first
// field.
void ScreenWindow::SetFirstFocus(const QWidget* part) {
  if (part == nullptr && !builder_.Tiles().empty()) return builder_.Tiles().front()->setFocus();
  ControlAdapter* best = nullptr;
  int bestRank = 0;
  for (ControlAdapter* adapter : adapters_) {
    const int rank = FocusRankOf(*adapter);
    if (rank <= bestRank || (part != nullptr && !part->isAncestorOf(adapter->Widget()))) continue;
    best = adapter;
    bestRank = rank;
  }
  if (best != nullptr) best->TakeFocus();
}

QWidget* ScreenWindow::FocusedField() const {
  const ControlAdapter* adapter = AdapterOf(focusWidget());
  return adapter == nullptr ? nullptr : adapter->Widget();
}

void ScreenWindow::BeginVisit() {
  const ControlAdapter* adapter = AdapterOf(focusWidget());
  if (adapter == nullptr || FocusRankOf(*adapter) == 0) SetFirstFocus();
}

void ScreenWindow::ComeBack() {
  const ControlAdapter* adapter = AdapterOf(focusWidget());
  if (screen_.TakesWholeDisplay() && adapter != nullptr &&
      adapter->Tied().Kind() == ControlKind::ActionLabel)
    SetFirstFocus();
}

void ScreenWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) Center();
}

// The digits press the tiles in their order.
bool ScreenWindow::PressTile(const QKeyEvent& key) {
  const int tile = key.key() - Qt::Key_1;
  const bool isPlain = (key.modifiers() | Qt::KeypadModifier) == Qt::KeypadModifier;
  const auto& tiles = builder_.Tiles();
  if (!isPlain || tile < 0 || tile >= std::min<int>(9, static_cast<int>(tiles.size())))
    return false;
  ActionButton& pressed = *tiles[static_cast<std::size_t>(tile)];
  pressed.setFocus(Qt::ShortcutFocusReason);
  pressed.click();
  return true;
}

// The keys that no field had a use for.
void ScreenWindow::keyPressEvent(QKeyEvent* event) {
  if (PressTile(*event)) return;
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool escape = event->key() == Qt::Key_Escape;
  const auto press = [this](auto& pressed) {
    input_.Hand([&](Gestures& user) { user.Click(pressed); });
  };
  for (Control* control : screen_.Controls()) {
    if (control->Kind() == ControlKind::Button) {
      auto& button = static_cast<Button&>(*control);
      if ((enter && button.Default) || (escape && button.Cancel)) return press(button);
    } else if (control->Kind() == ControlKind::ActionLabel) {
      auto& label = static_cast<ActionLabel&>(*control);
      if ((enter && label.Default) || (escape && label.Cancel)) return press(label);
    }
  }
  QWidget::keyPressEvent(event);
}

// The system decides; its answer comes as Dismiss.
void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  FinishEditing();
  input_.Hand([this](Gestures& user) { user.CloseWindow(screen_); });
}

ControlAdapter* ScreenWindow::AdapterOf(const QWidget* widget) const {
  for (; widget != nullptr && widget != this; widget = widget->parentWidget())
    for (ControlAdapter* adapter : adapters_)
      if (adapter->Widget() == widget) return adapter;
  return nullptr;
}

// Another window in front, a popup or the menu bar take no focus from a control. A press gives the
// focus first: where leaving the field before showed a box, the mouse was let go over that, and the
// click is done here.
void ScreenWindow::FollowFocus(QWidget* now) {
  if (now == nullptr || now->window() != this) return;
  const ControlAdapter* adapter = AdapterOf(now);
  if (adapter == nullptr) return;
  const bool pressing = QApplication::mouseButtons().testFlag(Qt::LeftButton);
  input_.Hand([&](Gestures& user) { user.Enter(adapter->Tied()); });
  auto* button = qobject_cast<QAbstractButton*>(now);
  if (button == nullptr || !pressing || QApplication::mouseButtons().testFlag(Qt::LeftButton))
    return;
  QTimer::singleShot(0, button, [this, button] {
    if (!button->isDown()) return;
    button->setDown(false);
    if (focusWidget() == button) button->click();  // else the field sent it back
  });
}

}  // namespace kvi
