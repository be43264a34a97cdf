#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace kvi {

// Widgets side by side, in further lines where the width does not suffice.
class FlowLayout : public QLayout {
 public:
  explicit FlowLayout(QWidget* parent) : QLayout(parent) {}
  ~FlowLayout() override;

  void addItem(QLayoutItem* item) override;
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  Qt::Orientations expandingDirections() const override { return {}; }
  void setGeometry(const QRect& area) override;

 private:
  // Returns the height used; moves the widgets only when asked.
  int Flow(const QRect& area, bool place) const;

  std::vector<std::unique_ptr<QLayoutItem>> items_;
};

}  // namespace kvi
