#include <filesystem>

#include "base/RunTimeError.h"
#include "items/KVI_InventoryDetail.h"
#include "sample/oldfiles/JetFileWriter.h"
#include "support/Story.h"
#include "support/TableText.h"
#include "utilities/KVI_ImportPBI.h"
#include "utilities/KVI_Utilities.h"

namespace kvi::test {
namespace {

namespace fs = std::filesystem;
using jetfile::ColumnType;
using jetfile::JetFileWriter;
using jetfile::Version;

const std::string kMillraceTitle = "Import from Millrace Works/Inventory";
const std::string kPlainbookTitle = "Import from Plainbook Inventory";
constexpr const char* kMillraceEnd =
    "Import complete.\n\nNOTE:  The inventory in Kestvar is more powerful than the older Millrace "
    "Works inventory.  Please make sure you visit each item in inventory and verify your data.";
constexpr const char* kSecondWarning = "2nd WARNING! Are you SURE you want to do this?";

class ImportTest : public StoryTest {
 protected:
  ImportTest() {
    stockroom.Fill("I_Master", "inv_id | pcenter | name | active\n old | 0 | Old | YES");
    stockroom.Fill("Inv_Recipe", "rec_id | inv_id\n G | old");
    stockroom.Fill("Hist_Purchases", "inv_id | p_qty\n old | 3");
    stockroom.Fill("DD_category", "Description\n Old");
  }
  KVI_ImportPBI& Screen() { return The<KVI_ImportPBI>(); }
  void InImport(const Acts& acts) {
    stockroom.InUtilities([&](auto& utilities) {
      stockroom.desktop.ExpectScreen("KVI_ImportPBI", [&] {
        acts();
        Click(Screen().Label11);
      });
      Click(utilities.Command2);
    });
  }
  void Browse(OptionButton& product, const std::optional<std::string>& file) {
    stockroom.user().Choose(product);
    stockroom.desktop.ExpectFile("Browse", file);
    Click(Screen().save);
  }
  void ExpectWarnings(Answer second = Answer::Yes) {
    const std::string what = Screen().i_mrw.Value ? "import the Millrace Works/Inventory data "
                                                    "you have selected into Kestvar - Inventory."
                                                  : "copy the PBI_DATA.MDB you have selected "
                                                    "into Kestvar - Inventory.";
    ExpectBox("WARNING! This option will " + what +
                  "  Any inventory data you have in KV will be lost!\n\nAre "
                  "you SURE you want to "
                  "do this?",
              Answer::Yes, "Import");
    ExpectBox(kSecondWarning, second, "Import");
  }
  // Imports the file, and meets this box before the end.
  void Import(OptionButton& product, const std::string& file, const std::string& box) {
    Browse(product, file);
    ExpectWarnings();
    ExpectBox(box, Answer::Ok, Screen().Caption());
    Click(Screen().Label12);
    stockroom.desktop.AllCame();
  }
  static void WriteMillrace(JetFileWriter& writer, const std::vector<std::vector<Value>>& parts) {
    writer.Begin({"INVENTORY",
                  {{"i_num", ColumnType::Text, 30},
                   {"desc", ColumnType::Text, 80},
                   {"category", ColumnType::Text},
                   {"location", ColumnType::Text},
                   {"how_inv", ColumnType::Text},
                   {"cost_per", ColumnType::Currency},
                   {"valuation", ColumnType::Double},
                   {"re_order", ColumnType::Integer},
                   {"where1", ColumnType::Text},
                   {"where2", ColumnType::Text},
                   {"where3", ColumnType::Text},
                   {"notes", ColumnType::Memo}}});
    for (const auto& part : parts) writer.Add(part);
    writer.Begin({"Inv_recipe",
                  {{"i_num", ColumnType::Text},
                   {"machine_id", ColumnType::Text},
                   {"desc", ColumnType::Text},
                   {"qty", ColumnType::Single},
                   {"notes", ColumnType::Memo}}});
    writer.Add({"100", "Press \"3\"", "Seal of the press", 2, {}});
    writer.Begin({"DropDowns", {{"Drop03", ColumnType::Text}, {"Drop04", ColumnType::Text}}});
    writer.Add({"Bin & rack", "Seals"});
    writer.Add({{}, "Belts"});
  }
  // Parts of two profit centers, and a period that was locked twice on a day.
  std::string Plainbook() {
    JetFileWriter writer(Version::Jet4);
    writer.Begin({"i_master",
                  {{"INV_ID", ColumnType::Text, 15},
                   {"Name", ColumnType::Text},
                   {"pcenter", ColumnType::Integer},
                   {"active", ColumnType::Text}}});
    writer.Add({"P1", "Pump", 5, "YES"});
    writer.Add({"p1", "Pipe", 5, "YES"});
    writer.Add({"P2", "Plug", 6, "YES"});
    writer.Begin({"PCenter", {{"name", ColumnType::Text}, {"pcenter", ColumnType::Integer}}});
    writer.Add({"East", 5});
    writer.Add({"West", 6});
    writer.Begin({"Historical Inventory",
                  {{"F_Date", ColumnType::Date},
                   {"Inv_ID", ColumnType::Text},
                   {"pcenter", ColumnType::Integer}}});
    writer.Add({Date{2005, 3, 1, 10, 15, 0}, "P1", 5});
    writer.Begin({"HI_Header", {{"F_Date", ColumnType::Date}, {"pcenter", ColumnType::Integer}}});
    writer.Add({Date{2005, 3, 1, 10, 15, 0}, 5});
    writer.Add({Date{2005, 3, 1, 11, 0, 0}, 5});
    WriteFile(stockroom.folder / "PBI_DATA.MDB", writer.Finish());
    return stockroom.folder / "PBI_DATA.MDB";
  }
  std::string Millrace(const std::vector<std::vector<Value>>& parts) {
    JetFileWriter writer(Version::Jet3);
    WriteMillrace(writer, parts);
    WriteFile(stockroom.folder / "MILLRACE.MDB", writer.Finish());
    return stockroom.folder / "MILLRACE.MDB";
  }
};

TEST_F(ImportTest, OnlyFilesOfTheTwoProductsAreTakenAndNoChangesNothing) {
  const std::string millrace = Millrace({});
  stockroom.App();
  const std::string before = ReadFile(stockroom.DatabaseFile());
  InImport([&] {
    ExpectBox(
        "Please make sure you 'browse' and locate the inventory "
        "data.\n\nLocate the database then "
        "click on 'import' again.");
    Click(Screen().Label12);
    Browse(Screen().i_pbi, "*PBI_DATA.MDB");
    EXPECT_EQ(Screen().Caption(), kPlainbookTitle);
    EXPECT_EQ(Screen().MDBLabel.Text(), "");
    Browse(Screen().i_mrw, millrace);
    EXPECT_EQ(Screen().Label1.Caption(), "Location of MILLRACE.MDB (click 'browse' to locate)");
    Browse(Screen().i_mrw, std::nullopt);
    Browse(Screen().i_mrw, stockroom.folder / "MILLRACE.MDB.txt");
    EXPECT_EQ(Screen().MDBLabel.Text(), millrace);
    ExpectWarnings(Answer::No);
    Click(Screen().Label12);
    Browse(Screen().i_mrw, stockroom.folder / "My_Millrace.mdb");
    WriteFile(stockroom.folder / "my_millrace.mdb", "text");
    Import(Screen().i_mrw, stockroom.folder / "my_millrace.mdb",
           "The data could not be imported.  Nothing was changed.\n\n3343 "
           "Unrecognized database "
           "format. ('" +
               (stockroom.folder / "my_millrace.mdb") + "')");
    stockroom.App().AccessString = "WWRW";
    ExpectBox(
        "Full Access to Utilities required for this option.\n\nChanges "
        "NOT Saved");
    Click(Screen().Label12);
  });
  EXPECT_EQ(ReadFile(stockroom.DatabaseFile()), before);
}

TEST_F(ImportTest, MillraceGivesPartsOfTheCurrentProfitCenterAndKeepsPurchases) {
  stockroom.Set("ProfitCenterNo", "1");
  const std::string file = Millrace({{" 10'0",
                                      std::string("Seal & \"O\" ring ") + std::string(50, 'x'),
                                      "Seals",
                                      "Bin & rack",
                                      "each",
                                      2.5,
                                      5,
                                      3,
                                      "O'Hara",
                                      {},
                                      "",
                                      "It's 3\" wide"},
                                     {"A1", {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}}});
  InImport([&] { Import(Screen().i_mrw, file, kMillraceEnd); });
  EXPECT_EQ(stockroom.Rows("SELECT inv_id, pcenter, name, category, location, "
                           "cost_per, valuation, "
                           "re_order, where1, where2, notes, active, hu_qty, "
                           "how_used FROM I_Master "
                           "ORDER BY inv_id"),
            "100|4|Seal  O ring " + std::string(34, 'x') +
                "|Seals|Bin  rack|2.5|5|3|OHara|Null|It's 3\" wide|YES|1|each\n"
                "A1|4|Null|Null|Null|0|0|0|Null|Null|Null|YES|1|each\n");
  EXPECT_EQ(stockroom.Rows("SELECT rec_id, inv_id, pcenter, desc, qty FROM Inv_Recipe"),
            "Press 3|100|4|Seal of the press|2\n");
  EXPECT_EQ(stockroom.Rows("SELECT * FROM DD_inv_loc"), "Bin  rack\n");
  EXPECT_EQ(stockroom.Rows("SELECT * FROM DD_category"), "Seals\nBelts\n");
  EXPECT_EQ(stockroom.Rows("SELECT inv_id, p_qty FROM Hist_Purchases"), "old|3\n");
  EXPECT_EQ(stockroom.App().CurrentProfitCenter, 4);
  EXPECT_EQ(stockroom.App().ItemSet.RecordCount(), 2);
  EXPECT_EQ(The<KVI_InventoryDetail>().category.Items(),
            (std::vector<std::string>{"Belts", "Seals"}));
  EXPECT_TRUE(fs::exists(stockroom.CopyBefore("importing from Millrace Works")));
}

TEST_F(ImportTest, WhatCannotBeTakenIsToldBeforeAnythingGoes) {
  std::vector<std::vector<Value>> parts = {{"A1"}, {"a1 "}, {"'"}, {"12345678901234567"}};
  for (auto& part : parts) part.resize(12);
  for (int more = 0; more < 4; ++more) parts.push_back(parts.front());
  stockroom.App();
  const std::string before = ReadFile(stockroom.DatabaseFile());
  InImport([&] {
    Import(Screen().i_mrw, Millrace(parts),
           "Nothing was changed: this data cannot be taken as it is.\n\n"
           "Inventory, row 4: i_num: The field is too small for the data. (inv_id)\n"
           "Inventory, row 2: another part has the number a1\n"
           "Inventory, row 3: the part has no number\n"
           "Inventory, row 5: another part has the number A1\n"
           "Inventory, row 6: another part has the number A1\nand 2 more");
    // The other product's file.
    Import(Screen().i_mrw, Plainbook(),
           "The data could not be imported.  Nothing was changed.\n\n3343 This "
           "is no Millrace Works "
           "database: the table Inventory is missing.\n");
    Import(Screen().i_pbi, stockroom.folder / "MILLRACE.MDB",
           "The data could not be imported.  Nothing was changed.\n\n3343 This "
           "is no Plainbook "
           "Inventory database: the table I_Master is missing.");
  });
  EXPECT_EQ(ReadFile(stockroom.DatabaseFile()), before);
}

TEST_F(ImportTest, PlainbookTakesThePlaceOfEverythingAndLeavesABackup) {
  const std::string file = Plainbook(), backup = stockroom.folder / "KV_Inventory_Backup.MDB",
                    protocol = stockroom.folder / "KV_Inventory_Import.txt";
  stockroom.Set("ProfitCenterNo", "1");
  WriteFile(backup, "an earlier one");
  stockroom.App();
  jet::Database other = OtherDesk();
  jet::Recordset theirs = other.OpenRecordset("SELECT * FROM I_Master");
  EXPECT_EQ(theirs.Text("inv_id"), "old");
  for (const char* before : {"old\n", "P1\np1\nP2\n"}) {
    InImport([&] {
      Browse(Screen().i_pbi, file);
      ExpectWarnings();
      ExpectBox("What is not as it was in the file stands in \"" + protocol + "\".", Answer::Ok,
                kPlainbookTitle);
      ExpectBox("Import complete.", Answer::Ok, kPlainbookTitle);
      Click(Screen().Label12);
    });
    jet::Database kept = jet::Database::Open(backup, false);
    jet::Recordset parts = kept.OpenRecordset("SELECT * FROM I_Master");
    EXPECT_EQ(RowsText(parts, "inv_id"), before);
    EXPECT_EQ(stockroom.Rows("SELECT inv_id, pcenter, hu_qty, how_used, BarCodeScan FROM I_Master "
                             "ORDER BY name"),
              "p1|5|1|each|Null\nP2|6|1|each|Null\nP1|5|1|each|Null\n");
    EXPECT_EQ(stockroom.App().CurrentProfitCenter, 5) << "the first of the file";
    EXPECT_EQ(stockroom.MainScreen().pcenter.Text(), "East");
    EXPECT_EQ(stockroom.Rows("SELECT F_Date, pcenter FROM HI_Header"), "3/1/2005|5\n");
    EXPECT_EQ(stockroom.Rows("SELECT F_Date FROM [Historical Inventory]"), "3/1/2005\n");
  }
  EXPECT_NE(ReadFile(protocol).find("its index is not unique"), std::string::npos);
  EXPECT_THROW(theirs.Edit(), RunTimeError);
}

TEST_F(ImportTest, AFileOfOurOwnKindIsTakenAndAPasswordIsAskedFor) {
  const std::string file = stockroom.folder / "PBI_DATA.MDB",
                    locked = stockroom.folder / "locked MILLRACE.MDB";
  stockroom.App().CurrentDatabase.CopyTo(file);
  JetFileWriter writer(Version::Jet4, "secret");
  WriteMillrace(writer, {});
  WriteFile(locked, writer.Finish());
  InImport([&] {
    Browse(Screen().i_mrw, locked);
    ExpectWarnings();
    stockroom.desktop.ExpectInput(
        "The file is protected by a password.\n\nPassword of the database:", "secret",
        kMillraceTitle);
    ExpectBox(kMillraceEnd, Answer::Ok, kMillraceTitle);
    Click(Screen().Label12);
    EXPECT_EQ(stockroom.Rows("SELECT inv_id FROM I_Master"), "");
    Import(Screen().i_pbi, file, "Import complete.");
  });
  EXPECT_EQ(stockroom.Rows("SELECT inv_id FROM I_Master"), "old\n");
}

}  // namespace
}  // namespace kvi::test
