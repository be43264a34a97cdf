#pragma once

#include "reports/Report.h"

namespace kvi {

// All fields of each part, as a block of labels and values.
class PartInformation : public Report {
 public:
  using Report::Report;

  bool Ask(Desktop& desktop) override { return HasFilterOrSays(desktop); }
  void Open(jet::Database& database) override;
  int Rows() const override { return rows_; }
  double Limit() const override { return 9; }
  void DrawHeader(ReportPage& page, int number) override;
  void DrawRow(ReportPage& page, int row) override;
  void PassRow(ReportPage& page, int row) override;
  WorkbookTable Table() override;

 private:
  void GoTo(int row);
  void DrawVendors(ReportPage& page);

  jet::Recordset set_;
  int rows_ = 0, at_ = 0;
};

}  // namespace kvi
