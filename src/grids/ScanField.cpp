#include "grids/ScanField.h"

#include <algorithm>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "grids/SprdSubs.h"
#include "platform/Hourglass.h"

namespace kvi {

namespace {

// A scanner that is used again where a quantity is waited for types a code there. The shortest
// retail bar code has as many digits, and no shelf so many pieces.
bool IsBarCode(const std::string& text) {
  constexpr std::size_t kShortest = 8;
  return text.size() >= kShortest && text.find_first_not_of("0123456789") == std::string::npos;
}

std::string Named(const PartCodes::Part& part) {
  return part.name.empty() ? part.number : part.number + " (" + part.name + ")";
}

}  // namespace

ScanField::ScanField(Application& app, Screen& screen, Spread& list, int numberColumn)
    : Scan(screen, "Scan"), app_(app), list_(list), numberColumn_(numberColumn) {
  Scan.Tip = "Scan a code, or type it and press Enter. Ctrl+B comes here.";
  Scan.SpokenName = "Scan";
  Scan.Shortcut = "Ctrl+B";
  Scan.EnterPressed = [this] { Look(); };
  list_.EnterPressed = [this](int row, int col) { return ComeBack(row, col); };
}

void ScanField::Forget() {
  codes_.reset();
  awaited_.clear();
}

void ScanField::Clear() {
  Forget();
  Scan.Text = "";
}

void ScanField::Look() {
  const std::string code = Trim(Scan.Text());
  if (code.empty()) return;
  try {
    const auto parts = PartsOf(code);
    std::vector<int> rows;
    for (const PartCodes::Part& part : parts)
      if (const int row = RowOf(part.number); row > 0) rows.push_back(row);
    if (rows.size() == 1) return GoTo(rows.front());
    if (!rows.empty())
      return Refuse(CountOf(static_cast<int>(rows.size()), "part") +
                    " of this list have the code \"" + code + "\".");
    if (parts.empty()) return Refuse("No part has the code \"" + code + "\".");
    Refuse("\"" + code + "\" is " + Named(parts.front()) + ", which this list does not show.");
  } catch (const RunTimeError& error) {
    Refuse("The codes cannot be read: " + Str(error.Number) + " " + error.Description);
  }
}

std::vector<PartCodes::Part> ScanField::PartsOf(const std::string& code) {
  if (!codes_) {
    const Hourglass busy(app_.desktop);
    codes_.emplace(app_.CurrentDatabase, app_.CurrentProfitCenter);
  }
  return codes_->Of(code);
}

// (In the rows as they stand: a sort comes without a load.)
int ScanField::RowOf(const std::string& number) const {
  for (int row = 1; row <= list_.MaxRows(); ++row)
    if (Trim(list_.Text(row, numberColumn_)) == number) return row;
  return 0;
}

void ScanField::GoTo(int row) {
  Scan.Text = "";
  list_.SetSelectedBlocks({});
  const int col = list_.EntryCol > 0 ? list_.EntryCol : list_.ActiveCol();
  const bool stands = row == list_.ActiveRow() && col == list_.ActiveCol();
  list_.GoToCell(row, col);
  // What was told of an earlier code ends here too.
  if (stands && list_.ActiveCellChanged) list_.ActiveCellChanged();
  if (list_.EntryCol == 0) return;
  awaited_ = Trim(list_.Text(row, numberColumn_));
  list_.SetFocus();
}

void ScanField::Refuse(const std::string& why) {
  app_.desktop.Beep();
  Scan.Owner().Say(why);
  Scan.SelectAll();
}

bool ScanField::ComeBack(int row, int col) {
  const bool isAwaited = !awaited_.empty() && col == list_.EntryCol &&
                         Trim(list_.Text(row, numberColumn_)) == awaited_;
  if (!isAwaited) return false;
  awaited_.clear();
  Scan.SetFocus();
  if (const std::string typed = Trim(list_.Text(row, col)); IsBarCode(typed)) {
    list_.Undo();
    Scan.Text = typed;
    Look();
  }
  return true;
}

}  // namespace kvi
