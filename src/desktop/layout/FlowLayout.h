#pragma once

#include <QBoxLayout>
#include <QLayout>
#include <memory>
#include <vector>

namespace kvi {

// Widgets side by side, in further lines where the width does not suffice. A gap takes what its
// line leaves free.
class FlowLayout : public QLayout {
 public:
  FlowLayout(QWidget* parent, int lineGap) : QLayout(parent), lineGap_(lineGap) {}
  ~FlowLayout() override;

  void AddGap();

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
  struct Line {
    std::size_t end;  // behind its last item
    int width = 0, height = 0, gaps = 0;
  };
  Line LineFrom(std::size_t first, int room) const;
  void Place(std::size_t first, const Line& line, const QRect& room, int y) const;
  // Returns the height used; moves the widgets only when asked.
  int Flow(const QRect& area, bool place) const;

  const int lineGap_;
  std::vector<std::unique_ptr<QLayoutItem>> items_;
};

// Blocks side by side, or one below the other where the width does not suffice for all. Room that
// is left goes by the stretch factors, and none gets less than it likes as long as there is enough.
class FoldingRow : public QBoxLayout {
 public:
  explicit FoldingRow(QWidget* parent) : QBoxLayout(LeftToRight, parent) {}

  bool hasHeightForWidth() const override { return true; }
  // A box never gives what wraps less than this, so the least height is no other.
  int heightForWidth(int width) const override;
  int minimumHeightForWidth(int width) const override { return heightForWidth(width); }
  QSize sizeHint() const override { return SizeOf(&QLayoutItem::sizeHint, false); }
  QSize minimumSize() const override { return SizeOf(&QLayoutItem::minimumSize, true); }
  void setGeometry(const QRect& area) override;

 private:
  QSize SizeOf(QSize (QLayoutItem::*size)() const, bool folded) const;
  bool Folds(int width) const;
  std::vector<int> WidthsIn(int room) const;
};

}  // namespace kvi
