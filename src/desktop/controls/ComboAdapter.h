#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Controls.h"

namespace kvi {

class ComboWidget;

// A combo on the desktop. Picking an entry from the list is a choice. Letters typed into a text are
// completed from the list, and what then stands is typed text, as if every letter of it had come
// from the keyboard.
class ComboAdapter : public TypedAdapter<ComboBox, ComboWidget> {
 public:
  ComboAdapter(ComboBox& combo, ScreenWindow& window);

 protected:
  void ShowState() override;

 private:
  bool IsEditable() const { return control_.GetStyle() == ComboBox::Style::Editable; }
  void TakeTyped(const QString& text);
};

}  // namespace kvi
