#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <functional>
#include <map>

#include "desktop/grid/SpreadView.h"
#include "desktop/look/QtText.h"
#include "platform/Controls.h"
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

void SpreadView::GoTo(int row, int col) {
  if (row < 1 || row > grid_.MaxRows() || col < 1) return;
  setCurrentIndex(model_.index(row - 1, col - 1));
}

// One cell on, or, from the last cell, past it.
void SpreadView::AdvanceOr(int row, int col) {
  if (grid_.ActiveRow() == grid_.MaxRows() && NeighbourCol(grid_.ActiveCol(), 1) == 0)
    hand_([this](Gestures& user) { user.AdvancePastLastCell(grid_); });
  else
    GoTo(row, col);
}

// The next cell that can be typed into; past the last one the grid may grow.
void SpreadView::GoToTyped(int step) {
  const auto next = grid_.NextTyped(grid_.ActiveRow(), grid_.ActiveCol(), step);
  if (next)
    GoTo(next->first, next->second);
  else if (step > 0)
    hand_([this](Gestures& user) { user.AdvancePastLastCell(grid_); });
}

// The screen may go on by itself.
bool SpreadView::IsEnterUsed() {
  bool used = false;
  hand_([&](Gestures& user) { used = user.PressEnter(grid_); });
  return used || gone_;
}

void SpreadView::Go(Step step) {
  if (grid_.ActiveRow() < 1 || step == Step::None) return;
  const int row = grid_.ActiveRow(), col = grid_.ActiveCol();
  switch (step) {
    case Step::Enter:
      if (IsEnterUsed()) return;
      return row < grid_.MaxRows() ? GoTo(row + 1, col) : AdvanceOr(row, NeighbourCol(col, 1));
    case Step::Next:
      return GoToTyped(1);
    case Step::Previous:
      return GoToTyped(-1);
    case Step::Up:
      return GoTo(row - 1, col);
    case Step::Down:
      return GoTo(row + 1, col);
    case Step::Left:
      return GoTo(row, NeighbourCol(col, -1));
    case Step::Right:
      return GoTo(row, NeighbourCol(col, 1));
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
  const std::vector<Block> cells = Selected();
  hand_([&](Gestures& user) { user.ClearCells(grid_, cells); });
}

void SpreadView::keyPressEvent(QKeyEvent* event) {
  if (gone_) return;
  Settle();
  const int row = grid_.ActiveRow(), col = grid_.ActiveCol();
  const int key = event->key();
  if (event->matches(QKeySequence::Copy)) return Copy();
  if (event->matches(QKeySequence::Undo)) return hand_([&](Gestures& user) { user.Undo(grid_); });
  if (event->matches(QKeySequence::Paste)) {
    const std::string text = FromQt(QApplication::clipboard()->text());
    return hand_([&](Gestures& user) { user.Paste(grid_, text); });
  }
  // Ctrl+Tab leaves the grid, in which Tab goes from cell to cell.
  if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
    QTableView::focusNextPrevChild(key == Qt::Key_Tab);
    return;
  }
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    // In a list that only shows, Enter opens what a double click opens.
    if (row < 1 || !grid_.DblClick || IsTyped(row, col)) return Go(Step::Enter);
    return hand_([&](Gestures& user) { user.DoubleClick(grid_, row, col); });
  }
  if (key == Qt::Key_Delete) return ClearSelected();
  if (key == Qt::Key_Space && grid_.Format(row, col).Kind == CellKind::CheckBox)
    return Tick(row, col);
  if (!HandKey(*event)) QTableView::keyPressEvent(event);
}

// A character typed where it changes nothing: a digit goes into the row's entry cell, anything else
// is searched for, by the screen or, where that has no search of its own, in the active column.
bool SpreadView::HandKey(QKeyEvent& event) {
  const bool command =
      (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) !=
      Qt::NoModifier;
  const QString text = event.text();
  if (command || text.isEmpty() || !text[0].isPrint() ||
      IsTyped(grid_.ActiveRow(), grid_.ActiveCol()))
    return false;
  if (TypeIntoEntry(event)) return true;
  if (grid_.KeyPress)
    hand_([&](Gestures& user) { user.PressKey(grid_, FromQt(text)); });
  else
    keyboardSearch(text);
  return true;
}

bool SpreadView::TypeIntoEntry(QKeyEvent& event) {
  const int row = grid_.ActiveRow();
  if (!event.text()[0].isDigit() || !grid_.TakesTyping(row, grid_.EntryCol)) return false;
  GoTo(row, grid_.EntryCol);
  if (gone_ || grid_.ActiveRow() != row || grid_.ActiveCol() != grid_.EntryCol) return true;
  edit(currentIndex(), AnyKeyPressed, &event);
  return true;
}

// What can be done with the active row, what a double click does first.
void SpreadView::contextMenuEvent(QContextMenuEvent* event) {
  const int row = grid_.ActiveRow(), col = grid_.ActiveCol();
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  if (gone_ || row < 1 || (!byKey && !indexAt(event->pos()).isValid())) return;
  QMenu menu(this);
  std::map<QAction*, std::function<void()>> acts;
  const auto offer = [&](const QString& text, auto gesture) {
    acts[menu.addAction(text)] = [this, gesture] { hand_(gesture); };
  };
  if (grid_.DblClick && !IsTyped(row, col))
    offer("&Open", [=, this](Gestures& user) { user.DoubleClick(grid_, row, col); });
  for (ActionLabel* label : grid_.RowActions)
    if (label->Visible && label->Enabled)
      offer(ToQt(label->Caption), [label](Gestures& user) { user.Click(*label); });
  if (!menu.isEmpty()) menu.addSeparator();
  acts[menu.addAction("Cop&y")] = [this] { Copy(); };
  if (grid_.TypedRows() > 0) offer("Undo &typing", [this](Gestures& user) { user.Undo(grid_); });
  const QPoint at = byKey ? visualRect(currentIndex()).bottomLeft() : event->pos();
  const auto chosen = acts.find(menu.exec(viewport()->mapToGlobal(at)));
  if (!gone_ && chosen != acts.end()) chosen->second();
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

// Tab walks through the cells that are typed into, and leaves a grid that has none further on.
bool SpreadView::focusNextPrevChild(bool next) {
  const bool stays = !gone_ && grid_.ActiveRow() > 0 &&
                     (grid_.NextTyped(grid_.ActiveRow(), grid_.ActiveCol(), next ? 1 : -1) ||
                      (next && grid_.AdvancedPastLastCell));
  if (!stays) return QTableView::focusNextPrevChild(next);
  Go(next ? Step::Next : Step::Previous);
  return true;
}

// The toolkit tells a screen reader of the grid, after this; the user is in a cell of it.
void SpreadView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  if (QAccessible::isActive()) QTimer::singleShot(0, this, [this] { TellCell(); });
  viewport()->update();
}

// Among the grid's parts the headings come first, and one before each row.
void SpreadView::TellCell() {
  const QModelIndex cell = currentIndex();
  if (gone_ || !hasFocus() || !cell.isValid()) return;
  QAccessibleEvent inCell(this, QAccessible::Focus);
  inCell.setChild((cell.row() + 1) * (model_.columnCount() + 1) + cell.column() + 1);
  QAccessible::updateAccessibility(&inCell);
}

void SpreadView::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  viewport()->update();
}

}  // namespace kvi
