#include <algorithm>

#include "base/Flag.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "platform/Screen.h"
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

bool Spread::HasOwnFormats(int row) const {
  const RowData* data = Peek(row);
  return data != nullptr &&
         (!data->cells.empty() || data->whole.lock.when > 0 || data->whole.kind.when > 0);
}

// Rows without formats of their own are passed in the steps of their columns' formats, which are
// asked for once: a list that only shows may be long.
std::optional<std::pair<int, int>> Spread::NextTyped(int row, int col, int step) const {
  std::vector<bool> shown(At(maxCols_) + 1), typedByColumn(shown.size());
  bool anyTyped = false;
  for (int c = 1; c <= maxCols_; ++c) {
    const FormatPatch& column = columns_[At(c)];
    shown[At(c)] = ColWidth(c) > 0;
    typedByColumn[At(c)] =
        shown[At(c)] && !column.lock.value && column.kind.value != CellKind::Static;
    anyTyped |= typedByColumn[At(c)];
  }
  for (; row >= 1 && row <= MaxRows(); row += step, col = step > 0 ? 0 : maxCols_ + 1) {
    const bool own = HasOwnFormats(row);
    if (!own && !anyTyped) continue;
    for (int c = col + step; c >= 1 && c <= maxCols_; c += step)
      if (own ? shown[At(c)] && TakesTyping(row, c) : typedByColumn[At(c)])
        return std::pair(row, c);
  }
  return std::nullopt;
}

// The text as its cell keeps it; nothing when it means nothing there. A blank is understood
// everywhere.
std::optional<std::string> Spread::Understood(int row, int col, const std::string& text) const {
  const CellFormat format = Format(row, col);
  const auto length = static_cast<std::size_t>(format.TypeEditLen);
  std::string typed = length > 0 ? Left(text, length) : text;
  if (format.Kind == CellKind::List && !std::ranges::count(Choices(col), text)) return std::nullopt;
  if (Trim(typed).empty()) return typed;
  if (format.Kind == CellKind::Number && !IsReadWhole(typed)) return std::nullopt;
  if (format.Kind == CellKind::Float) {
    const auto amount = TypedNumber(typed);
    if (!amount) return std::nullopt;
    typed = kvi::Format(*amount, "###0.00");
  }
  return typed;
}

void Spread::TypeOver(int row, int col, std::string text) {
  const Flag typing(isTyping_);
  SetText(row, col, std::move(text));
  if (CellEdited) CellEdited(row, col);
}

Spread::Typed Spread::Type(int row, int col, const std::string& text) {
  if (!TakesTyping(row, col)) return Typed::Locked;
  auto typed = Understood(row, col, text);
  if (!typed) return Typed::NotUnderstood;
  if (*typed == Text(row, col)) return Typed::Taken;
  typing_.Note(&Make(row), col, Text(row, col));
  TypeOver(row, col, *std::move(typed));
  return Typed::Taken;
}

bool Spread::TypeText(int row, int col, const std::string& text) {
  typing_.BeginGesture();
  const Typed typed = Type(row, col, text);
  if (typed == Typed::NotUnderstood) {
    const std::string kept = Trim(Text(row, col));
    Owner().Say("\"" + text + "\" is not understood here" +
                (kept.empty() ? "." : "; \"" + kept + "\" is kept."));
  }
  return typed == Typed::Taken;
}

void Spread::TypeNothing(const std::vector<Block>& blocks) {
  typing_.BeginGesture();
  for (const Block& block : blocks) {
    const Block cells = Resolved(block);
    for (int row = cells.row; row <= cells.row2; ++row)
      for (int col = cells.col; col <= cells.col2; ++col) Type(row, col, "");
  }
}

int Spread::RowOf(const void* data) const {
  for (int row = 1; row <= MaxRows(); ++row)
    if (Peek(row) == data) return row;
  return 0;
}

bool Spread::Undo() {
  const auto changes = typing_.TakeLast();
  const int load = typing_.Load();
  for (const TypingJournal::Change& change : changes) {
    // A handler may have loaded the grid again.
    if (load != typing_.Load()) break;
    const int row = RowOf(change.row);
    if (!TakesTyping(row, change.col)) continue;
    TypeOver(row, change.col, change.before);
    GoToCell(row, change.col);
  }
  return !changes.empty();
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
  typing_.BeginGesture();
  std::vector<std::string> notUnderstood;
  for (const std::string& line : Lines(text)) {
    int at = col;
    for (const std::string& piece : Split(line, '\t')) {
      while (at <= maxCols_ && ColWidth(at) == 0) ++at;
      if (Type(row, at++, piece) == Typed::NotUnderstood) notUnderstood.push_back(piece);
    }
    ++row;
  }
  if (!notUnderstood.empty())
    Owner().Say(Str(static_cast<int>(notUnderstood.size())) +
                " pasted texts are not understood, the first is \"" + notUnderstood.front() +
                "\"; what stood there is kept.");
}

}  // namespace kvi
