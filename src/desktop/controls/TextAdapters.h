#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Controls.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace kvi {

class TextAdapter : public ControlAdapter {
 public:
  TextAdapter(TextBox& box, WindowContext& context);

 protected:
  void ShowState() override;
  void Show(Property property) override;
  void ShowColors() override;

 private:
  TextBox& box_;
  QLineEdit& shown_;
};

// A text box of several lines.
class MemoAdapter : public ControlAdapter {
 public:
  MemoAdapter(TextBox& box, WindowContext& context);

 protected:
  void ShowState() override;
  void Show(Property property) override;
  void ShowColors() override;

 private:
  TextBox& box_;
  QPlainTextEdit& shown_;
};

class ComboAdapter : public ControlAdapter {
 public:
  ComboAdapter(ComboBox& combo, WindowContext& context);

 protected:
  void ShowState() override;

 private:
  bool IsEditable() const { return combo_.GetStyle() == ComboBox::Style::Editable; }

  ComboBox& combo_;
  QComboBox& shown_;
};

}  // namespace kvi
