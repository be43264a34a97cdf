#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "base/Flag.h"
#include "desktop/grid/GridHeading.h"
#include "desktop/grid/SpreadView.h"
#include "desktop/look/Look.h"
#include "desktop/look/QtText.h"

// The columns of a grid in its window: their widths, and the ones that stay in view.
namespace kvi {

namespace {

constexpr int kTwipsPerInch = 1440;
// What stays in view leaves at least this part of it to the others.
constexpr double kRoomForOthers = 0.4;

}  // namespace

int SpreadView::Pixels(double twips) const {
  return qRound(twips * logicalDpiX() / kTwipsPerInch);
}

void SpreadView::KeepDraggedWidth(int section, int pixels) {
  const double stretch = IsTextColumn(section + 1) ? stretch_ : 1;
  grid_.SetColWidth(section + 1, pixels / stretch * kTwipsPerInch / logicalDpiX());
}

bool SpreadView::IsTextColumn(int col) const {
  const CellFormat format = grid_.Format(std::min(1, grid_.MaxRows()), col);
  return format.Align == CellAlign::Left && format.Kind != CellKind::CheckBox;
}

void SpreadView::SyncSizes() {
  SyncWidths();
  for (int row = 1; row <= grid_.MaxRows(); ++row) {
    const double twips = grid_.RowHeight(row);
    const int height = twips > 0 ? Pixels(twips) : verticalHeader()->defaultSectionSize();
    if (rowHeight(row - 1) != height) setRowHeight(row - 1, height);
  }
  const int headingHeight = Pixels(grid_.RowHeight(0));
  headings_.setFixedHeight(std::max(headingHeight, headings_.NeededHeight()));
}

// Room to the right of the last column goes to the texts, in proportion; the stored widths stay.
void SpreadView::SyncWidths() {
  if (headings_.IsHeld()) return;
  int all = 0, texts = 0, lastText = 0;
  for (int col = 1; col <= grid_.MaxCols(); ++col) {
    const int width = Pixels(grid_.ColWidth(col));
    all += width;
    if (width == 0 || !IsTextColumn(col)) continue;
    texts += width;
    lastText = col;
  }
  int spare = texts == 0 ? 0 : std::max(0, viewport()->width() - all);
  stretch_ = texts == 0 ? 1 : double(texts + spare) / texts;
  for (int col = 1; col <= grid_.MaxCols(); ++col) {
    const int width = Pixels(grid_.ColWidth(col));
    if (isColumnHidden(col - 1) != (width == 0)) setColumnHidden(col - 1, width == 0);
    if (width == 0) continue;
    int extra = spare > 0 && IsTextColumn(col) ? static_cast<int>(width * (stretch_ - 1)) : 0;
    if (col == lastText) extra = spare;
    spare -= extra;
    if (columnWidth(col - 1) != width + extra) setColumnWidth(col - 1, width + extra);
  }
}

void SpreadView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (gone_ || !shownRevision_) return;
  const Flag showing(showing_);
  SyncWidths();
}

// A kept column that would leave at the left edge stands there, one behind the other.
std::vector<KeptColumn> SpreadView::Kept() const {
  std::vector<KeptColumn> kept;
  if (gone_) return kept;
  int x = 0;
  for (const int col : grid_.KeptCols) {
    if (col > model_.columnCount() || isColumnHidden(col - 1)) continue;
    const int width = columnWidth(col - 1);
    if (columnViewportPosition(col - 1) >= x) continue;
    if (x + width > viewport()->width() * (1 - kRoomForOthers)) break;
    kept.push_back({col - 1, x, width});
    x += width;
  }
  return kept;
}

int SpreadView::KeptWidth() const {
  const auto kept = Kept();
  return kept.empty() ? 0 : kept.back().x + kept.back().width;
}

QModelIndex SpreadView::indexAt(const QPoint& point) const {
  for (const KeptColumn& column : Kept())
    if (point.x() >= column.x && point.x() < column.x + column.width)
      return model_.index(rowAt(point.y()), column.section);
  return QTableView::indexAt(point);
}

QRect SpreadView::visualRect(const QModelIndex& index) const {
  QRect cell = QTableView::visualRect(index);
  for (const KeptColumn& column : Kept())
    if (index.column() == column.section) cell.moveLeft(column.x);
  return cell;
}

// A cell that stays in view moves nothing sideways; another one is not left behind those that do.
void SpreadView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QScrollBar& bar = *horizontalScrollBar();
  const int before = bar.value();
  const auto kept = Kept();
  const bool stays = std::ranges::count(kept, index.column(), &KeptColumn::section) > 0;
  QTableView::scrollTo(index, hint);
  if (stays) return bar.setValue(before);
  const int hiddenPart = KeptWidth() - columnViewportPosition(index.column());
  if (index.isValid() && hiddenPart > 0) bar.setValue(bar.value() - hiddenPart);
}

void SpreadView::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  if (dx == 0 || gone_ || grid_.KeptCols.empty()) return;
  viewport()->update();
  headings_.viewport()->update();
}

void SpreadView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (gone_) return;
  QPainter painter(viewport());
  PaintKept(painter);
  if (model_.rowCount() == 0) PaintEmptyText(painter);
}

void SpreadView::PaintKept(QPainter& painter) const {
  const int last = rowAt(viewport()->height() - 1);
  for (const KeptColumn& column : Kept()) {
    for (int row = std::max(rowAt(0), 0); row <= (last < 0 ? model_.rowCount() - 1 : last); ++row) {
      const QModelIndex cell = model_.index(row, column.section);
      QStyleOptionViewItem option;
      initViewItemOption(&option);
      option.rect = {column.x, rowViewportPosition(row), column.width - 1, rowHeight(row) - 1};
      option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(cell));
      itemDelegate()->paint(&painter, option, cell);
      painter.setPen(kEdge);
      painter.drawLine(option.rect.bottomLeft() + QPoint(0, 1),
                       option.rect.bottomRight() + QPoint(1, 1));
      painter.drawLine(option.rect.topRight() + QPoint(1, 0),
                       option.rect.bottomRight() + QPoint(1, 1));
    }
  }
}

void SpreadView::PaintEmptyText(QPainter& painter) const {
  painter.setPen(kQuietInk);
  painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, ToQt(grid_.EmptyText));
}

QSize SpreadView::sizeHint() const {
  int width = verticalHeader()->sizeHint().width() + 48;
  for (int col = 1; col <= grid_.MaxCols(); ++col) width += Pixels(grid_.ColWidth(col));
  return {std::clamp(width, 240, 1000),
          headings_.NeededHeight() + 12 * verticalHeader()->defaultSectionSize()};
}

}  // namespace kvi
