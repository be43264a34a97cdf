#include "desktop/grid/SpreadView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

#include "base/Flag.h"
#include "desktop/grid/GridHeading.h"
#include "desktop/grid/SpreadDelegate.h"
#include "desktop/look/Look.h"
#include "desktop/look/QtText.h"
#include "platform/Gestures.h"

namespace kvi {

namespace {

constexpr int kRowHeight = 22;

// Covers the button between the headings, which the style draws as a raised one.
class FlatCorner : public QObject {
 public:
  explicit FlatCorner(QAbstractButton& corner) : QObject(&corner) {
    corner.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* corner, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    auto* button = static_cast<QWidget*>(corner);
    QPainter painter(button);
    painter.fillRect(button->rect(), kHeadingColor);
    painter.setPen(kEdge);
    painter.drawLine(button->rect().topRight(), button->rect().bottomRight());
    painter.drawLine(button->rect().bottomLeft(), button->rect().bottomRight());
    return true;
  }
};

}  // namespace

SpreadView::SpreadView(Spread& grid, Hand hand, QWidget* parent)
    : QTableView(parent),
      grid_(grid),
      hand_(std::move(hand)),
      model_(grid, this),
      headings_(*new GridHeading(Qt::Horizontal, this)) {
  setFont(GridFont());
  setHorizontalHeader(&headings_);
  setVerticalHeader(new GridHeading(Qt::Vertical, this));
  verticalHeader()->setDefaultSectionSize(kRowHeight);
  headings_.Kept = [this] { return Kept(); };
  headings_.SortedSection = [this] { return gone_ ? -1 : grid_.SortedCol() - 1; };
  headings_.Dragged = [this] { Stale(); };
  setModel(&model_);
  setItemDelegate(new SpreadDelegate(grid, *this));
  setEditTriggers(EditKeyPressed | AnyKeyPressed | DoubleClicked);
  setHorizontalScrollMode(ScrollPerPixel);
  setTabKeyNavigation(false);
  setWordWrap(false);
  if (auto* corner = findChild<QAbstractButton*>()) new FlatCorner(*corner);
  setFrameShape(QFrame::StyledPanel);
  settle_.setSingleShot(true);
  connect(&settle_, &QTimer::timeout, this, [this] { Settle(); });
  WireHeadings();
}

// Pressing a heading that has a click of its own selects nothing: a sort must not leave a column
// selected for the next action.
void SpreadView::WireHeadings() {
  disconnect(&headings_, &QHeaderView::sectionPressed, this, nullptr);
  connect(&headings_, &QHeaderView::sectionPressed, this, [this](int section) {
    FinishOpenEditor();
    if (!grid_.HeadingClick) selectColumn(section);
  });
  connect(&headings_, &QHeaderView::sectionClicked, this, [this](int section) {
    hand_([&](Gestures& user) { user.ClickHeading(grid_, section + 1); });
  });
  connect(&headings_, &QHeaderView::sectionDoubleClicked, this, [this](int section) {
    hand_([&](Gestures& user) { user.DoubleClick(grid_, 0, section + 1); });
  });
  connect(&headings_, &QHeaderView::sectionResized, this, [this](int section, int, int pixels) {
    if (!showing_ && !gone_) KeepDraggedWidth(section, pixels);
  });
}

void SpreadView::Stale() {
  settle_.start();
}

void SpreadView::Settle() {
  if (gone_ || !grid_.ReDraw() || shownRevision_ == grid_.Revision()) return;
  shownRevision_ = grid_.Revision();
  {
    const Flag showing(showing_);
    model_.Sync();
    SyncSizes();
  }
  if (currentIndex() != ActiveIndex()) ShowActiveCell();
  if (grid_.SelectedBlocks().empty()) ShowSelection();
  viewport()->update();
  headings_.viewport()->update();
}

QModelIndex SpreadView::ActiveIndex() const {
  return grid_.ActiveRow() < 1 ? QModelIndex()
                               : model_.index(grid_.ActiveRow() - 1, grid_.ActiveCol() - 1);
}

void SpreadView::ShowActiveCell() {
  if (gone_) return;
  const Flag showing(showing_);
  const QModelIndex active = ActiveIndex();
  // Where the user moves, the selection follows by itself, and may keep what Ctrl adds to.
  const bool several = moving_ || !grid_.SelectedBlocks().empty();
  selectionModel()->setCurrentIndex(
      active, several ? QItemSelectionModel::NoUpdate : QItemSelectionModel::ClearAndSelect);
  if (active.isValid()) scrollTo(active);
  viewport()->update();
}

void SpreadView::ShowSelection() {
  if (gone_) return;
  const Flag showing(showing_);
  QItemSelection cells;
  for (const Block& block : grid_.SelectedBlocks())
    cells.select(model_.index(block.row - 1, block.col - 1),
                 model_.index(block.row2 - 1, block.col2 - 1));
  if (cells.isEmpty() && currentIndex().isValid()) cells.select(currentIndex(), currentIndex());
  selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
}

void SpreadView::Forget() {
  gone_ = true;
  model_.Forget();
}

void SpreadView::FinishOpenEditor() {
  if (!IsEditing()) return;
  if (QWidget* editor = indexWidget(currentIndex())) FinishEditor(*editor, Step::None);
}

void SpreadView::Typed(const QModelIndex& cell, const QString& text) {
  typed_ = TypedText{cell.row() + 1, cell.column() + 1, FromQt(text)};
}

// The step is taken unless the system went somewhere by itself, or the text was not understood:
// then it is told where it was typed.
void SpreadView::FinishEditor(QWidget& editor, Step step) {
  const int row = grid_.ActiveRow(), col = grid_.ActiveCol();
  commitData(&editor);
  refused_ = false;
  closeEditor(&editor, QAbstractItemDelegate::NoHint);
  if (!gone_ && !refused_ && row == grid_.ActiveRow() && col == grid_.ActiveCol()) Go(step);
}

// Whatever the system does with the text (a box, a reload, closing the window) finds no editor.
void SpreadView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTableView::closeEditor(editor, hint);
  const auto typed = std::exchange(typed_, std::nullopt);
  if (!typed) return;
  bool taken = true;
  hand_([&](Gestures& user) {
    taken = user.TypeIntoCell(grid_, typed->row, typed->col, typed->text);
  });
  refused_ = !taken;
  if (taken || gone_) return;
  const QRect cell = visualRect(model_.index(typed->row - 1, typed->col - 1));
  QToolTip::showText(viewport()->mapToGlobal(cell.bottomLeft()),
                     Qt::convertFromPlainText("Not understood: " + ToQt(typed->text)), this);
  QApplication::beep();
}

bool SpreadView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  if (trigger != NoEditTriggers) replacing_ = trigger == AnyKeyPressed;
  const bool opened = QTableView::edit(index, trigger, event);
  auto* line = opened ? qobject_cast<QLineEdit*>(indexWidget(index)) : nullptr;
  if (line != nullptr && !replacing_) line->end(false);
  return opened;
}

void SpreadView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  viewport()->update();
  if (showing_ || gone_ || !current.isValid()) return;
  const Flag moving(moving_);
  hand_([&](Gestures& user) { user.GoToCell(grid_, current.row() + 1, current.column() + 1); });
}

void SpreadView::selectionChanged(const QItemSelection& on, const QItemSelection& off) {
  QTableView::selectionChanged(on, off);
  if (!showing_ && !gone_) grid_.SetSelectedBlocks(Selected());
}

std::vector<Block> SpreadView::Selected() const {
  std::vector<Block> blocks;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    blocks.push_back({range.top() + 1, range.left() + 1, range.bottom() + 1, range.right() + 1});
  return blocks;
}

}  // namespace kvi
