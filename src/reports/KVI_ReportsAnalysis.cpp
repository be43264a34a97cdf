#include "reports/KVI_ReportsAnalysis.h"

#include "base/Flag.h"
#include "base/Number.h"
#include "base/Text.h"
#include "items/KVI_ChooseVendors.h"
#include "platform/Progress.h"
#include "reports/RunReport.h"
#include "reports/preview.h"

namespace kvi {

namespace {

constexpr const char* kFontSizes[] = {"5", "6", "7", "8", "9"};
constexpr int kUsualSize = 2;  // a position

std::string SortField(const OptionButton& category, const OptionButton& location,
                      const OptionButton& id) {
  if (category.Value) return "category";
  if (location.Value) return "location";
  return id.Value ? "inv_id" : "name";
}

}  // namespace

KVI_ReportsAnalysis::KVI_ReportsAnalysis(Application& app)
    : KviScreen(app, kReportsScreen, "Reports & Analysis", "Inventory - Reports && Analysis") {
  for (OptionButton* option : {&sort_name, &sort_cat, &sort_loc, &sort_id})
    option->SpokenName = "Primary sort by " + option->Caption();
  for (OptionButton* option : {&sec_name, &sec_cat, &sec_loc, &sec_id})
    option->SpokenName = "Secondary sort by " + option->Caption();
  subset.SpokenName = "What to show";
  for (const char* size : kFontSizes) r_fontsize.AddItem(size);
  HandleOptions();
  Command1.Click = [this] { SetAll(true); };
  Command2.Click = [this] { SetAll(false); };
  print_lab.Click = [this] { PrintReports(); };
  preview_lab.Click = [this] { Preview(); };
  exit_lab.Click = [this] { Exit(); };
  sort_name.Value = sec_name.Value = sub_all.Value = true;
}

void KVI_ReportsAnalysis::HandleOptions() {
  sub_all.Click = [this] { subset.Enabled = false; };
  sub_like.Click = [this] { subset.Enabled = true; };
  r_fontsize.Click = [this] {
    if (!settingUp_) app_.settings.FontSize = r_fontsize.ListIndex();
  };
}

// A position that the list has not, out of a file, counts as the usual one.
void KVI_ReportsAnalysis::Prepare() {
  const Flag settingUp(settingUp_);
  const int size = app_.settings.FontSize;
  r_fontsize.SetListIndex(size >= 0 && size < r_fontsize.ListCount() ? size : kUsualSize);
}

CheckBox& KVI_ReportsAnalysis::BoxOf(const ReportKind& kind) const {
  return static_cast<CheckBox&>(*Find(kind.box));
}

void KVI_ReportsAnalysis::SetAll(bool value) {
  for (const ReportKind& kind : Reports()) BoxOf(kind).Value = value;
}

bool KVI_ReportsAnalysis::MayRun(const std::string& refusal) {
  if (!sub_like.Value || !Trim(subset.Text()).empty()) return true;
  Inform(refusal);
  return false;
}

void KVI_ReportsAnalysis::PrintReports() {
  if (!MayRun("Invalid 'Show Like' term (blanks not permitted)")) return;
  for (const ReportKind& kind : Reports())
    if (BoxOf(kind).Value && !PrintReport(kind)) return;
}

// The progress is gone from sight before the document is told of.
bool KVI_ReportsAnalysis::PrintReport(const ReportKind& kind) {
  const auto report = Make(kind);
  if (!report->Ask(app_.desktop)) return true;
  const Hourglass busy(app_.desktop);
  auto progress = app_.desktop.NewProgress(kind.caption, true);
  progress->Begin("Reading the parts");
  report->Open(app_.CurrentDatabase);
  const auto run = app_.desktop.NewPrintRun(kind.caption);
  const bool whole = RunReport(*report, run->Paper(), Name(), progress.get());
  progress.reset();
  if (whole) run->Finish();
  return whole;
}

void KVI_ReportsAnalysis::Preview() {
  if (!MayRun("Invalid 'Show Like' term (spaces not permitted)")) return;
  std::unique_ptr<Report> report;
  for (const ReportKind& kind : Reports())
    if (!report && BoxOf(kind).Value) report = Make(kind);
  app_.Get<preview>().ShowReport(std::move(report));
}

std::unique_ptr<Report> KVI_ReportsAnalysis::Make(const ReportKind& kind) {
  ReportParameters with{.companyTitle = app_.settings.CompanyName,
                        .today = app_.clock.Now(),
                        .profitCenter = app_.CurrentProfitCenter,
                        .method = app_.settings.Valuation,
                        .ReportPrimarySort = SortField(sort_cat, sort_loc, sort_id),
                        .ReportSecondarySort = SortField(sec_cat, sec_loc, sec_id),
                        .showsLike = sub_like.Value,
                        .ReportFilterText = subset.Text,
                        .fontSize = Val(r_fontsize.Text())};
  if (kind.byVendor) TakeVendor(with);
  return kind.make(std::move(with));
}

void KVI_ReportsAnalysis::TakeVendor(ReportParameters& with) {
  auto& choice = app_.Get<KVI_ChooseVendors>();
  app_.screens.ShowModal(choice);
  with.vendor = choice.where1.Text;
  with.vendorSlot = choice.u_v2.Value ? 2 : choice.u_v3.Value ? 3 : choice.u_v1.Value ? 1 : 0;
}

Layout KVI_ReportsAnalysis::Arrange() {
  Layout parts = Frame("Inventory Maintenance", Column({Of(r1), Of(r3), Of(r4), Of(r15), Of(r5),
                                                        Of(r17), Of(r6), Of(r7), Of(r8), Of(r10)}));
  Layout groups = Frame("Part Group Maintenance", Of(r2));
  Layout access = Row({Text("Full Access"), Text("Read Only Access"), Gap()});
  Layout primary =
      Frame("Primary sort by:", Column({Of(sort_name), Of(sort_cat), Of(sort_loc), Of(sort_id)}));
  Layout secondary =
      Frame("Secondary sort by:", Column({Of(sec_name), Of(sec_cat), Of(sec_loc), Of(sec_id)}));
  Layout filter = Frame("Filter by (Primary Sort):",
                        Column({Of(sub_all), Row({Of(sub_like), Of(subset, 2.5)})}));
  return Column({BannerLayout(), Actions({&print_lab, &preview_lab, &exit_lab}),
                 Row({Column({std::move(parts), std::move(groups),
                              Row({Of(Command1), Of(Command2), Gap()}), std::move(access)}),
                      Column({Row({std::move(primary), std::move(secondary)}), std::move(filter),
                              Row({Field("&Font size:", r_fontsize, 1), Gap()}), Gap()})}),
                 Gap(), Of(StatusBar1)});
}

}  // namespace kvi
