#include <algorithm>

#include "base/RunTimeError.h"
#include "stock/KVI_Invoice.h"
#include "support/Story.h"

namespace kvi::test {
namespace {

constexpr const char* kReadOnly = "Current security clearance is READ ONLY.";
constexpr const char* kBadDate = "You have entered an incorrect date, defaulting to today's date.";
constexpr const char* kUnsaved = "Unsaved changes have been made.  Save before exiting?";
constexpr const char* kNoInvoices =
    "No invoices in the system.  Click on the 'new' menu option to add a new invoices.";

class InvoiceTest : public ScreenStory<KVI_Invoice> {
 protected:
  InvoiceTest() {
    stockroom.Fill("Vendor_Info", "Name\n Nord\n Alpha");
    stockroom.Fill("Invoice",
                   "Vendor | Number | Date | date_due | amount | adj_amount\n"
                   "Nord | 9 | 2026-01-05 | 2026-02-01 | 12.345 | 7\n"
                   "Alpha | 100 | 2026-01-02 | 2026-03-01 | 90 |\n"
                   "Nord | 11 | 2026-01-09 | 2026-01-31 | 5 | 8");
  }
  // Opens the register, and leaves it when the user is done.
  void Open(const Acts& user) {
    Reach([&] {
      user();
      Click(Screen().exit_lab);
    });
  }
  void Reach(const Acts& user) {
    stockroom.desktop.ExpectScreen("KVI_Invoice", user);
    stockroom.App().screens.ShowModal(Screen());
    stockroom.desktop.AllCame();
  }
  void SortBy(const std::string& choice) { Choose(Screen().SortCombo, choice); }
  std::string Stored() {
    return stockroom.Rows("SELECT Vendor, Number, Date, date_due, amount, adj_amount FROM Invoice");
  }
};

TEST_F(InvoiceTest, ShowsTheRegisterInTheOrderChosenAndNumbersAsText) {
  stockroom.App().UseColors = true;
  Open([&] {
    const Spread& grid = Grid();
    EXPECT_EQ(GridText(grid),
              "01/02/2026|03/01/2026|Alpha|100|90.00|\n"
              "01/05/2026|02/01/2026|Nord|9|12.35|7.00\n"
              "01/09/2026|01/31/2026|Nord|11|5.00|8.00\n");
    EXPECT_EQ(grid.Format(2, 1).BackColor, kLightGrey);
    EXPECT_EQ(grid.RowHeight(0), 600);
    const std::pair<const char*, const char*> cases[] = {
        {"Invoice #", "100\n11\n9\n"},       {"Invoice Date", "100\n9\n11\n"},
        {"Total Amount", "11\n9\n100\n"},    {"Due Date", "11\n9\n100\n"},
        {"Adjusted Amount", "100\n9\n11\n"}, {"Name", "100\n9\n11\n"}};
    for (const auto& [choice, numbers] : cases) {
      SortBy(choice);
      EXPECT_EQ(GridText(grid, 4, 4), numbers) << choice;
    }
  });
}

TEST_F(InvoiceTest, ADeliveryIsRegisteredAtTheEndAndTheTableRewritten) {
  Open([&] {
    Click(Screen().new_lab);
    EXPECT_EQ(Grid().ActiveRow(), 4);
    Type(4, 1, "1-Mar");
    Type(4, 2, "13/4/2026");
    EXPECT_EQ(GridText(Grid(), 1, 2).substr(66), "03/01/2026|04/13/2026\n");
    EXPECT_FALSE(stockroom.user().TypeIntoCell(Grid(), 4, 3, "Nobody"));
    Type(4, 3, "Nord");
    Type(4, 4, "A-7");
    EXPECT_FALSE(stockroom.user().TypeIntoCell(Grid(), 4, 5, "1250.5 net"));
    Type(4, 5, "$1,250.505");
    Type(1, 6, "88");
    Click(Screen().save);
    stockroom.Execute("DELETE * FROM Invoice WHERE Number = '9'");
    Click(Screen().save);
  });
  EXPECT_EQ(Stored(),
            "Alpha|100|1/2/2026|3/1/2026|90|88\n"
            "Nord|11|1/9/2026|1/31/2026|5|8\n"
            "Nord|A-7|3/1/2026|4/13/2026|1250.51|0\n")
      << "without a change a save writes nothing back";
}

TEST_F(InvoiceTest, ABlankRowAndBadDatesAreMadeCompleteWithTodaysDate) {
  Open([&] {
    Type(1, 2, "2/30/2026");
    ExpectBox("Spreadsheet changes have been made.  Save before adding?", Answer::Yes);
    ExpectBox(kBadDate);
    Click(Screen().new_lab);
    for (int box = 0; box < 2; ++box) ExpectBox(kBadDate);
    Click(Screen().save);
    EXPECT_EQ(Grid().Text(1, 2), "03/09/2026");
  });
  EXPECT_EQ(Stored(),
            "Alpha|100|1/2/2026|3/9/2026|90|0\n"
            "Nord|9|1/5/2026|2/1/2026|12.35|7\n"
            "Nord|11|1/9/2026|1/31/2026|5|8\n"
            "n/a|n/a|3/9/2026|3/9/2026|0|0\n");
}

TEST_F(InvoiceTest, RemovesTheRowOfTheCursorAndSaves) {
  Open([&] {
    stockroom.user().GoToCell(Grid(), 2, 4);
    ExpectBox("Are you sure you want to remove this 'Invoice?'?", Answer::No, "Invoices");
    Click(Screen().remove);
    Type(3, 4, "12");
    ExpectBox("Spreadsheet changes have been made.  Save before deleting current record?",
              Answer::Yes);
    ExpectBox("Are you sure you want to remove this 'Invoice?'?", Answer::Yes, "Invoices");
    Click(Screen().remove);
  });
  EXPECT_EQ(stockroom.Rows("SELECT Number FROM Invoice"), "100\n12\n");
  Open([&] {
    ExpectBox("Are you sure you want to remove all 'Invoices?'?", Answer::Yes, "Invoices");
    Click(Screen().m_delete);
    Click(Screen().remove);
  });
  EXPECT_EQ(Stored(), "");
}

TEST_F(InvoiceTest, WithoutTheWriteRightTheTableStaysWhateverTheScreenShows) {
  ASSERT_TRUE(stockroom.Start("/S:RRRR"));
  const std::string before = Stored();
  Open([&] {
    ExpectBox(kReadOnly);
    Click(Screen().new_lab);
    ExpectBox("Are you sure you want to remove all 'Invoices?'?", Answer::Yes, "Invoices");
    ExpectBox(kReadOnly);
    Click(Screen().m_delete);
    EXPECT_EQ(Grid().MaxRows(), 0);
    ExpectBox("Spreadsheet changes have been made.  Save before exiting?", Answer::Yes);
    ExpectBox(kReadOnly);
  });
  EXPECT_EQ(Stored(), before);
}

TEST_F(InvoiceTest, EveryWayOutAndASortAskForUnsavedChanges) {
  Reach([&] {
    Type(1, 4, "1");
    ExpectBox(kUnsaved, Answer::No);
    SortBy("Invoice #");
    EXPECT_EQ(Grid().Text(1, 4), "100") << "loaded again";
    Type(1, 4, "2");
    ExpectBox(kUnsaved, Answer::Yes);
    SortBy("Name");
    Type(1, 4, "3");
    ExpectBox(kUnsaved, Answer::No);
    Click(Screen().m_exit);
  });
  Reach([&] {
    Type(1, 4, "4");
    ExpectBox(kUnsaved, Answer::Yes);
    stockroom.user().CloseWindow(Screen());
  });
  EXPECT_EQ(stockroom.Rows("SELECT Number FROM Invoice WHERE Vendor = 'Alpha'"), "4\n");
}

TEST_F(InvoiceTest, ALockThatLastsLosesNothingOfWhatWasTyped) {
  jet::Database other = jet::Database::Open(stockroom.DatabaseFile(), false);
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM Vendor_Info");
  Open([&] {
    Type(1, 4, "typed");
    theirs.Edit();
    ExpectBox(kUnsaved, Answer::Yes);
    ExpectLock(Answer::No);
    Click(Screen().m_exit);
    EXPECT_EQ(Grid().Text(1, 4), "typed") << "the screen stays";
    ExpectLock(Answer::Yes);
    stockroom.desktop.Meanwhile([&] { theirs.CancelUpdate(); });
    Click(Screen().save);
  });
  EXPECT_EQ(stockroom.Rows("SELECT Number FROM Invoice"), "typed\n9\n11\n");
}

// The whole table is rewritten: what cannot be written must not cost what stood there.
TEST_F(InvoiceTest, ASaveThatFailsInTheMiddleLeavesTheTableAsItWas) {
  const std::string before = Stored();
  Open([&] {
    Type(2, 4, std::string(300, '7'));
    ExpectBox("An error has occurred saving data.3163 " + DescriptionOf(3163) + " (Number)",
              Answer::Ok, "KV Inventory Save Changes");
    Click(Screen().save);
    EXPECT_EQ(Stored(), before);
    Type(2, 4, "12");
    Click(Screen().save);
  });
  EXPECT_NE(Stored(), before);
}

TEST_F(InvoiceTest, AnEmptyRegisterSaysSoAndANewVendorShowsAtTheNextOpening) {
  stockroom.Execute("DELETE * FROM Invoice");
  ExpectBox(kNoInvoices);
  stockroom.desktop.ExpectScreen("KVI_Invoice", [&] {
    stockroom.Fill("Vendor_Info", "Name\n Bering");
    Click(Screen().new_lab);
    for (int box = 0; box < 2; ++box) ExpectBox(kBadDate);
    Click(Screen().save);
    Click(Screen().exit_lab);
  });
  stockroom.App().screens.ShowModal(Screen());
  EXPECT_EQ(Stored(), "n/a|n/a|3/9/2026|3/9/2026|0|0\n");
  Open([&] {
    EXPECT_EQ(GridText(Grid()), "03/09/2026|03/09/2026|n/a|n/a|0.00|0.00\n");
    EXPECT_EQ(Grid().Choices(3), (std::vector<std::string>{"Alpha", "Bering", "Nord"}));
  });
}

TEST_F(InvoiceTest, PrintsAndExportsTheGrid) {
  std::string file;
  Open([&] {
    Click(Screen().print_lab);
    file = ExportedBy(Screen().M_export);
  });
  EXPECT_EQ(stockroom.desktop.documents.size(), 1U);
  ExpectOnPaper({"| Invoice Entry", "| Total Amount", "| Page: 1"});
  EXPECT_EQ(file.substr(0, file.find('\t')), "Invoice Date");
  EXPECT_EQ(std::ranges::count(file, '\n'), 4);
}

}  // namespace
}  // namespace kvi::test
