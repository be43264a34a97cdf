// What an older program's file becomes.
#include <filesystem>

#include "base/ErrorOf.h"
#include "jet/JetTestFile.h"
#include "sample/oldfiles/JetFileWriter.h"
#include "support/TableText.h"

namespace kvi::jet {
namespace {

using jetfile::ColumnType;
using jetfile::JetFileWriter;
using jetfile::Version;

class ConversionTest : public JetFile, public ::testing::WithParamInterface<Version> {
 protected:
  std::string Write(JetFileWriter& writer) {
    const std::string path = folder_ / "OLD.MDB";
    test::WriteFile(path, writer.Finish());
    return path;
  }
  // An inventory as the older program kept it, with two numbers that differ in their case.
  static void AddInventory(JetFileWriter& writer) {
    writer.Begin({"i_master",
                  {{"INV_ID", ColumnType::Text, 15},
                   {"Name", ColumnType::Text, 50},
                   {"pcenter", ColumnType::Long},
                   {"bought", ColumnType::Date},
                   {"Cost", ColumnType::Currency},
                   {"Seal", ColumnType::Ole}},
                  {{"key", {"INV_ID"}, true}, {"names", {"Name"}, true}}});
    writer.Add({"A1", "Bolt", 70000, Date{2003, 4, 5, 6, 7, 8}, 1.1});
    writer.Add({"a1", "Nut", 4, {}, {}, "picture"});
    writer.Add({"B2", {}, {}, {}, {}});
    writer.Begin({"Other", {{"desc", ColumnType::Memo}, {"live", ColumnType::Boolean}}});
    writer.Add({std::string(30000, 'm'), true});
  }
  static std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
  }
};

TEST_P(ConversionTest, AnInventoryKeepsWhatItHasAndGetsWhatItLacks) {
  JetFileWriter writer(GetParam());
  AddInventory(writer);
  writer.AddLinked("Vendors", "C:\\V.MDB", "V");
  writer.AddQuery("List");
  std::string told;
  const Conversion done = ConvertOldFile({Write(writer), "", TestTables(),
                                          [&](const std::string& table, int rows, int total) {
                                            if (rows == total)
                                              told += table + " " + std::to_string(total) + "\n";
                                          }},
                                         folder_ / "NEW.MDB");
  EXPECT_EQ(Lines(done.AllLosses()),
            "Vendors is in another file: C:\\V.MDB\n"
            "Table i_master: Seal: 1 pictures or other binary values\n");
  EXPECT_EQ(Lines(done.Notes),
            "i_master: rows share one key (inv_id): A1; its index is not unique\n"
            "List is a query and was not taken\n");
  EXPECT_EQ(told, "i_master 3\nOther 1\n");
  Database made = Database::Open(folder_ / "NEW.MDB", false);
  EXPECT_EQ(RowsOf(made, "SELECT * FROM I_Master WHERE Trim(inv_id) >= 'A1' ORDER BY name",
                   "inv_id name pcenter bought cost qty corp"),
            "B2|Null|Null|Null|Null|Null|False\nA1|Bolt|70000|4/5/2003 6:07:08 AM|1.1|Null|False\n"
            "a1|Nut|4|Null|Null|Null|False\n");
  EXPECT_EQ(made.OpenRecordset("SELECT * FROM Other WHERE live = True").Text("desc").size(),
            30000u);
  EXPECT_TRUE(made.OpenRecordset("SELECT * FROM [Historical Inventory]").Eof());
  Recordset parts = made.OpenRecordset(kParts);
  parts.AddNew();
  parts.Set("name", "bolt");
  EXPECT_EQ(ErrorOf([&] { parts.Update(); }), 3022);
}

TEST_P(ConversionTest, AFileThatGrowsWhileItIsReadGivesNothing) {
  JetFileWriter writer(GetParam());
  AddInventory(writer);
  const std::string path = Write(writer);
  const auto grow = [&](const std::string&, int, int) {
    test::WriteFile(path, test::ReadFile(path) + "more");
  };
  EXPECT_EQ(ErrorOf([&] { ConvertOldFile({path, "", {}, grow}, folder_ / "NEW.MDB"); }), 3051);
  for (const char* name : {"NEW.MDB", "NEW.MDB.new"})
    EXPECT_FALSE(std::filesystem::exists(folder_ / name)) << name;
}

TEST_P(ConversionTest, AForeignFileIsReadByStatementsAndNeverWritten) {
  JetFileWriter writer(GetParam(), "secret");
  AddInventory(writer);
  writer.Begin({"Half", {{"a"}}});
  writer.Add({"x"}, jetfile::Fate::MovedInACircle);
  const std::string path = Write(writer), before = test::ReadFile(path);
  EXPECT_EQ(ErrorOf([&] { Database::OpenForeign(path); }), 3031);
  ForeignDatabase foreign = Database::OpenForeign(path, "secret");
  EXPECT_EQ(RowsOf(foreign.Content, "SELECT Name FROM I_MASTER WHERE inv_id = 'b2';", "name"),
            "Null\n");
  EXPECT_EQ(RowsOf(foreign.Content, "SELECT desc FROM Other", "desc").size(), 30001u);
  EXPECT_EQ(ErrorOf([&] { foreign.Content.OpenRecordset("SELECT * FROM Half"); }), 3078);
  EXPECT_EQ(ErrorOf([&] { foreign.Content.Execute("DELETE * FROM Other"); }), 3027);
  EXPECT_EQ(test::ReadFile(path), before);
}

TEST_F(JetFile, AForeignFileOfOurOwnKindIsAsItWas) {
  AddParts(3);
  ForeignDatabase foreign = Database::OpenForeign(path_);
  db_.Execute("DELETE * FROM I_Master");
  EXPECT_EQ(RowsOf(foreign.Content, kParts, "inv_id"), "1\n2\n3\n");
  EXPECT_EQ(ErrorOf([&] { foreign.Content.Execute("DELETE * FROM I_Master"); }), 3027);
  test::WriteFile(folder_ / "MILLRACE.MDB", "inv_id,name\n");
  for (const auto& [name, error] :
       {std::pair{"MILLRACE.MDB", 3343}, {"NONE.MDB", 3024}, {"", 3051}})
    EXPECT_EQ(ErrorOf([&, file = folder_ / name] { Database::OpenForeign(file); }), error) << name;
}

INSTANTIATE_TEST_SUITE_P(Versions, ConversionTest, ::testing::Values(Version::Jet3, Version::Jet4));

}  // namespace
}  // namespace kvi::jet
