#pragma once

#include <QHeaderView>

namespace kvi {

// The headings of a grid: flat and light grey. Column headings wrap into two lines before they are
// cut, row headings are quiet numbers.
class GridHeading : public QHeaderView {
 public:
  GridHeading(Qt::Orientation orientation, QWidget* parent);
  // The height that the column headings need at the present widths.
  int NeededHeight() const;

 protected:
  QSize sectionSizeFromContents(int section) const override;
  void paintSection(QPainter* painter, const QRect& area, int section) const override;

 private:
  QString TextOf(int section) const;
};

}  // namespace kvi
