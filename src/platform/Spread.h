#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Control.h"

namespace kvi {

enum class CellKind : std::uint8_t { Edit, Static, Number, Date, List, CheckBox };
enum class CellAlign : std::uint8_t { Left, Center, Right };

// A block of cells. Row 0 is the headings; -1 as the second corner means the last one.
struct Block {
  int row = 1, col = 1, row2 = 1, col2 = 1;
  static Block Cell(int row, int col) { return {row, col, row, col}; }
  static Block Row(int row) { return {row, 1, row, -1}; }
  static Block Column(int col) { return {1, col, -1, col}; }
  static Block All() { return {1, 1, -1, -1}; }
};

// The look and behaviour of one cell.
struct CellFormat {
  int BackColor = kToolkitColor;  // palette index
  int ForeColor = kToolkitColor;
  bool Lock = false;
  CellKind Kind = CellKind::Edit;
  CellAlign Align = CellAlign::Left;
  int TypeEditLen = 0;  // largest text length in characters; 0 is no bound
  bool operator==(const CellFormat&) const = default;
};

// The spreadsheet-like grid: rows and columns from 1, row 0 the headings. It holds texts and
// formats; the view reads what it paints. Formats set for a whole column (rows 1 to -1) or the
// whole grid also hold for rows that come later. Addressing a cell outside raises 381 on writing
// and reads as "".
class Spread : public Control {
 public:
  Spread(Screen& screen, std::string name, int maxCols = 0, int maxRows = 0);
  ~Spread() override;

  int MaxRows() const { return static_cast<int>(rows_.size()) - 1; }
  int MaxCols() const { return maxCols_; }
  void SetMaxRows(int rows);
  void SetMaxCols(int cols);

  const std::string& Text(int row, int col) const;
  void SetText(int row, int col, std::string text);
  void SetHeading(int col, std::string text) { SetText(0, col, std::move(text)); }
  // Empties the texts of a block; formats stay.
  void ClearText(Block block);

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

  // Twips (1440 to the inch); 0 hides the column.
  double ColWidth(int col) const;
  void SetColWidth(int col, double twips);
  double RowHeight(int row) const;  // 0 is the view's own height
  void SetRowHeight(int row, double twips);

  void InsertRow(int row);
  void DeleteRow(int row);
  // Stable; texts by the order handed over, which is below 0, 0 or above 0.
  using CellOrder = std::function<int(const std::string&, const std::string&)>;
  void Sort(int keyCol, bool ascending, const CellOrder& order);
  // Text without regard to case, as the grid's own sort does.
  void Sort(int keyCol, bool ascending);

  // The cell cursor of the code (quick find reads it), apart from the cell that is active on the
  // screen. ActiveRow is 0 when no cell is active.
  int Row = 1, Col = 1;
  int ActiveRow() const { return activeRow_; }
  int ActiveCol() const { return activeCol_; }
  void SetActiveCell(int row, int col);  // scrolls to it, fires ActiveCellChanged when it moved

  // The user's multiple selection, normalised, without the active cell's own block when single.
  const std::vector<Block>& SelectedBlocks() const { return selection_; }
  void SetSelectedBlocks(std::vector<Block> blocks);
  // Tab-separated text of a block, lines ended by "\n"; and its inverse from a cell on, which skips
  // locked cells and stays inside of the grid.
  std::string BlockText(Block block) const;
  void PasteText(int row, int col, const std::string& text);

  // False stops painting during bulk work; true again repaints once.
  bool ReDraw() const { return reDraw_; }
  void SetReDraw(bool on);

  std::function<void(int row, int col)> DblClick;       // row 0 is a heading
  std::function<void(int col)> HeadingClick;
  std::function<void(int row, int col)> CellEdited;     // the user's text is in the cell
  std::function<void()> AdvancedPastLastCell;           // Enter or Tab in the last cell
  std::function<void()> ActiveCellChanged;
  std::function<void(int row, int col)> ButtonClicked;  // of a CheckBox cell

  // Raised by each change of cells, so that the view can tell stale from fresh.
  std::uint64_t Revision() const { return revision_; }

 private:
  // What was set apart from the columns' formats; unset parts fall through to row, then column.
  struct Patch {
    std::optional<int> back, fore;
    std::optional<bool> lock;
    std::optional<CellKind> kind;
    std::optional<CellAlign> align;
    std::optional<int> editLen;
  };
  struct RowData {
    std::vector<std::string> texts;  // from column 1 on, as far as filled
    double height = 0;
    Patch whole;
    std::map<int, Patch> cells;
  };
  Block Normalised(Block block) const;
  void Touch();

  int maxCols_ = 0;
  std::vector<RowData> rows_;             // rows_[0] holds the headings
  std::vector<CellFormat> columnFormats_;  // by column, from 1
  std::vector<double> widths_;
  std::map<int, std::vector<std::string>> choices_;
  std::vector<Block> selection_;
  int activeRow_ = 0, activeCol_ = 1;
  bool reDraw_ = true;
  bool stale_ = false;
  std::uint64_t revision_ = 0;
};

}  // namespace kvi
