#pragma once

#include <QTableView>
#include <QTimer>
#include <functional>
#include <optional>

#include "desktop/grid/SpreadModel.h"

namespace kvi {

class Gestures;
class GridHeading;
struct KeptColumn;

// The window of a grid, which feels like a spreadsheet: typing replaces, F2 mends, Enter and the
// arrows go on, Escape restores. The control holds everything; the view keeps none of its cells.
// What is typed reaches the system when its editor is gone, and before anything else that the user
// does.
class SpreadView : public QTableView {
 public:
  enum class Step { None, Enter, Next, Previous, Up, Down, Left, Right };
  using Hand = std::function<void(const std::function<void(Gestures&)>&)>;

  SpreadView(Spread& grid, Hand hand, QWidget* parent);

  // The control's cells changed: they are read again once the event under way is over, or at once.
  void Stale();
  void Settle();
  void ShowActiveCell();
  void ShowSelection();
  // The control is gone or about to go.
  void Forget();

  // Takes over an open editor's text.
  void FinishOpenEditor();

  // For the delegate.
  bool IsEditing() const { return state() == EditingState; }
  bool IsReplacing() const { return replacing_; }
  void Typed(const QModelIndex& cell, const QString& text);
  void FinishEditor(QWidget& editor, Step step);

  QModelIndex indexAt(const QPoint& point) const override;
  QRect visualRect(const QModelIndex& index) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {160, 96}; }

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& on, const QItemSelection& off) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  struct TypedText {
    int row, col;
    std::string text;
  };
  void WireHeadings();
  // What stands between the columns' stored widths and the room of the view, in SpreadColumns.cpp.
  void SyncSizes();
  void SyncWidths();
  int Pixels(double twips) const;
  bool IsTextColumn(int col) const;
  void KeepDraggedWidth(int section, int pixels);
  std::vector<KeptColumn> Kept() const;
  int KeptWidth() const;
  void PaintKept(QPainter& painter) const;
  void PaintEmptyText(QPainter& painter) const;
  bool TypeIntoEntry(QKeyEvent& event);
  bool HandKey(QKeyEvent& event);
  QModelIndex ActiveIndex() const;
  bool IsTyped(int row, int col) const;
  int NeighbourCol(int col, int step) const;  // 0 when there is none
  void Go(Step step);
  bool IsEnterUsed();
  void GoTo(int row, int col);
  void GoToTyped(int step);
  void AdvanceOr(int row, int col);
  void Tick(int row, int col);
  void Copy() const;
  void TellCell();
  void ClearSelected();
  std::vector<Block> Selected() const;

  Spread& grid_;
  Hand hand_;
  SpreadModel model_;
  GridHeading& headings_;
  std::optional<TypedText> typed_;
  std::optional<std::uint64_t> shownRevision_;  // none before the first showing
  QTimer settle_;
  double stretch_ = 1;    // of the text columns, where the view has room to spare
  bool refused_ = false;  // the text that was typed last
  bool replacing_ = false;
  bool showing_ = false;
  bool moving_ = false;  // the user's own step to another cell
  bool gone_ = false;
};

}  // namespace kvi
