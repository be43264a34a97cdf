#include "reports/preview.h"

#include <utility>

#include "frame/ApplyColorScheme.h"
#include "platform/Hourglass.h"
#include "reports/KVI_ReportPages.h"
#include "reports/RunReport.h"

namespace kvi {

namespace {

constexpr double kSheetWidth = 8.5;  // inches
constexpr int kSheetHeight = 20000;  // twips

}  // namespace

preview::preview(Application& app) : Screen("preview", "Report Preview"), app_(app) {
  Command1.Cancel = true;
  Command1.Click = [this] { Exit(); };
  Pages.Tip = "The report page by page, as it would print";
  Pages.Click = [this] { app_.Get<KVI_ReportPages>().ShowPages(*report_); };
}

void preview::Load() {
  CenterForm();
  ApplyColorScheme(app_, *this);
}

void preview::Take(std::unique_ptr<Report> report) {
  report_ = std::move(report);
  told_ = true;
}

void preview::ShowReport(std::unique_ptr<Report> report) {
  Take(std::move(report));
  app_.screens.ShowModal(*this);
}

// It becomes active again when a screen before it closes, and draws and asks only when told.
void preview::Activate() {
  if (!std::exchange(told_, false)) return;
  Pages.Enabled = false;
  sheet.canvas.Show({}, static_cast<int>(kSheetWidth * kTwipsPerInch), kSheetHeight);
  sheet.GoToCorner();
  if (report_)
    Draw();
  else
    app_.desktop.MsgBox({.text = "This report cannot be previewed.", .title = "Preview"});
}

void preview::Draw() {
  if (!report_->Ask(app_.desktop)) return;
  const Hourglass busy(app_.desktop);
  report_->Open(app_.CurrentDatabase);
  SheetSurface surface(app_.desktop.Measure(), kSheetWidth,
                       static_cast<double>(kSheetHeight) / kTwipsPerInch);
  RunReport(*report_, surface, Name());
  sheet.canvas.Show(surface.TakeMarks(), sheet.canvas.Width(), kSheetHeight);
  Pages.Enabled = true;
}

void preview::EndVisit() {
  report_.reset();
  sheet.canvas.Clear();
}

Layout preview::Arrange() {
  return Column({Row({Of(Command1), Of(Pages), Gap()}), Fill(sheet.Arrange())});
}

}  // namespace kvi
