#include <gtest/gtest.h>

#include "jet/JetTestFile.h"
#include "jet/Server.h"
#include "support/ServerDatabase.h"

namespace kvi::jet {
namespace {

TEST(ServerMoveTest, EveryCellIsTheSameAfterTheWayThereAndBack) {
  if (test::TestServer().empty()) GTEST_SKIP() << "no test server";
  const test::TemporaryFolder folder;
  const test::ServerDatabase server;
  const std::string from = folder / "from.mdb", served = folder / "served.mdb",
                    back = folder / "back.mdb";
  const Value cells[][5] = {
      {"tab\tline\nback\\slash\r", 0.07429999999999999, Date{2026, 3, 9, 14, 5, 6}, true, "\\N"},
      {"Öl 😀 'quoted' \"twice\"", 1e300, Date{100, 1, 1}, false, std::string(70000, 'x')},
      {"", -2.5e-310, Date{9999, 12, 31}, true, ""},
      {Value(), Value(), Value(), false, Value()}};
  const char* fields[] = {"name", "qty", "bought", "corp", "notes"};
  {
    Database file = Database::Create(from, TestTables());
    Recordset parts = file.OpenRecordset("SELECT * FROM I_Master");
    for (const auto& row : cells) {
      parts.AddNew();
      for (std::size_t i = 0; i < std::size(fields); ++i) parts.Set(fields[i], row[i]);
      parts.Update();
    }
    parts.MoveFirst();
    parts.Delete();  // its number does not come back
    file.Execute("INSERT INTO I_Master(name) VALUES('later')");
  }
  test::WriteFile(served, std::string(kServerFileMark) + "\n" + server.Conninfo() + "\n");
  Database::Open(served, true).ReplaceContentWith(from);
  Database::Open(served, true).CopyTo(back);
  const std::string every = "SELECT * FROM I_Master ORDER BY _rid";
  for (const std::string sql :
       {"SELECT count(*),max(_rid) FROM I_Master", "SELECT sql FROM sqlite_master"})
    EXPECT_EQ(RawFile(back).Ask(sql), RawFile(from).Ask(sql));
  Database there = Database::Open(from, false), here = Database::Open(back, false);
  Recordset expected = there.OpenRecordset(every), got = here.OpenRecordset(every);
  for (; !expected.Eof(); expected.MoveNext(), got.MoveNext())
    for (const char* field : fields) EXPECT_EQ(got[field], expected[field]) << field;
  EXPECT_TRUE(got.Eof());
}

}  // namespace
}  // namespace kvi::jet
