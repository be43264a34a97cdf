#include "reports/TableReport.h"

#include <algorithm>
#include <cmath>

#include "base/Format.h"
#include "base/Text.h"

namespace kvi {

namespace {

constexpr double kHeaderSize = 10;                        // points
constexpr double kFootSize = 8;                           // points
constexpr double kFootY = 0.7;                            // inches
constexpr double kNearby = 0.25;                          // inches, from a cell to its heading
constexpr double kTextWidth = 2000, kFigureWidth = 1300;  // twips

// What stands over a cell; of a row of two lines, over this one of them where both have texts.
std::string HeadingOf(const ReportTable& table, const ReportCell& cell) {
  std::string words;
  for (const ReportHeading& heading : table.headings) {
    if (heading.at.right != cell.at.right || std::fabs(heading.at.x - cell.at.x) > kNearby)
      continue;
    if (!cell.at.right && table.lines > 1 && heading.line != cell.line) continue;
    const bool joined = words.empty() || words.back() == '-' || words.back() == '/';
    words += (joined ? "" : " ") + std::string(heading.text);
  }
  if (words.ends_with('/')) words.pop_back();
  return words;
}

}  // namespace

bool TableReport::Ask(Desktop& desktop) {
  if (table_.testsFilter && !HasFilterOrSays(desktop)) return false;
  if (table_.asksLevels)
    with_.SystemLevelsAnswer =
        desktop.MsgBox({.text = "Do you want to include system levels in this report?",
                        .title = "Count Sheet",
                        .buttons = Buttons::YesNo,
                        .icon = Icon::Question}) == Answer::Yes;
  return true;
}

void TableReport::Open(jet::Database& database) {
  set_ = database.OpenSnapshot(table_.query(with_), table_.fields);
  rows_ = set_.RecordCount();
  at_ = 0;
}

void TableReport::GoTo(int row) {
  if (row < at_) {
    set_.MoveFirst();
    at_ = 0;
  }
  for (; at_ < row; ++at_) set_.MoveNext();
}

bool TableReport::Draws(int row) {
  if (table_.draws == nullptr) return true;
  GoTo(row);
  return table_.draws({set_, with_});
}

void TableReport::DrawHeader(ReportPage& page, int number) {
  page.PrintCompany(with_.companyTitle);
  if (table_.numberInHeader) DrawPageNumber(page, table_.numberX, kReportTop, number);
  for (const HeaderLine& line : table_.header(with_)) {
    page.SetFont(kHeaderSize, line.bold);
    const PlacedText texts[] = {{From(kReportLeft), line.text}, {From(line.legendX), line.legend}};
    page.PutLine(std::span(texts).first(line.legendX > 0 ? 2 : 1));
    page.NextLine();
  }
  DrawHeadings(page);
}

void TableReport::DrawHeadings(ReportPage& page) {
  page.SetFont(table_.headingSize, true);
  int last = 0;
  for (const ReportHeading& heading : table_.headings) last = std::max(last, heading.line);
  for (int line = 0; line <= last; ++line) {
    line_.clear();
    for (const ReportHeading& heading : table_.headings)
      if (heading.line == line && (!heading.ofLevels || with_.SystemLevelsAnswer))
        line_.push_back({heading.at, heading.text});
    page.PutLine(line_);
    page.NextLine();
  }
  page.Paper().CurrentY += table_.aroundRule;
  page.Rule();
  page.Paper().CurrentY += std::max(table_.aroundRule, kBelowRule);
  page.SetFont(table_.headingSize, false);
}

std::string TableReport::ContentOf(const ReportCell& cell) const {
  const ReportRow row{set_, with_};
  const CellContent& content = cell.content;
  std::string text;
  if (content.text != nullptr)
    text = content.text(row);
  else if (content.figure != nullptr)
    text = Format(content.figure(row), content.mask);
  else if (content.mask != nullptr)
    text = Format(row.Number(content.field), content.mask);
  else
    text = row.Text(content.field);
  return text;
}

void TableReport::DrawCells(ReportPage& page, int line, bool bold) {
  line_.clear();
  for (const ReportCell& cell : table_.cells) {
    if (cell.line != line || cell.bold != bold) continue;
    if (!Has(cell)) continue;
    std::string text = ContentOf(cell);
    if (cell.cut > 0) text = Left(text, cell.cut);
    if (!text.empty()) line_.push_back({cell.at, std::move(text)});
  }
  if (line_.empty()) return;
  page.SetFont(RowSize(), bold);
  page.PutLine(line_);
}

void TableReport::DrawRow(ReportPage& page, int row) {
  GoTo(row);
  for (int line = 0; line < table_.lines; ++line) {
    DrawCells(page, line, false);
    DrawCells(page, line, true);
    page.SetFont(RowSize(), false);
    page.NextLine();
  }
  page.Paper().CurrentY += table_.rowStep;
}

void TableReport::PassRow(ReportPage& page, int) {
  page.SetFont(RowSize(), false);
  page.Paper().CurrentY += table_.lines * page.LineHeight() + table_.rowStep;
}

void TableReport::DrawTotals(ReportPage& page) {
  if (table_.drawTotal == nullptr) return;
  double total = 0;
  for (int row = 0; row < rows_; ++row) {
    GoTo(row);
    total += set_.Number(table_.totalField);
  }
  page.SetFont(RowSize(), false);
  table_.drawTotal(page, total);
}

// A place where a hand writes stays empty.
WorkbookTable TableReport::Table() {
  WorkbookTable table;
  std::vector<const ReportCell*> cells;
  for (const ReportCell& cell : table_.cells) {
    if (!Has(cell)) continue;
    cells.push_back(&cell);
    table.columns.push_back({HeadingOf(table_, cell), cell.at.right ? kFigureWidth : kTextWidth});
  }
  std::vector<int> drawn;
  for (int row = 0; row < rows_; ++row)
    if (Draws(row)) drawn.push_back(row);
  table.rows = static_cast<int>(drawn.size());
  table.cell = [this, cells, drawn](int row, std::size_t column) -> WorkbookTable::Cell {
    GoTo(drawn[static_cast<std::size_t>(row)]);
    const ReportCell& cell = *cells[column];
    const std::string text = ContentOf(cell);
    if (text.find_first_not_of(" _") == std::string::npos) return {};
    return {text, cell.at.right ? WorkbookTable::Kind::Figure : WorkbookTable::Kind::Text};
  };
  return table;
}

void TableReport::DrawFoot(ReportPage& page, int number) {
  if (table_.numberInHeader) return;
  page.SetFont(kFootSize, false);
  DrawPageNumber(page, table_.numberX, kFootY, number);
}

}  // namespace kvi
