// Makes the picture tour: each screen of the stockroom in the program's folder as a PNG, as on a
// common small display or on one of the size given. One stockroom gives the same bytes each time.

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "ProgramFolder.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "desktop/window/QtDesktop.h"
#include "desktop/window/ScreenWindow.h"
#include "grids/KVI_Find.h"
#include "items/KVI_ChooseVendors.h"
#include "items/KVI_InventoryDetail.h"
#include "items/KVI_InventoryDetail1Screen.h"
#include "items/KVI_InventorySummary.h"
#include "labels/KVI_Labels.h"
#include "ordering/KVI_OrderSystem.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/KVI_PGSummary.h"
#include "platform/Progress.h"
#include "reports/KVI_ReportPages.h"
#include "reports/KVI_ReportsAnalysis.h"
#include "reports/preview.h"
#include "security/KVI_SecurityCheckpoint.h"
#include "start/Main.h"
#include "start/Welcome.h"
#include "stock/KVI_Invoice.h"
#include "stock/KVI_UpdateInventory.h"
#include "usage/KVI_UsageAnalysis.h"
#include "utilities/KVI_Backups.h"
#include "utilities/KVI_DeleteInventory.h"
#include "utilities/KVI_EmployeeSetup.h"
#include "utilities/KVI_EmployeeSetupDetail.h"
#include "utilities/KVI_GetILocation.h"
#include "utilities/KVI_ImportPBI.h"
#include "utilities/KVI_ManageDropLIsts.h"
#include "utilities/KVI_Utilities.h"
#include "vendors/KVI_VendorDetail.h"
#include "vendors/KVI_VendorSummary.h"

namespace {

// A bar that came up on a busy machine alone would leave the keyboard elsewhere in the picture.
class NoProgress : public kvi::Progress {
 public:
  bool Cancelled() const override { return false; }

 protected:
  void Told() override {}
};

// Nobody is there to answer: what would wait for a person is told, gets the most careful answer,
// and fails the tour.
class TourDesktop : public kvi::QtDesktop {
 public:
  using QtDesktop::QtDesktop;
  bool WasAsked() const { return asked_; }
  void RunModal(kvi::Screen& screen) override { Tell("screen", screen.Name()); }
  std::unique_ptr<kvi::Progress> NewProgress(const std::string&, bool) override {
    return std::make_unique<NoProgress>();
  }

 protected:
  kvi::Answer ShowBox(const kvi::Box& box) override {
    Tell("box", "[" + box.title + "] " + box.text);
    if (box.buttons == kvi::Buttons::Ok) return kvi::Answer::Ok;
    return box.buttons == kvi::Buttons::YesNo ? kvi::Answer::No : kvi::Answer::Cancel;
  }
  std::optional<std::string> AskText(const std::string& prompt, const std::string&,
                                     const std::string&) override {
    Tell("question", prompt);
    return std::nullopt;
  }
  std::optional<std::string> AskFile(const kvi::FileDialog& dialog) override {
    Tell("file dialog", dialog.title);
    return std::nullopt;
  }

 private:
  void Tell(const char* kind, const std::string& text) {
    std::fprintf(stderr, "FAILED: nobody expected the %s: %s\n", kind, text.c_str());
    asked_ = true;
  }
  bool asked_ = false;
};

// The Monday morning after the sample's last delivery, so that no picture tells when it was made.
class TourClock : public kvi::Clock {
 public:
  kvi::Date Now() const override { return {2026, 11, 2, 8, 30, 0}; }
};

class TourChance : public kvi::Chance {
 public:
  double Next() override { return 0.5; }
};

struct DisplaySize {
  int width = 1280, height = 760;
};

class Tour {
 public:
  Tour(kvi::QtDesktop& desktop, kvi::Application& app, std::filesystem::path folder,
       DisplaySize display)
      : desktop_(desktop), app_(app), folder_(std::move(folder)), display_(display) {}

  void Picture(kvi::Screen& screen, const std::string& suffix = "") {
    desktop_.DoEvents();
    desktop_.WindowOf(screen)->BeginVisit();
    const std::string file = (folder_ / (screen.Name() + suffix + ".png")).string();
    const bool saved = desktop_.SavePicture(screen, file, display_.width, display_.height);
    std::printf("%s %s\n", saved ? "made" : "FAILED", file.c_str());
    failed_ = failed_ || !saved;
  }

  template <class T>
  void Visit() {
    T& screen = app_.Get<T>();
    app_.screens.Show(screen);
    Picture(screen);
    app_.screens.Hide(screen);
  }

  template <class T>
  void VisitTabs() {
    T& screen = app_.Get<T>();
    app_.screens.Show(screen);
    for (int tab = 0; tab < static_cast<int>(screen.SSTab1.Captions().size()); ++tab) {
      screen.SSTab1.Tab = tab;
      Picture(screen, "-" + std::to_string(tab + 1));
    }
    app_.screens.Hide(screen);
  }

  // The list, and what opens over it.
  void VisitParts() {
    auto& list = app_.Get<kvi::KVI_InventorySummary>();
    app_.screens.Show(list);
    Picture(list);
    VisitPart(list.Spread1);
    VisitLabels(list.Spread1);
    app_.screens.Hide(list);
  }

  // Both layouts of the detail screen, with a part of the list that is bought by more than one.
  void VisitPart(const kvi::Spread& grid) {
    constexpr int kInventoriedPerPurchased = 10;
    int row = 1;
    while (row < grid.MaxRows() && grid.Text(row, kInventoriedPerPurchased) == "1.00") ++row;
    const std::string number = grid.Text(row, kvi::KVI_InventorySummary::kNumberColumn);
    app_.Get<kvi::KVI_InventoryDetail>().i_num.Text = number;
    VisitTabs<kvi::KVI_InventoryDetail>();
    app_.Get<kvi::KVI_InventoryDetail1Screen>().i_num.Text = number;
    Visit<kvi::KVI_InventoryDetail1Screen>();
  }

  void VisitLabels(const kvi::Spread& grid) {
    std::vector<std::string> numbers;
    for (int row = 1; row <= std::min(30, grid.MaxRows()); ++row)
      numbers.push_back(grid.Text(row, kvi::KVI_InventorySummary::kNumberColumn));
    app_.Get<kvi::KVI_Labels>().Take(numbers);
    app_.Get<kvi::KVI_Labels>().with_qr.Value = true;
    Visit<kvi::KVI_Labels>();
  }

  // A count with some variances, and the purchases' tab.
  void VisitUpdate() {
    auto& screen = app_.Get<kvi::KVI_UpdateInventory>();
    kvi::Spread& grid = screen.Spread1;
    app_.screens.Show(screen);
    for (int row = 2; row <= std::min(20, grid.MaxRows()); row += 3) {
      const double held = kvi::Val(grid.Text(row, screen.kQuantityColumn));
      grid.TypeText(row, screen.kEntryColumn, kvi::Format(held + row % 4, "##0.00"));
    }
    screen.rv.Click();
    Picture(screen, "-1");
    screen.TabStrip1.Tab = 1;
    Picture(screen, "-2");
    app_.screens.Hide(screen);
  }

  // The par sheet, and the last saved order with its own parts alone.
  void VisitOrders() {
    auto& screen = app_.Get<kvi::KVI_OrderSystem>();
    app_.screens.Show(screen);
    screen.ut.Click();
    Picture(screen, "-1");
    screen.TabStrip1.Tab = 1;
    screen.orders.SetListIndex(screen.orders.ListCount() - 1);
    screen.ShowAboveZero.Value = true;
    Picture(screen, "-2");
    app_.screens.Hide(screen);
  }

  void VisitUsage() {
    auto& screen = app_.Get<kvi::KVI_UsageAnalysis>();
    app_.ItemsAtHand = true;
    app_.screens.Show(screen);
    Picture(screen);
    screen.FillChart();
    app_.screens.Unload(screen);
    Visit<kvi::KVI_UsageChart>();
  }

  // The list, and its first group with quantities in the builder.
  void VisitGroups() {
    auto& list = app_.Get<kvi::KVI_PGSummary>();
    app_.screens.Show(list);
    Picture(list);
    app_.screens.Unload(list);
    app_.PartGroupSet.MoveFirst();
    auto& builder = app_.Get<kvi::KVI_PGDetail>();
    builder.SetCaption("Part Group Detail");
    app_.screens.Show(builder);
    for (int row = 1; !builder.Spread1.Text(row, builder.kNumberColumn).empty(); ++row)
      builder.Spread1.TypeText(row, builder.kQuantityColumn, kvi::Str(row * 2));
    Picture(builder);
    app_.screens.Hide(builder);
  }

  // The list, and a new vendor with some of the first one's texts.
  void VisitVendors() {
    Visit<kvi::KVI_VendorSummary>();
    const kvi::Spread& grid = app_.Get<kvi::KVI_VendorSummary>().Spread1;
    auto& detail = app_.Get<kvi::KVI_VendorDetail>();
    app_.screens.Show(detail);
    int col = 0;
    for (kvi::TextBox* box : {&detail.VendorName, &detail.Contact1, &detail.Contact2,
                              &detail.Address, &detail.City, &detail.State, &detail.ZipCode})
      box->Text = grid.Text(1, ++col);
    Picture(detail);
    app_.screens.Hide(detail);
  }

  // The screen, and a report of many pages as a sheet and as it would print.
  void VisitReports() {
    Visit<kvi::KVI_ReportsAnalysis>();
    const auto count = [this] {
      for (const kvi::ReportKind& kind : kvi::Reports())
        if (kind.box == std::string("r8"))
          return kind.make({.companyTitle = app_.settings.CompanyName,
                            .today = app_.clock.Now(),
                            .profitCenter = app_.CurrentProfitCenter});
      return std::unique_ptr<kvi::Report>();
    };
    app_.Get<kvi::preview>().Take(count());
    Visit<kvi::preview>();
    const auto report = count();
    report->Open(app_.CurrentDatabase);
    app_.Get<kvi::KVI_ReportPages>().Take(*report);
    Visit<kvi::KVI_ReportPages>();
  }

  // The list with a copy of that morning, as it looks where desks share a folder.
  void VisitBackups() {
    auto& screen = app_.Get<kvi::KVI_Backups>();
    app_.screens.Show(screen);
    screen.Label1.Caption = "They lie in /srv/stock/backups";
    Picture(screen);
    app_.screens.Hide(screen);
  }

  bool Failed() const { return failed_; }

 private:
  kvi::QtDesktop& desktop_;
  kvi::Application& app_;
  std::filesystem::path folder_;
  DisplaySize display_;
  bool failed_ = false;
};

}  // namespace

int main(int argc, char** argv) {
  DisplaySize display;
  const bool sized =
      argc == 3 && std::sscanf(argv[2], "%dx%d", &display.width, &display.height) == 2;
  if (argc != 2 && !sized) {
    std::fprintf(stderr, "usage: kvi-tour FOLDER [WIDTHxHEIGHT]\n");
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  std::filesystem::create_directories(folder);
  TourDesktop desktop(argc, argv);
  QApplication::setCursorFlashTime(0);  // no picture hangs on the moment it is taken
  TourClock clock;
  TourChance chance;
  kvi::Application app({desktop, clock, chance, kvi::ProgramFolder(), ""});
  desktop.SetProgramFolder(app.ProgramFolder);
  desktop.SetStack(app.screens);
  Tour tour(desktop, app, folder, display);
  try {
    auto& main = app.Get<kvi::Main>();
    app.screens.Load(main);
    tour.Picture(main);
    tour.Visit<kvi::Welcome>();
    tour.VisitParts();
    tour.VisitUpdate();
    tour.VisitOrders();
    tour.VisitGroups();
    tour.VisitUsage();
    tour.VisitVendors();
    tour.VisitReports();
    tour.Visit<kvi::KVI_Find>();
    tour.Visit<kvi::KVI_Invoice>();
    tour.VisitTabs<kvi::KVI_Utilities>();
    tour.Visit<kvi::KVI_DeleteInventory>();
    tour.VisitBackups();
    tour.Visit<kvi::KVI_ImportPBI>();
    tour.Visit<kvi::KVI_ManageDropLIsts>();
    tour.Visit<kvi::KVI_EmployeeSetup>();
    tour.VisitTabs<kvi::KVI_EmployeeSetupDetail>();
    tour.Visit<kvi::KVI_SecurityCheckpoint>();
    tour.Visit<kvi::KVI_GetILocation>();
    tour.Visit<kvi::KVI_ChooseVendors>();
  } catch (const kvi::EndOfProcess&) {
    std::fprintf(stderr, "the program ended itself: is there a stockroom in %s?\n",
                 app.ProgramFolder.c_str());
    return 1;
  }
  desktop.CloseAllWindows();
  return tour.Failed() || desktop.WasAsked() ? 1 : 0;
}
