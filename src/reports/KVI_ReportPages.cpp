#include "reports/KVI_ReportPages.h"

#include <algorithm>

#include "base/Number.h"

namespace kvi {

namespace {

constexpr int kPageWidth = static_cast<int>(8.5 * kTwipsPerInch), kPageHeight = 11 * kTwipsPerInch;
constexpr int kMostPages = 1'000'000;

}  // namespace

KVI_ReportPages::KVI_ReportPages(Application& app)
    : KviScreen(app, "KVI_ReportPages", "Report Pages", "Report Pages") {
  first_lab.Click = [this] { GoTo(1); };
  back_lab.Click = [this] { GoTo(page_ - 1); };
  next_lab.Click = [this] { GoTo(page_ + 1); };
  last_lab.Click = [this] { GoTo(pages_->Count()); };
  page_number.LostFocus = [this] { GoToTyped(); };
  exit_lab.Cancel = true;
  exit_lab.Click = [this] { Exit(); };
}

void KVI_ReportPages::Take(Report& report) {
  pages_.emplace(report, app_.desktop.Measure());
  page_ = 0;
  GoTo(1);
}

void KVI_ReportPages::ShowPages(Report& report) {
  Take(report);
  app_.screens.ShowModal(*this);
}

void KVI_ReportPages::EndVisit() {
  pages_.reset();
  sheet.canvas.Clear();
}

// A page that there is not leaves the one that shows.
void KVI_ReportPages::GoTo(int page) {
  if (pages_->Has(page)) {
    page_ = page;
    sheet.canvas.Show(pages_->Draw(page), kPageWidth, kPageHeight);
    sheet.GoToCorner();
    StatusBar1.SetPanelText(1, "Page " + Str(page) + " of " + Str(pages_->Count()));
  }
  page_number.Text = Str(page_);
}

void KVI_ReportPages::GoToTyped() {
  const double typed = Val(page_number.Text());
  if (typed != page_) GoTo(static_cast<int>(std::clamp(typed, 0.0, double{kMostPages})));
}

Layout KVI_ReportPages::Arrange() {
  return Column({BannerLayout(), Actions({&first_lab, &back_lab, &next_lab, &last_lab, &exit_lab}),
                 Row({Field("&Page:", page_number, 1), Gap()}), Fill(sheet.Arrange()),
                 Of(StatusBar1)});
}

}  // namespace kvi
