#pragma once

#include <span>
#include <string>
#include <vector>

#include "reports/Report.h"

namespace kvi {

// A row as a table's cells see it.
struct ReportRow {
  const jet::Recordset& set;
  const ReportParameters& with;

  std::string Text(const char* field) const { return set.Text(field); }
  double Number(const char* field) const { return set.Number(field); }
};

// What stands in a cell: a field as it is or under a mask, a figure under a mask, or a text of its
// own. A number that is Null is 0.
struct CellContent {
  const char* field = nullptr;
  const char* mask = nullptr;
  double (*figure)(const ReportRow&) = nullptr;
  std::string (*text)(const ReportRow&) = nullptr;
};

struct ReportCell {
  int line = 0;
  Place at;
  CellContent content;
  std::size_t cut = 0;  // characters that stay at most; 0 all
  bool bold = false;
  bool ofLevels = false;  // stands only with the system levels
};

struct ReportHeading {
  int line = 0;
  Place at;
  const char* text;
  bool ofLevels = false;  // stands only with the system levels
};

// A line of the header, and what may stand beside it.
struct HeaderLine {
  std::string text;
  bool bold = true;
  double legendX = 0;
  const char* legend = "";
};

// A report of columns, said as data.
struct ReportTable {
  std::string (*query)(const ReportParameters&) = PartsQuery;
  std::vector<std::string> fields;
  std::vector<HeaderLine> (*header)(const ReportParameters&);
  std::vector<ReportHeading> headings;  // from left to right on each line
  std::vector<ReportCell> cells;        // from left to right on each line, the bold ones last
  int lines = 1;                        // of a row
  double headingSize = 8;               // points
  double rowSize = 0;                   // 0 is the size chosen for all reports
  double limit = 10;                    // inches
  double rowStep = 0;                   // inches more than its lines
  double aroundRule = 0;                // inches below the headings, above and below the rule
  bool (*draws)(const ReportRow&) = nullptr;
  bool testsFilter = false, asksLevels = false;
  // In the header beside the company, or, on paper alone, when the page ends.
  bool numberInHeader = false;
  double numberX = kPageNumberX;
  // What a row adds to the total, and how the total is drawn; of reports that have one.
  const char* totalField = nullptr;
  void (*drawTotal)(ReportPage&, double total) = nullptr;
};

class TableReport : public Report {
 public:
  TableReport(const ReportTable& table, ReportParameters parameters)
      : Report(std::move(parameters)), table_(table) {}

  bool Ask(Desktop& desktop) override;
  void Open(jet::Database& database) override;
  int Rows() const override { return rows_; }
  bool Draws(int row) override;
  double Limit() const override { return table_.limit; }
  void DrawHeader(ReportPage& page, int number) override;
  void DrawRow(ReportPage& page, int row) override;
  void PassRow(ReportPage& page, int row) override;
  void DrawTotals(ReportPage& page) override;
  WorkbookTable Table() override;
  void DrawFoot(ReportPage& page, int number) override;

 private:
  double RowSize() const { return table_.rowSize > 0 ? table_.rowSize : with_.fontSize; }
  void GoTo(int row);
  void DrawHeadings(ReportPage& page);
  void DrawCells(ReportPage& page, int line, bool bold);
  bool Has(const ReportCell& cell) const { return !cell.ofLevels || with_.SystemLevelsAnswer; }
  std::string ContentOf(const ReportCell& cell) const;

  const ReportTable& table_;
  jet::Recordset set_;
  int rows_ = 0, at_ = 0;
  std::vector<PlacedText> line_;
};

}  // namespace kvi
