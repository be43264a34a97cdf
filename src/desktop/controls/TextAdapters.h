#pragma once

#include "desktop/controls/ControlAdapter.h"
#include "platform/Controls.h"

class QLineEdit;
class QPlainTextEdit;

namespace kvi {

class TextAdapter : public TypedAdapter<TextBox, QLineEdit> {
 public:
  TextAdapter(TextBox& box, ScreenWindow& window);

 protected:
  void ShowState() override;
  void Show(Property property) override;
  void ShowColors() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ComeByShortcut();
};

// A text box of several lines.
class MemoAdapter : public TypedAdapter<TextBox, QPlainTextEdit> {
 public:
  MemoAdapter(TextBox& box, ScreenWindow& window);

 protected:
  void ShowState() override;
  void Show(Property property) override;
  void ShowColors() override;
};

}  // namespace kvi
