#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/CellFormat.h"
#include "platform/Control.h"
#include "platform/TypingJournal.h"

namespace kvi {

class ActionLabel;

// A block of cells. Row 0 is the headings; -1 as the second corner means the last one.
struct Block {
  int row = 1, col = 1, row2 = 1, col2 = 1;
  static Block Cell(int row, int col) { return {row, col, row, col}; }
  static Block Row(int row) { return {row, 1, row, -1}; }
  static Block Column(int col) { return {1, col, -1, col}; }
  static Block All() { return {1, 1, -1, -1}; }
};

// The spreadsheet-like grid: rows and columns from 1, row 0 the headings (static and locked). It
// holds texts and formats; the view reads what it paints. A cell, row, column or block outside
// raises 381 on writing and reads as "" or as an unset format; a block whose second corner lies
// before its first is empty and does nothing, so that "1 to MaxRows" may be said of no rows.
//
// Formats: the last one set holds, of each attribute by itself, whether it was set for a cell, a
// row or a column. Set for rows 1 to -1 it also holds for the rows that come later; a new row has
// nothing but its columns' formats. Formats and height go with their row when it moves.
class Spread : public Control {
 public:
  static constexpr double kDefaultColWidth = 1200;

  Spread(Screen& screen, std::string name, int maxCols = 0, int maxRows = 0);
  ~Spread() override;

  int MaxRows() const { return static_cast<int>(rows_.size()) - 1; }
  int MaxCols() const { return maxCols_; }
  // New rows and columns are empty; what is cut off is lost. A number below 0 raises 380.
  void SetMaxRows(int rows);
  void SetMaxCols(int cols);

  const std::string& Text(int row, int col) const;
  // The code's own text: neither the lock nor TypeEditLen applies to it.
  void SetText(int row, int col, std::string text);
  void SetHeading(int col, std::string text) { SetText(0, col, std::move(text)); }
  // Empties the texts of a block; formats stay.
  void ClearText(Block block);
  // Makes all rows that show as new ones are, and gives their memory back; how many there are, and
  // the active one, stays.
  void BlankRows();

  CellFormat Format(int row, int col) const;
  void SetBackColor(Block block, int color);
  void SetForeColor(Block block, int color);
  void SetLock(Block block, bool lock);
  void SetKind(Block block, CellKind kind);
  void SetAlign(Block block, CellAlign align);
  void SetTypeEditLen(Block block, int length);
  // The choices of a List cell, by column.
  void SetChoices(int col, std::vector<std::string> choices);
  const std::vector<std::string>& Choices(int col) const;

  // Twips (1440 to the inch); 0 hides the column, and is what a column outside reads as.
  double ColWidth(int col) const;
  void SetColWidth(int col, double twips);
  double RowHeight(int row) const;  // 0 is the view's own height
  void SetRowHeight(int row, double twips);

  // InsertRow puts an empty row before the row given (one behind the last is allowed), DeleteRow
  // takes one out; MaxRows goes with them. The active cell keeps its place, not its row.
  void InsertRow(int row);
  void DeleteRow(int row);
  // Sorts whole rows, stable in both directions; rows with a blank key stay below. Texts by the
  // order handed over, which is below 0, 0 or above 0.
  using CellOrder = std::function<int(const std::string&, const std::string&)>;
  void Sort(int keyCol, bool ascending, const CellOrder& order);
  // By value where every key cell is a Number or Float, else text without regard to case.
  void Sort(int keyCol, bool ascending);

  // Takes rows out of sight: asked of all rows in their order, `shows` says which remain. Whatever
  // works on the grid then has those alone. The others keep all they have until they are asked for
  // again, or lost by SetMaxRows. The active row stays active where it shows, else the first is.
  void ShowRows(const std::function<bool(int place)>& shows);
  void ShowAllRows();
  // With those out of sight.
  int AllRows() const { return MaxRows() + static_cast<int>(hidden_.size()); }

  // The cell cursor of the code (quick find reads it), apart from the cell that is active on the
  // screen; a cell that the user goes to takes it along. ActiveRow is 0 when no cell is active: at
  // first, and once the grid had no rows. When rows go, it is the last one at most.
  int Row = 1, Col = 1;
  int ActiveRow() const { return activeRow_; }
  int ActiveCol() const { return activeCol_; }
  // Scrolls to the cell, or to the nearest one inside; fires ActiveCellChanged when it moved.
  void SetActiveCell(int row, int col);
  // Takes both cursors to a cell.
  void GoToCell(int row, int col);

  // The user's multiple selection from the top down; blocks that share a row are one, so that no
  // row comes twice. A single cell is none. Ends when rows come, go or move.
  std::vector<Block> SelectedBlocks() const { return selection_; }
  void SetSelectedBlocks(std::vector<Block> blocks);

  // The user's typing: cuts the text to the cell's length and fires CellEdited when that changes
  // the cell. False when the cell takes it not: locked, static, no choice of its list, no amount in
  // a Float, or nothing that Val reads whole in a Number; the screen says what was not understood.
  bool TypeText(int row, int col, const std::string& text);
  // Whether the user can type into the cell at all.
  bool TakesTyping(int row, int col) const;
  // The next cell in reading order, behind (step 1) or before (step -1) the one given, that shows
  // and can be typed into; nothing when there is none.
  std::optional<std::pair<int, int>> NextTyped(int row, int col, int step) const;
  // Tab-separated text of a block's visible columns, lines ended by "\n"; and its inverse from a
  // cell on, which types each text, passes over what cannot be typed and stays inside of the grid.
  std::string BlockText(Block block) const;
  void PasteText(int row, int col, const std::string& text);
  // Empties the cells of the blocks that can be typed into.
  void TypeNothing(const std::vector<Block>& blocks);
  // Takes back what was last typed, pasted or emptied, as if it were typed again; false when there
  // is nothing. Texts that the code put over typed ones stay.
  bool Undo();
  // The rows that hold something typed since the last ClearText of all, or ForgetTyping.
  int TypedRows() const { return typing_.RowCount(); }
  void ForgetTyping() { typing_.Clear(); }

  // False stops painting during bulk work: the view is told nothing, until each false has met its
  // true; then it is told once.
  bool ReDraw() const { return paintingOff_ == 0; }
  void SetReDraw(bool on);

  // What the view does with the grid by itself.
  int EntryCol = 0;                      // takes a digit typed on a cell that is not typed into
  std::vector<int> KeptCols;             // stay in view while the grid scrolls sideways
  std::vector<ActionLabel*> RowActions;  // offered for the active row
  std::string EmptyText;                 // what to do, where there are no rows
  // Marks the heading of the column that the rows are sorted by; 0 marks none.
  void MarkSorted(int col);
  int SortedCol() const { return sortedCol_; }

  std::function<void(int row, int col)> DblClick;  // row 0 is a heading
  std::function<void(int col)> HeadingClick;
  // A character typed on the active cell where it takes no typing; row 0 when none is active.
  std::function<void(int row, int col, const std::string& character)> KeyPress;
  // Enter on the active cell, behind what was typed there; true where the screen went on by itself.
  std::function<bool(int row, int col)> EnterPressed;
  std::function<void(int row, int col)> CellEdited;  // the user's text is in the cell
  std::function<void()> AdvancedPastLastCell;        // Enter or Tab in the last cell
  std::function<void()> ActiveCellChanged;
  std::function<void(int row, int col)> ButtonClicked;  // of a CheckBox cell

  // Raised by each change of cells, so that the view can tell stale from fresh.
  std::uint64_t Revision() const { return revision_; }

 private:
  struct RowData {
    std::vector<std::string> texts;  // from column 1 on, as far as filled
    double height = 0;
    FormatPatch whole;
    std::vector<std::pair<int, FormatPatch>> cells;  // by column
  };

  static std::size_t At(int index) { return static_cast<std::size_t>(index); }
  template <class T>
  void Put(Block block, Stamped<T> FormatPatch::*attribute, T value);
  Block Resolved(Block block) const;
  bool Has(int row, int col) const;
  void CheckCell(int row, int col) const;
  const RowData* Peek(int row) const { return rows_[static_cast<std::size_t>(row)].get(); }
  RowData& Make(int row);
  void SortRows(int keyCol, bool ascending, const std::function<int(int, int)>& order);
  void RowsChanged();
  void BringBack();
  void StandOn(const RowData* row);
  enum class Typed { Taken, Locked, NotUnderstood };
  Typed Type(int row, int col, const std::string& text);
  std::optional<std::string> Understood(int row, int col, const std::string& text) const;
  void TypeOver(int row, int col, std::string text);
  bool HasOwnFormats(int row) const;
  int RowOf(const void* data) const;
  void Tell(Property property);

  int maxCols_ = 0;
  std::vector<std::unique_ptr<RowData>> rows_;  // rows_[0] the headings; null is an untouched row
  struct HiddenRow {
    int place;  // among all rows
    std::unique_ptr<RowData> data;
  };
  std::vector<HiddenRow> hidden_;        // by place
  std::vector<FormatPatch> columns_{1};  // by column, from 1
  std::vector<double> widths_{0};
  std::map<int, std::vector<std::string>> choices_;
  std::uint32_t columnSettings_ = 1;
  std::vector<Block> selection_;
  int activeRow_ = 0, activeCol_ = 1;
  int sortedCol_ = 0;
  TypingJournal typing_;
  bool isTyping_ = false;  // else a text is the code's own
  int paintingOff_ = 0;
  bool staleCells_ = false, staleActiveCell_ = false;
  std::uint64_t revision_ = 0;
};

}  // namespace kvi
