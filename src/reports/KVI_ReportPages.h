#pragma once

#include <optional>

#include "frame/KviScreen.h"
#include "platform/Canvas.h"
#include "reports/RunReport.h"

namespace kvi {

// A report as it would print, page by page. Each page is drawn when it is looked at.
class KVI_ReportPages : public KviScreen {
 public:
  explicit KVI_ReportPages(Application& app);

  // Shows an opened report from its first page on until the user leaves.
  void ShowPages(Report& report);
  // What the next showing is about.
  void Take(Report& report);

  void EndVisit() override;
  Layout Arrange() override;
  bool TakesWholeDisplay() const override { return true; }

  ScrolledSheet sheet{*this};
  ActionLabel first_lab{*this, "first_lab", "&First"};
  ActionLabel back_lab{*this, "back_lab", "&Back"};
  ActionLabel next_lab{*this, "next_lab", "&Next"};
  ActionLabel last_lab{*this, "last_lab", "&Last"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  TextBox page_number{*this, "page_number"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};

 private:
  void GoTo(int page);
  void GoToTyped();

  std::optional<ReportPages> pages_;
  int page_ = 0;
};

}  // namespace kvi
