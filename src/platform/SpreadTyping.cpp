#include <algorithm>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "platform/Spread.h"

namespace kvi {
namespace {

// The pieces between separators; a separator at the very end of a text of lines opens no piece.
std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> pieces(1);
  for (const char character : text) {
    if (character == separator)
      pieces.emplace_back();
    else
      pieces.back() += character;
  }
  return pieces;
}

std::vector<std::string> Lines(const std::string& text) {
  auto lines = Split(text, '\n');
  if (lines.back().empty()) lines.pop_back();
  for (std::string& line : lines)
    if (line.ends_with('\r')) line.pop_back();
  return lines;
}

// A tab or line end inside of a cell would fall apart into cells.
std::string InOneCell(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return text;
}

}  // namespace

void Spread::SetSelectedBlocks(std::vector<Block> blocks) {
  for (Block& block : blocks) {
    if (block.row2 == -1) block.row2 = MaxRows();
    if (block.col2 == -1) block.col2 = maxCols_;
    if (block.row2 < block.row) std::swap(block.row, block.row2);
    if (block.col2 < block.col) std::swap(block.col, block.col2);
    block = {std::max(block.row, 1), std::max(block.col, 1), std::min(block.row2, MaxRows()),
             std::min(block.col2, maxCols_)};
  }
  std::erase_if(blocks, [](const Block& b) { return b.row2 < b.row || b.col2 < b.col; });
  std::ranges::sort(blocks, {}, &Block::row);

  selection_.clear();
  for (const Block& block : blocks) {
    if (selection_.empty() || selection_.back().row2 < block.row) {
      selection_.push_back(block);
      continue;
    }
    Block& last = selection_.back();
    last.row2 = std::max(last.row2, block.row2);
    last.col = std::min(last.col, block.col);
    last.col2 = std::max(last.col2, block.col2);
  }
  if (selection_.size() != 1) return;
  const Block& only = selection_.front();
  if (only.row == only.row2 && only.col == only.col2) selection_.clear();
}

bool Spread::TakesTyping(int row, int col) const {
  if (row < 1 || !Has(row, col)) return false;
  const CellFormat format = Format(row, col);
  return !format.Lock && format.Kind != CellKind::Static;
}

bool Spread::TypeText(int row, int col, const std::string& text) {
  if (!TakesTyping(row, col)) return false;
  const CellFormat format = Format(row, col);
  if (format.Kind == CellKind::List && !std::ranges::count(Choices(col), text)) return false;
  const auto length = static_cast<std::size_t>(format.TypeEditLen);
  std::string typed = length > 0 ? Left(text, length) : text;
  if (format.Kind == CellKind::Float && !Trim(typed).empty()) {
    const auto amount = TypedNumber(typed);
    if (!amount) return false;
    typed = kvi::Format(*amount, "###0.00");
  }
  if (typed == Text(row, col)) return true;
  SetText(row, col, typed);
  if (CellEdited) CellEdited(row, col);
  return true;
}

std::string Spread::BlockText(Block block) const {
  const Block cells = Resolved(block);
  std::string lines;
  for (int row = cells.row; row <= cells.row2; ++row) {
    std::string line;
    bool first = true;
    for (int col = cells.col; col <= cells.col2; ++col) {
      if (ColWidth(col) == 0) continue;
      if (!std::exchange(first, false)) line += '\t';
      line += InOneCell(Text(row, col));
    }
    lines += line + "\n";
  }
  return lines;
}

void Spread::PasteText(int row, int col, const std::string& text) {
  for (const std::string& line : Lines(text)) {
    int at = col;
    for (const std::string& piece : Split(line, '\t')) {
      while (at <= maxCols_ && ColWidth(at) == 0) ++at;
      TypeText(row, at++, piece);
    }
    ++row;
  }
}

}  // namespace kvi
