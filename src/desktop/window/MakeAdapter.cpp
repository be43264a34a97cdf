#include "desktop/controls/ChartAdapter.h"
#include "desktop/controls/ChoiceAdapters.h"
#include "desktop/controls/ComboAdapter.h"
#include "desktop/controls/ControlAdapter.h"
#include "desktop/controls/LabelAdapters.h"
#include "desktop/controls/SheetAdapters.h"
#include "desktop/controls/ShowAdapters.h"
#include "desktop/controls/TextAdapters.h"
#include "desktop/grid/SpreadAdapter.h"

namespace kvi {

namespace {

template <class Adapter, class Kind>
ControlAdapter* Make(Control& control, ScreenWindow& window) {
  return new Adapter(static_cast<Kind&>(control), window);
}

}  // namespace

ControlAdapter* MakeAdapter(Control& control, ScreenWindow& window) {
  switch (control.Kind()) {
    case ControlKind::Label:
      return Make<LabelAdapter, Label>(control, window);
    case ControlKind::ActionLabel:
      return Make<ActionAdapter, ActionLabel>(control, window);
    case ControlKind::TextBox:
      return static_cast<TextBox&>(control).Multiline ? Make<MemoAdapter, TextBox>(control, window)
                                                      : Make<TextAdapter, TextBox>(control, window);
    case ControlKind::ComboBox:
      return Make<ComboAdapter, ComboBox>(control, window);
    case ControlKind::ListBox:
      return Make<ListAdapter, ListBox>(control, window);
    case ControlKind::CheckBox:
      return Make<CheckAdapter, CheckBox>(control, window);
    case ControlKind::OptionButton:
      return Make<OptionAdapter, OptionButton>(control, window);
    case ControlKind::Button:
      return Make<ButtonAdapter, Button>(control, window);
    case ControlKind::PictureBox:
      return Make<PictureAdapter, PictureBox>(control, window);
    case ControlKind::TabStrip:
      return Make<TabAdapter, TabStrip>(control, window);
    case ControlKind::StatusBar:
      return Make<StatusAdapter, StatusBar>(control, window);
    case ControlKind::Spread:
      return Make<SpreadAdapter, Spread>(control, window);
    case ControlKind::Chart:
      return Make<ChartAdapter, Chart>(control, window);
    case ControlKind::ScrollBar:
      return Make<ScrollBarAdapter, ScrollBar>(control, window);
    case ControlKind::Canvas:
      return Make<CanvasAdapter, Canvas>(control, window);
    case ControlKind::Menu:
    case ControlKind::MenuItem:
      break;
  }
  return nullptr;
}

}  // namespace kvi
