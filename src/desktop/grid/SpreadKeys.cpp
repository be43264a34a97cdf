#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include "desktop/grid/SpreadView.h"
#include "desktop/look/QtText.h"
#include "platform/Gestures.h"

// What the user does to a grid by keys and mouse.
namespace kvi {

bool SpreadView::IsTyped(int row, int col) const {
  return model_.flags(model_.index(row - 1, col - 1)).testFlag(Qt::ItemIsEditable);
}

int SpreadView::NeighbourCol(int col, int step) const {
  for (int next = col + step; next >= 1 && next <= grid_.MaxCols(); next += step)
    if (!isColumnHidden(next - 1)) return next;
  return 0;
}

bool SpreadView::IsLastCell() const {
  return grid_.ActiveRow() == grid_.MaxRows() && NeighbourCol(grid_.ActiveCol(), 1) == 0;
}

void SpreadView::GoTo(int row, int col) {
  if (row < 1 || row > grid_.MaxRows() || col < 1) return;
  setCurrentIndex(model_.index(row - 1, col - 1));
}

// One cell on, or, from the last cell, past it.
void SpreadView::AdvanceOr(int row, int col) {
  if (IsLastCell())
    hand_([this](Gestures& user) { user.AdvancePastLastCell(grid_); });
  else
    GoTo(row, col);
}

void SpreadView::Go(Step step) {
  if (grid_.ActiveRow() < 1 || step == Step::None) return;
  const int row = grid_.ActiveRow(), col = grid_.ActiveCol();
  const int left = NeighbourCol(col, -1), right = NeighbourCol(col, 1);
  switch (step) {
    case Step::Enter:
      return row < grid_.MaxRows() ? GoTo(row + 1, col) : AdvanceOr(row, right);
    case Step::Next:
      return right > 0 ? GoTo(row, right) : AdvanceOr(row + 1, NeighbourCol(0, 1));
    case Step::Previous:
      return left > 0 ? GoTo(row, left) : GoTo(row - 1, NeighbourCol(grid_.MaxCols() + 1, -1));
    case Step::Up:
      return GoTo(row - 1, col);
    case Step::Down:
      return GoTo(row + 1, col);
    case Step::Left:
      return GoTo(row, left);
    case Step::Right:
      return GoTo(row, right);
    case Step::None:
      return;
  }
}

void SpreadView::Tick(int row, int col) {
  const std::string turned = grid_.Text(row, col) == "1" ? "0" : "1";
  hand_([&](Gestures& user) { user.TypeIntoCell(grid_, row, col, turned); });
}

void SpreadView::Copy() const {
  const std::vector<Block> blocks = grid_.SelectedBlocks();
  std::string text;
  for (const Block& block : blocks) text += grid_.BlockText(block);
  if (blocks.empty()) text = grid_.Text(grid_.ActiveRow(), grid_.ActiveCol());
  QApplication::clipboard()->setText(ToQt(text));
}

void SpreadView::ClearSelected() {
  for (const Block& block : Selected()) {
    for (int row = block.row; row <= block.row2; ++row) {
      for (int col = block.col; col <= block.col2; ++col) {
        if (!gone_ && IsTyped(row, col))
          hand_([&](Gestures& user) { user.TypeIntoCell(grid_, row, col, ""); });
      }
    }
  }
}

void SpreadView::keyPressEvent(QKeyEvent* event) {
  if (gone_) return;
  Settle();
  const int row = grid_.ActiveRow(), col = grid_.ActiveCol();
  const int key = event->key();
  if (event->matches(QKeySequence::Copy)) return Copy();
  if (event->matches(QKeySequence::Paste)) {
    const std::string text = FromQt(QApplication::clipboard()->text());
    return hand_([&](Gestures& user) { user.Paste(grid_, text); });
  }
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    // In a list that only shows, Enter opens what a double click opens.
    if (row < 1 || !grid_.DblClick || IsTyped(row, col)) return Go(Step::Enter);
    return hand_([&](Gestures& user) { user.DoubleClick(grid_, row, col); });
  }
  if (key == Qt::Key_Delete) return ClearSelected();
  if (key == Qt::Key_Space && grid_.Format(row, col).Kind == CellKind::CheckBox)
    return Tick(row, col);
  const bool command =
      (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) !=
      Qt::NoModifier;
  if (const QString text = event->text();
      grid_.KeyPress && !command && !text.isEmpty() && text[0].isPrint() && !IsTyped(row, col))
    return hand_([&](Gestures& user) { user.PressKey(grid_, FromQt(text)); });
  QTableView::keyPressEvent(event);
}

void SpreadView::mousePressEvent(QMouseEvent* event) {
  if (gone_) return;
  Settle();
  QTableView::mousePressEvent(event);
  const QModelIndex cell = indexAt(event->position().toPoint());
  if (gone_ || !cell.isValid() || event->button() != Qt::LeftButton) return;
  if (grid_.Format(cell.row() + 1, cell.column() + 1).Kind == CellKind::CheckBox)
    Tick(cell.row() + 1, cell.column() + 1);
}

void SpreadView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex cell = indexAt(event->position().toPoint());
  if (gone_ || !cell.isValid() || event->button() != Qt::LeftButton) return;
  if (!grid_.DblClick) return QTableView::mouseDoubleClickEvent(event);
  hand_([&](Gestures& user) { user.DoubleClick(grid_, cell.row() + 1, cell.column() + 1); });
}

// Tab walks through cells that are typed into and leaves a list that only shows.
bool SpreadView::focusNextPrevChild(bool next) {
  if (gone_ || grid_.ActiveRow() < 1 || !IsTyped(grid_.ActiveRow(), grid_.ActiveCol()))
    return QTableView::focusNextPrevChild(next);
  const bool atStart = grid_.ActiveRow() == 1 && NeighbourCol(grid_.ActiveCol(), -1) == 0;
  const bool atEnd = IsLastCell() && !grid_.AdvancedPastLastCell;
  if (next ? atEnd : atStart) return QTableView::focusNextPrevChild(next);
  Go(next ? Step::Next : Step::Previous);
  return true;
}

void SpreadView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  viewport()->update();
}

void SpreadView::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  viewport()->update();
}

}  // namespace kvi
