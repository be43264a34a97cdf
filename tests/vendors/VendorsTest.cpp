#include <gtest/gtest.h>

#include <filesystem>

#include "items/KVI_ChooseVendors.h"
#include "jet/Database.h"
#include "support/TestStockroom.h"
#include "vendors/KVI_VendorDetail.h"
#include "vendors/KVI_VendorSummary.h"

namespace kvi::test {
namespace {

constexpr const char* kRemoval =
    "Are you sure you want to remove this vendor and all associated inventory data?";
constexpr const char* kSecondCheck =
    "SECOND CHECK!!!!!\n\nAre you sure you want to remove this vendor and all inventory items "
    "associated to this vendor?";

class VendorsTest : public ::testing::Test {
 protected:
  VendorsTest() {
    stockroom.Fill("Vendor_Info",
                   "name | contact1 | phone1 | VendorCode\n The ACME Co. | Ola | 555-1 | A7\n"
                   "Nord Supply | Bo | | \n Bolt's | | |");
    stockroom.Fill("I_Master",
                   "inv_id | pcenter | name | where1 | where2\n 1 | 0 | Belt | Nord Supply |\n"
                   "2 | 4 | Far | nord supply |\n 3 | 0 | Seal | The ACME Co. | Nord Supply\n"
                   "4 | 0 | Nut | |");
    EXPECT_TRUE(stockroom.Start());
  }

  KVI_VendorSummary& List() { return stockroom.App().Get<KVI_VendorSummary>(); }
  KVI_VendorDetail& Detail() { return stockroom.App().Get<KVI_VendorDetail>(); }
  std::string Listed() { return GridText(List().Spread1, 1, 1); }
  std::string Stored(const std::string& fields = "name") {
    return stockroom.Rows("SELECT " + fields + " FROM Vendor_Info ORDER BY name");
  }
  std::string Parts() { return stockroom.Rows("SELECT inv_id, where1 FROM I_Master"); }
  // The box of a statement that a quote within a name breaks.
  void ExpectBroken(const std::string& sql) {
    stockroom.desktop.ExpectBox(
        "3075 Syntax error (missing operator, or characters behind the end) in query expression '" +
        sql + "'.");
  }

  void InList(const std::function<void()>& user) {
    stockroom.desktop.ExpectScreen("KVI_VendorSummary", [&] {
      user();
      Click(List().exit_lab);
    });
    Click(stockroom.MainScreen().vendors);
    stockroom.desktop.AllCame();
  }
  // The vendor of a row, or a new one for row 0; left by the label.
  void InDetail(int row, const std::function<void()>& user) {
    stockroom.desktop.ExpectScreen("KVI_VendorDetail", [&] {
      user();
      Click(Detail().exit_lab);
    });
    if (row == 0)
      Click(List().new_lab);
    else
      EXPECT_TRUE(stockroom.user().DoubleClick(List().Spread1, row, 1));
    stockroom.desktop.AllCame();
  }
  void Click(ActionLabel& label) { EXPECT_TRUE(stockroom.user().Click(label)); }
  void Type(TextBox& box, const std::string& text) {
    EXPECT_TRUE(stockroom.user().Type(box, text));
  }
  void Remove(int row, Answer first, Answer second = Answer::No) {
    stockroom.user().GoToCell(List().Spread1, row, 1);
    stockroom.desktop.ExpectBox(kRemoval, first, "Vendors");
    if (first == Answer::Yes) stockroom.desktop.ExpectBox(kSecondCheck, second, "Vendors");
    Click(List().remove);
  }

  TestStockroom stockroom;
};

TEST_F(VendorsTest, ANewVendorIsListedAndOfferedAndAnEmptyBoxIsOneBlank) {
  InList([&] {
    EXPECT_EQ(GridText(List().Spread1, 1, 8),
              "Bolt's|||||||\nNord Supply|Bo||||||\nThe ACME Co.|Ola||||||555-1\n");
    InDetail(0, [&] {
      Type(Detail().VendorName, "   ");
      stockroom.desktop.ExpectBox("Vendor Name is required");
      Click(Detail().save_lab);
      Type(Detail().VendorName, "O'Hara \"Pumps\"");
      Type(Detail().City, " Kiel ");
      stockroom.desktop.ExpectBox("Save changes?", Answer::Yes);
    });
    EXPECT_EQ(Listed(), "Bolt's\nNord Supply\nOHara Pumps\nThe ACME Co.\n");
    EXPECT_EQ(List().Spread1.ActiveRow(), 3);
    InDetail(0, [&] {
      EXPECT_EQ(Detail().City.Text(), "") << "a new one comes up empty";
      Type(Detail().VendorName, "Never");
      stockroom.desktop.ExpectBox("Save changes?", Answer::No);
    });
    EXPECT_EQ(List().Spread1.ActiveRow(), 3);
    EXPECT_EQ(stockroom.App().Get<KVI_ChooseVendors>().where1.IndexOf("OHara Pumps"), 3);
  });
  EXPECT_EQ(stockroom.Rows("SELECT City, Phone1, VendorID FROM Vendor_Info WHERE name = "
                           "'OHara Pumps'"),
            "Kiel| | \n");
}

TEST_F(VendorsTest, AnotherNameMakesAnotherVendorOrWritesOverTheOneThatHasIt) {
  InList([&] {
    InDetail(3, [&] {
      EXPECT_EQ(Detail().VendorCode.Text(), "A7");
      Type(Detail().VendorName, "Acme Inc");
      Click(Detail().save_lab);
      EXPECT_EQ(Detail().StatusBar1.PanelText(2),
                "Acme Inc was added.  The ACME Co. stays as it was, with its parts.");
      Type(Detail().VendorName, "NORD supply");
      Click(Detail().save_lab);
    });
    EXPECT_EQ(Listed(), "Acme Inc\nBolt's\nNORD supply\nThe ACME Co.\n");
    ExpectBroken("SELECT * FROM vendor_info WHERE name = 'Bolt's';");
    InDetail(2, [&] { EXPECT_EQ(Detail().VendorName.Text(), "") << "never another one's fields"; });
  });
  EXPECT_EQ(Stored("name, contact1"),
            "Acme Inc|Ola\nBolt's|Null\nNORD supply|Ola\nThe ACME Co.|Ola\n");
  EXPECT_EQ(Parts(), "1|Nord Supply\n2|nord supply\n3|The ACME Co.\n4|Null\n");
}

TEST_F(VendorsTest, AVendorGoesWithThePartsThatNameItFirstAfterTwoChecksAndACopy) {
  InList([&] {
    Remove(2, Answer::No);
    Remove(2, Answer::Yes, Answer::No);
    EXPECT_FALSE(std::filesystem::exists(stockroom.CopyBefore("removing a vendor")));
    Remove(2, Answer::Yes, Answer::Yes);
    EXPECT_EQ(List().StatusBar1.PanelText(2), "Nord Supply was removed, and with it 2 parts.");
    EXPECT_EQ(Listed(), "Bolt's\nThe ACME Co.\n");
    EXPECT_EQ(stockroom.App().Get<KVI_ChooseVendors>().where1.IndexOf("Nord Supply"), -1);
    jet::Database before = jet::Database::Open(stockroom.CopyBefore("removing a vendor"), false);
    EXPECT_EQ(before.OpenRecordset("SELECT * FROM I_Master").RecordCount(), 4);
    before.Close();
    // A quote breaks the first statement, and the second does not run.
    stockroom.desktop.ExpectBox(kRemoval, Answer::Yes, "Vendors");
    stockroom.desktop.ExpectBox(kSecondCheck, Answer::Yes, "Vendors");
    ExpectBroken("DELETE * FROM Vendor_Info WHERE Name = 'Bolt's';");
    stockroom.user().GoToCell(List().Spread1, 1, 1);
    Click(List().remove);
    stockroom.Fill("Vendor_Info", "name | City\n | Ulm");
    InDetail(2, [] {});
    EXPECT_EQ(Listed(), "\nBolt's\nThe ACME Co.\n");
    stockroom.user().GoToCell(List().Spread1, 1, 1);
    Click(List().remove);
  });
  EXPECT_EQ(Parts(), "3|The ACME Co.\n4|Null\n") << "not those without a vendor";
  EXPECT_EQ(Stored(), "Null\nBolt's\nThe ACME Co.\n");
}

TEST_F(VendorsTest, EmptyingTheListTouchesNoVendorAndFindLooksAnywhereInTheName) {
  InList([&] {
    const auto find = [&](std::optional<std::string> answer) {
      stockroom.desktop.ExpectInput("Enter Vendor Name", answer, "Kestvar Inventory");
      Click(List().find_lab);
      return List().Spread1.ActiveRow();
    };
    EXPECT_EQ(find(" acme "), 3);
    EXPECT_EQ(find("  "), 3);
    EXPECT_EQ(find(std::nullopt), 3);
    EXPECT_EQ(find("o"), 1);
    stockroom.desktop.ExpectInput("Enter Vendor Name", "zz", "Kestvar Inventory");
    stockroom.desktop.ExpectBox("No match");
    Click(List().find_lab);
    Click(List().print_lab);
    EXPECT_NE(stockroom.desktop.documents.back()->Page(1).find("| Nord Supply\n"),
              std::string::npos);
    stockroom.desktop.ExpectBox("This option will remove ALL rows in the spreadsheet.\nContinue?",
                                Answer::Yes);
    stockroom.desktop.ExpectBox("Are you positive?", Answer::Yes);
    Click(List().duplicate);
    EXPECT_EQ(Listed(), "");
    Click(List().remove);
    Click(List().save);
  });
  EXPECT_EQ(Stored(), "Bolt's\nNord Supply\nThe ACME Co.\n");
  InList([&] { EXPECT_EQ(Listed(), "Bolt's\nNord Supply\nThe ACME Co.\n"); });
}

}  // namespace
}  // namespace kvi::test
