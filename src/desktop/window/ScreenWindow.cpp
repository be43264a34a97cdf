#include "desktop/window/ScreenWindow.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

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
  const auto [head, content] = builder_.Build(screen.Arrange());
  content_ = content;
  column->addWidget(head);
  NameFields();
  QWidget* status = BuildStatus();
  for (ControlAdapter* adapter : adapters_) adapter->Tied().Attach(adapter);
  screen_.Attach(this);
  CaptionChanged();
  ShowColors();
  for (ControlAdapter* adapter : adapters_) adapter->ShowAll();
  bar->setVisible(!bar->actions().isEmpty());

  // Only now, as the area takes the content's size with everything shown.
  scrolling_ = new ScrollingContent(content_, this);
  column->addWidget(scrolling_, 1);
  if (status != nullptr) column->addWidget(status);
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

// As roomy as the content likes; what wraps in a narrower room takes more of its height.
void ScreenWindow::FitInto(const QSize& room) {
  if (screen_.TakesWholeDisplay()) return resize(room);
  const QSize liked = layout()->totalSizeHint().expandedTo(layout()->sizeHint());
  const int width = std::min(liked.width(), room.width());
  const int more = scrolling_->HeightIn(width) - scrolling_->sizeHint().height();
  resize(width, std::min(liked.height() + more, room.height()));
}

// What stands inside of a tab tells what it asks for once it is in sight.
void ScreenWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (event->spontaneous()) return;
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  // The window manager's frame takes its part of the display.
  FitInto(screen()->availableGeometry().size() - QSize(4, 36));
  Center();
}

// The system decides; its answer comes as Dismiss.
void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  FinishEditing();
  input_.Hand([this](Gestures& user) { user.CloseWindow(screen_); });
}

}  // namespace kvi
