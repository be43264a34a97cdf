// Walks through the program in its windows as a person would, and prints a line for each screen and
// list that opens: its name, the milliseconds from the gesture until it is painted, the longest of
// them without a picture that tells how far it is, and the peak of the process' memory in MB. To be
// started in a folder that kvi-setup made; see bench/openings.
#include <QApplication>
#include <QKeyEvent>
#include <cstdio>
#include <filesystem>

#include "bench/Stockroom.h"
#include "bench/desktop/walk/TimedDesktop.h"
#include "desktop/window/ScreenWindow.h"
#include "frame/Application.h"
#include "grids/KVI_Find.h"
#include "items/KVI_InventoryDetail.h"
#include "items/KVI_InventorySummary.h"
#include "labels/KVI_Labels.h"
#include "ordering/KVI_OrderSystem.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/KVI_PGSummary.h"
#include "platform/Gestures.h"
#include "reports/KVI_ReportPages.h"
#include "reports/KVI_ReportsAnalysis.h"
#include "reports/preview.h"
#include "start/Main.h"
#include "stock/KVI_Invoice.h"
#include "stock/KVI_UpdateInventory.h"
#include "usage/KVI_UsageAnalysis.h"
#include "utilities/KVI_EmployeeSetup.h"
#include "utilities/KVI_ManageDropLIsts.h"
#include "utilities/KVI_Utilities.h"
#include "vendors/KVI_VendorSummary.h"

namespace kvi::bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTyped = "bearing 62";

class Walk {
 public:
  Walk() { desktop_.SetStack(app_.screens); }
  ~Walk() { desktop_.CloseAllWindows(); }

  void Start(const std::string& name) {
    desktop_.Time(name, [this] { app_.screens.Load(Pad()); });
  }
  void VisitAll() {
    VisitParts();
    VisitGroups();
    VisitUpdate();
    VisitOrders();
    VisitUsage();
    VisitReports();
    desktop_.Open("Vendors", Press(Pad().vendors));
    VisitUtilities();
    desktop_.Open("Copies of the database", Press(Pad().m_f_restore));
  }

 private:
  using Step = std::function<void()>;

  template <class T>
  T& On() {
    return app_.Get<T>();
  }
  Main& Pad() { return On<Main>(); }
  template <class Pressed>
  Step Press(Pressed& control) {
    return [this, &control] { user_.Click(control); };
  }
  // The sort of a list by another entry of its combo.
  Step Sort(ComboBox& combo) {
    return [this, &combo] { user_.Choose(combo, 2); };
  }
  Step Show(TabStrip& strip, int tab) {
    return [this, &strip, tab] { user_.Choose(strip, tab); };
  }

  void Key(TextBox& box, Qt::Key key, const QString& text = {}) {
    QWidget& widget = *desktop_.WindowOf(box.Owner())->WidgetOf(box);
    if (!widget.hasFocus()) widget.setFocus();
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&widget, &press);
  }
  void Scan(ScanField& field) {
    field.Scan.Text = "4711";
    Key(field.Scan, Qt::Key_Return);
  }

  // What is searched for is typed letter by letter; every key has its line.
  void Search(TextBox& box) {
    desktop_.Time("Into the search field", [&] { Key(box, Qt::Key_Shift); });
    for (const char* letter = kTyped; *letter != '\0'; ++letter)
      desktop_.Time("A key in the search", [&] { Key(box, Qt::Key_A, QString(QChar(*letter))); });
    desktop_.Time("A key in the search", [&] { Key(box, Qt::Key_Escape); });
  }

  void VisitParts() {
    auto& list = On<KVI_InventorySummary>();
    desktop_.Open("Inventory summary", Press(Pad().Label1), [&] {
      Search(list.search.Search);
      desktop_.Time("First scan of a visit", [&] { Scan(list.scan); });
      desktop_.Time("A further scan", [&] { Scan(list.scan); });
      desktop_.Time("Summary by another order", Sort(list.SortCombo));
      desktop_.Open(
          "Part", [&] { user_.DoubleClick(list.Spread1, 2, 1); },
          [&] {
            auto& part = On<KVI_InventoryDetail>();
            for (int tab = 1; tab < static_cast<int>(part.SSTab1.Captions().size()); ++tab)
              desktop_.Time("Part, " + part.SSTab1.Captions()[static_cast<std::size_t>(tab)],
                            Show(part.SSTab1, tab));
          },
          "Back from a part to the summary");
      desktop_.Open("Find", Press(list.find_lab));
      desktop_.Open("Labels of the whole list", Press(list.labels_lab));
      desktop_.Time("Summary as a workbook", Press(list.m_workbook));
    });
  }

  void VisitGroups() {
    auto& list = On<KVI_PGSummary>();
    desktop_.Open("Part groups", Press(Pad().MaintProc), [&] {
      desktop_.Open("Part group", [&] { user_.DoubleClick(list.Spread1, 1, 1); });
    });
  }

  void VisitUpdate() {
    auto& count = On<KVI_UpdateInventory>();
    desktop_.Open("Update, a count", Press(Pad().Label6), [&] {
      desktop_.Time("Update, a typed count", [&] { user_.TypeIntoCell(count.Spread1, 1, 8, "7"); });
      desktop_.Time("Update, variances", Press(count.rv));
      desktop_.Time("Update, sorted by variance", Press(count.svd));
      desktop_.Time("Update, purchases", Show(count.TabStrip1, 1));
    });
  }

  void VisitOrders() {
    auto& orders = On<KVI_OrderSystem>();
    desktop_.Open("Orders, place", Press(Pad().Label16), [&] {
      desktop_.Time("Orders, the total", Press(orders.ut));
      desktop_.Time("Orders, receive", Show(orders.TabStrip1, 1));
      desktop_.Open("Invoices", Press(orders.ei), [&] {
        desktop_.Time("Invoices by another order", Sort(On<KVI_Invoice>().SortCombo));
      });
    });
  }

  void VisitUsage() {
    auto& usage = On<KVI_UsageAnalysis>();
    desktop_.Open("Usage analysis", Press(Pad().Label2),
                  [&] { desktop_.Open("Usage charts", Press(usage.chart_lab)); });
  }

  void VisitReports() {
    auto& screen = On<KVI_ReportsAnalysis>();
    desktop_.Open("Reports", Press(Pad().Label3), [&] {
      for (const ReportKind& kind : Reports()) {
        user_.Click(screen.Command2);
        static_cast<CheckBox&>(*screen.Find(kind.box)).Value = true;
        const std::string name = kind.caption;
        if (kind.byVendor) continue;
        desktop_.Open("Preview: " + name, Press(screen.preview_lab),
                      [&] { desktop_.Open("Pages: " + name, Press(On<preview>().Pages)); });
      }
    });
  }

  void VisitUtilities() {
    auto& screen = On<KVI_Utilities>();
    desktop_.Open("Utilities", Press(Pad().Label7), [&] {
      user_.Choose(screen.SSTab1, 1);
      desktop_.Open("Employees", Press(screen.Command5), [&] {
        desktop_.Open("Employee",
                      [&] { user_.DoubleClick(On<KVI_EmployeeSetup>().Spread1, 1, 1); });
      });
      user_.Choose(screen.SSTab1, 2);
      desktop_.Open("Drop lists", Press(screen.Command1), [&] {
        desktop_.Time("Drop list of the locations",
                      [&] { user_.Choose(On<KVI_ManageDropLIsts>().o_iil); });
      });
      desktop_.Open("Import", Press(screen.Command2));
      desktop_.Open("Delete inventory", Press(screen.cmdDeleteAllItems));
    });
  }

  char name_[6] = "bench";
  char* arguments_[2] = {name_, nullptr};
  int count_ = 1;
  bool platform_ = qputenv("QT_QPA_PLATFORM", "offscreen");
  TimedDesktop desktop_{count_, arguments_};
  SystemClock clock_;
  SystemChance chance_;
  Application app_{{desktop_, clock_, chance_, kFolder, ""}};
  Gestures user_{app_.screens};
};

void CopyFolder() {
  for (const char* file : {"TARNWK.INI", "files"})
    fs::copy(file, fs::path(kFolder) / file,
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  fs::remove_all(fs::path(kFolder) / "backups");
}

}  // namespace
}  // namespace kvi::bench

int main() {
  using namespace kvi::bench;
  if (!MakeDatabase()) {
    std::fputs("There is no KV_Inventory.mdb here: see bench/openings.\n", stderr);
    return 1;
  }
  CopyFolder();
  Walk().Start("First start of a day");
  Walk walk;
  walk.Start("Start");
  walk.VisitAll();
}
