#pragma once

#include <QLabel>

namespace kvi {

// A plain text that widens no window: where there is no room for all of it, an ellipsis stands for
// its middle, as the name of a unit or of a folder does, and the mouse shows the whole.
class ElidingLabel : public QLabel {
 public:
  explicit ElidingLabel(QWidget* parent);
  // It asks for no more than the least that it lets itself be given: a field's label.
  void AskForLittle() { asksForLittle_ = true; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  bool IsCut() const;
  QSize Bounded(const QSize& size) const;

  bool asksForLittle_ = false;
};

}  // namespace kvi
