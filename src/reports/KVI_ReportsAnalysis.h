#pragma once

#include <memory>
#include <string>

#include "frame/KviScreen.h"
#include "reports/ReportCatalogue.h"

namespace kvi {

// Picks reports, their order, filter and size, and sends them to the printer or, the first of them,
// to the preview. What is chosen holds for every report and stays from one visit to the next.
class KVI_ReportsAnalysis : public KviScreen {
 public:
  explicit KVI_ReportsAnalysis(Application& app);

  Layout Arrange() override;

  OptionButton sort_name{*this, "sort_name", "Name", "primary"};
  OptionButton sort_cat{*this, "sort_cat", "Category", "primary"};
  OptionButton sort_loc{*this, "sort_loc", "Location", "primary"};
  OptionButton sort_id{*this, "sort_id", "Part #", "primary"};
  OptionButton sec_name{*this, "sec_name", "Name", "secondary"};
  OptionButton sec_cat{*this, "sec_cat", "Category", "secondary"};
  OptionButton sec_loc{*this, "sec_loc", "Location", "secondary"};
  OptionButton sec_id{*this, "sec_id", "Part #", "secondary"};
  OptionButton sub_all{*this, "sub_all", "Show all", "filter"};
  OptionButton sub_like{*this, "sub_like", "Show like", "filter"};
  TextBox subset{*this, "subset"};
  ComboBox r_fontsize{*this, "r_fontsize", ComboBox::Style::ListOnly};

  CheckBox r1{*this, "r1", "Part information"};
  CheckBox r3{*this, "r3", "Count sheet (how inventoried)"};
  CheckBox r4{*this, "r4", "Count sheet (how inventoried and how purchased)"};
  CheckBox r15{*this, "r15", "Count sheet (vendor detail)"};
  CheckBox r5{*this, "r5", "Reorder (by part)"};
  CheckBox r17{*this, "r17", "Reorder (by vendor)"};
  CheckBox r6{*this, "r6", "Valuation (by part)"};
  CheckBox r7{*this, "r7", "Valuation (by category)"};
  CheckBox r8{*this, "r8", "Par sheet (by part)"};
  CheckBox r10{*this, "r10", "Par sheet (by vendor)"};
  CheckBox r2{*this, "r2", "Part group information"};
  Button Command1{*this, "Command1", "&Select All"};
  Button Command2{*this, "Command2", "&Unselect All"};

  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel preview_lab{*this, "preview_lab", "Pre&view"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};

 protected:
  void Prepare() override;

 private:
  void HandleOptions();
  CheckBox& BoxOf(const ReportKind& kind) const;
  void SetAll(bool value);
  // Says so, in the words of the button, and is false where the filter is blank.
  bool MayRun(const std::string& refusal);
  void PrintReports();
  // False when the user cancelled.
  bool PrintReport(const ReportKind& kind);
  void Preview();
  // The report with what is chosen; one by vendor asks which first.
  std::unique_ptr<Report> Make(const ReportKind& kind);
  void TakeVendor(ReportParameters& with);
};

}  // namespace kvi
