#pragma once

#include <vector>

#include "reports/Report.h"

namespace kvi {

// Each part group with its lines below it; a group and a line are a row each.
class PartGroupInformation : public Report {
 public:
  using Report::Report;

  void Open(jet::Database& database) override;
  int Rows() const override { return static_cast<int>(rows_.size()); }
  double Limit() const override { return 10; }
  void DrawHeader(ReportPage& page, int number) override;
  void DrawRow(ReportPage& page, int row) override;
  void PassRow(ReportPage& page, int row) override;
  WorkbookTable Table() override;
  void DrawFoot(ReportPage& page, int number) override;

 private:
  struct Row {
    bool isGroup;
    std::vector<std::string>
        values;  // name, number, category, cost, notes; of a line as it is drawn
  };
  static std::vector<PlacedText> Placed(const Row& row);
  std::string Query() const;
  void AddLines(jet::Database& database, const std::string& group);

  std::vector<Row> rows_;
};

}  // namespace kvi
