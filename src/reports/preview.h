#pragma once

#include <memory>

#include "frame/Application.h"
#include "platform/Canvas.h"
#include "platform/Controls.h"
#include "platform/Screen.h"
#include "reports/Report.h"

namespace kvi {

// One report on the screen: a single sheet with a single header, cut off at its lower edge. Drawn
// once for each call of ShowReport; from here its pages open as they would print.
class preview : public Screen {
 public:
  explicit preview(Application& app);

  // Shows the report, or says that there is none, until the user leaves.
  void ShowReport(std::unique_ptr<Report> report);
  // What the next showing draws.
  void Take(std::unique_ptr<Report> report);

  void Load() override;
  void Activate() override;
  void EndVisit() override;
  Layout Arrange() override;
  bool TakesWholeDisplay() const override { return true; }

 private:
  Application& app_;

 public:
  ScrolledSheet sheet{*this};
  Button Command1{*this, "Command1", "&Close"};
  Button Pages{*this, "Pages", "&Pages"};

 private:
  void Draw();

  std::unique_ptr<Report> report_;
  bool told_ = false;  // to draw when it becomes active
};

}  // namespace kvi
