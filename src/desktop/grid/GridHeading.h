#pragma once

#include <QHeaderView>
#include <functional>
#include <vector>

namespace kvi {

// A column that stays in view at `x` while the grid is scrolled sideways past it; from 0.
struct KeptColumn {
  int section, x, width;
};

// The headings of a grid: flat and light grey. Column headings wrap into two lines before they are
// cut, row headings are quiet numbers.
class GridHeading : public QHeaderView {
 public:
  GridHeading(Qt::Orientation orientation, QWidget* parent);
  // The height that the column headings need at the present widths.
  int NeededHeight() const;

  // Of column headings: what stays in view, and the column that the rows are sorted by (or -1).
  std::function<std::vector<KeptColumn>()> Kept;
  std::function<int()> SortedSection;
  // A width was dragged; while the mouse is down none is given anew.
  std::function<void()> Dragged;
  bool IsHeld() const { return held_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  QSize sectionSizeFromContents(int section) const override;
  void paintSection(QPainter* painter, const QRect& area, int section) const override;

 private:
  QString TextOf(int section) const;
  void PaintSortMark(QPainter& painter, const QRect& area) const;

  bool held_ = false;
};

}  // namespace kvi
