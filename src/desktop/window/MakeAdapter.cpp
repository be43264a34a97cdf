#include "desktop/controls/ChoiceAdapters.h"
#include "desktop/controls/ControlAdapter.h"
#include "desktop/controls/LabelAdapters.h"
#include "desktop/controls/ShowAdapters.h"
#include "desktop/controls/TextAdapters.h"
#include "desktop/grid/SpreadAdapter.h"

namespace kvi {

namespace {

template <class Adapter, class Kind>
ControlAdapter* Make(Control& control, WindowContext& context) {
  return new Adapter(static_cast<Kind&>(control), context);
}

}  // namespace

ControlAdapter* MakeAdapter(Control& control, WindowContext& context) {
  switch (control.Kind()) {
    case ControlKind::Label:
      return Make<LabelAdapter, Label>(control, context);
    case ControlKind::ActionLabel:
      return Make<ActionAdapter, ActionLabel>(control, context);
    case ControlKind::TextBox:
      return static_cast<TextBox&>(control).Multiline
                 ? Make<MemoAdapter, TextBox>(control, context)
                 : Make<TextAdapter, TextBox>(control, context);
    case ControlKind::ComboBox:
      return Make<ComboAdapter, ComboBox>(control, context);
    case ControlKind::ListBox:
      return Make<ListAdapter, ListBox>(control, context);
    case ControlKind::CheckBox:
      return Make<CheckAdapter, CheckBox>(control, context);
    case ControlKind::OptionButton:
      return Make<OptionAdapter, OptionButton>(control, context);
    case ControlKind::Button:
      return Make<ButtonAdapter, Button>(control, context);
    case ControlKind::PictureBox:
      return Make<PictureAdapter, PictureBox>(control, context);
    case ControlKind::TabStrip:
      return Make<TabAdapter, TabStrip>(control, context);
    case ControlKind::StatusBar:
      return Make<StatusAdapter, StatusBar>(control, context);
    case ControlKind::Spread:
      return Make<SpreadAdapter, Spread>(control, context);
    case ControlKind::Menu:
    case ControlKind::MenuItem:
      break;
  }
  return nullptr;
}

}  // namespace kvi
