#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/Date.h"
#include "frame/ValuationMethod.h"
#include "grids/Workbook.h"
#include "jet/Database.h"
#include "platform/Desktop.h"
#include "reports/ReportPage.h"

namespace kvi {

// What the user chose for all reports, and what they all tell of the house.
struct ReportParameters {
  std::string companyTitle;
  Date today;
  int profitCenter = 0;
  std::optional<ValuationMethod> method;

  std::string ReportPrimarySort = "name";  // or category, location, inv_id
  std::string ReportSecondarySort = "name";
  bool showsLike = false;
  std::string ReportFilterText;  // what the primary sort field begins with, where it shows like
  double fontSize = 7;           // of the rows of the reports that have no size of their own

  int vendorSlot = 1;  // which of a part's vendors: 1 to 3; 0 for none
  std::string vendor;

  bool SystemLevelsAnswer = true;
};

// One report: what it asks, which rows it has, and how they are drawn. Its rows are a snapshot as
// of Open, each drawn wherever the position stands then; who walks them decides where a page ends.
class Report {
 public:
  explicit Report(ReportParameters parameters) : with_(std::move(parameters)) {}
  virtual ~Report() = default;

  // Asks the user what only this report needs to know. False where nothing is to be drawn.
  virtual bool Ask(Desktop&) { return true; }
  virtual void Open(jet::Database& database) = 0;

  virtual int Rows() const = 0;
  virtual bool Draws(int) { return true; }  // a row, from 0 on
  // A page is full once a row has ended below this, in inches.
  virtual double Limit() const = 0;

  virtual void DrawHeader(ReportPage& page, int number) = 0;
  virtual void DrawRow(ReportPage& page, int row) = 0;
  // Moves the position as DrawRow does, and draws nothing.
  virtual void PassRow(ReportPage& page, int row) = 0;
  virtual void DrawTotals(ReportPage&) {}
  // The rows that are drawn, with their whole texts. Of an opened report, which must outlive it.
  virtual WorkbookTable Table() = 0;
  // What a page of paper gets when it ends.
  virtual void DrawFoot(ReportPage&, int /*number*/) {}

 protected:
  // The test that some reports make themselves, whatever their screen has tested.
  bool HasFilterOrSays(Desktop& desktop) const;

  ReportParameters with_;
};

// The parts of the profit center that the filter leaves, in their order.
std::string PartsQuery(const ReportParameters& with);

// The line of a header that tells the order, by the primary sort; the words differ.
struct SortWords {
  const char *name, *category, *location, *id;
};
std::string SortLine(const ReportParameters& with, const SortWords& words);

// "Page: " and the number, at a place of the page.
void DrawPageNumber(ReportPage& page, double x, double y, int number);

}  // namespace kvi
