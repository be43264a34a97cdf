// A start on the database of the older program, and kvi-convert.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <set>

#include "sample/oldfiles/JetFileWriter.h"
#include "support/Story.h"

namespace kvi::test {
namespace {

namespace fs = std::filesystem;
using jetfile::ColumnType;
using jetfile::Fate;
using jetfile::JetFileWriter;
using jetfile::Version;

const std::string kQuestion =
    "KV_Inventory.mdb is a database of the older program and must be converted. The old file is "
    "kept as KV_Inventory_Jet.mdb. Convert it now?";

class ConvertAtOpeningTest : public StoryTest {
 protected:
  // What the older program left: parts, one of which names no unit, and a profit center.
  std::string OldFile(Version version = Version::Jet4, const std::string& password = "",
                      Fate fate = Fate::Stays) {
    JetFileWriter writer(version, password);
    writer.Begin({"I_Master",
                  {{"inv_id", ColumnType::Text, 15},
                   {"name"},
                   {"pcenter", ColumnType::Long},
                   {"hu_qty", ColumnType::Double},
                   {"notes", ColumnType::Memo}}});
    writer.Add({"100", "Bolt", 4, {}, std::string(5000, 'n')});
    writer.Add({"200", "Nut", 4, 2.5, "it's"}, fate);
    writer.Begin({"PCenter", {{"pcenter", ColumnType::Integer}, {"name"}}});
    writer.Add({4, "Annex"});
    return writer.Finish();
  }
  void Lay(const std::string& bytes) { WriteFile(stockroom.DatabaseFile(), bytes); }
  std::string Beside(const std::string& name) { return stockroom.folder / name; }
  std::string Files() {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(stockroom.folder.Path()))
      names.insert(entry.path().filename().string());
    for (const char* usual : {"KVI.INI", "TARNWK.INI", "KV_Inventory.mdb-journal", "backups"})
      names.erase(usual);
    std::string text;
    for (const std::string& name : names) text += name + "\n";
    return text;
  }
  // The start ends, and every byte is as before.
  void EndsUnchanged(const std::string& old) {
    EXPECT_FALSE(stockroom.Start());
    EXPECT_EQ(ReadFile(stockroom.DatabaseFile()), old);
    EXPECT_EQ(Files(), "KV_Inventory.mdb\n");
  }
};

TEST_F(ConvertAtOpeningTest, AnOldDatabaseIsConvertedAndKept) {
  for (const Version version : {Version::Jet3, Version::Jet4}) {
    const std::string old = OldFile(version);
    Lay(old);
    WriteFile(stockroom.DatabaseFile() + "-journal", "of another database");
    fs::remove(Beside("KV_Inventory_Jet.mdb"));
    ExpectBox(kQuestion, Answer::Yes);
    ExpectBox("KV_Inventory.mdb has been converted: 3 rows in 2 tables.");
    ASSERT_TRUE(stockroom.Start());
    EXPECT_EQ(ReadFile(Beside("KV_Inventory_Jet.mdb")), old);
    EXPECT_EQ(Files(), "KV_Inventory.mdb\nKV_Inventory_Jet.mdb\n");
    EXPECT_EQ(stockroom.MainScreen().pcenter.Text(), "Annex");
    EXPECT_EQ(stockroom.App().ItemSet.RecordCount(), 2);
    EXPECT_EQ(stockroom.Rows("SELECT inv_id, name, how_used, hu_qty, CorpInventoryItem FROM "
                             "I_Master ORDER BY name"),
              "100|Bolt|each|1|False\n200|Nut|each|2.5|False\n");
    EXPECT_EQ(stockroom.Rows("SELECT Ordinal FROM CW_Recipes WHERE Ordinal = 5"), "5\n");
    EXPECT_TRUE(stockroom.Exit());
  }
  ASSERT_TRUE(stockroom.Start()) << "and asks no more";
}

TEST_F(ConvertAtOpeningTest, NoLeavesEveryByteAsItWas) {
  const std::string old = OldFile(Version::Jet4, "secret");
  Lay(old);
  ExpectBox(kQuestion, Answer::No);
  EndsUnchanged(old);
  ExpectBox(kQuestion, Answer::Yes);
  stockroom.desktop.ExpectInput("KV_Inventory.mdb is protected by a password. Please enter it.",
                                "Secret", "Convert");
  stockroom.desktop.ExpectInput(
      "This is not the password of KV_Inventory.mdb. Please enter it again.", {}, "Convert");
  EndsUnchanged(old);
  WriteFile(Beside("kv_inventory.LDB"), "");
  ExpectBox(
      "WARNING - KV_Inventory.ldb stands beside the database: another desk may still be at work on "
      "it with the older program. What it saves from now on would be lost.\n\n" +
          kQuestion,
      Answer::No);
  EXPECT_FALSE(stockroom.Start());
}

TEST_F(ConvertAtOpeningTest, WhatIsMissingIsAskedAboutAndWrittenDown) {
  const std::string old = OldFile(Version::Jet4, "", Fate::MovedInACircle);
  Lay(old);
  WriteFile(Beside("KV_Inventory_Jet.mdb"), "of an earlier time");
  const std::string question =
      "KV_Inventory.mdb is a database of the older program and must be converted. The old file is "
      "kept as KV_Inventory_Jet2.mdb. Convert it now?";
  const std::string damaged =
      "Not all of KV_Inventory.mdb can be taken. This would be missing:\n\n"
      "Table I_Master: 1 of 2 rows could be read\n"
      "Table I_Master: page 8: a row was moved in a circle\n"
      "\nThe old file is kept whole. Convert what can be read?";
  ExpectBox(question, Answer::Yes);
  ExpectBox(damaged, Answer::No);
  EXPECT_FALSE(stockroom.Start());
  EXPECT_EQ(ReadFile(stockroom.DatabaseFile()), old);
  ExpectBox(question, Answer::Yes);
  ExpectBox(damaged, Answer::Yes);
  ExpectBox(
      "KV_Inventory.mdb has been converted: 2 rows in 2 tables.\n\n"
      "What is missing stands in KV_Inventory_Jet2.txt.");
  ASSERT_TRUE(stockroom.Start());
  EXPECT_EQ(Files(),
            "KV_Inventory.mdb\nKV_Inventory_Jet.mdb\nKV_Inventory_Jet2.mdb\n"
            "KV_Inventory_Jet2.txt\n");
  EXPECT_EQ(ReadFile(Beside("KV_Inventory_Jet.mdb")), "of an earlier time");
  EXPECT_EQ(ReadFile(Beside("KV_Inventory_Jet2.mdb")), old);
  EXPECT_EQ(ReadFile(Beside("KV_Inventory_Jet2.txt")),
            "KV_Inventory.mdb, converted to this program's own kind. The older one is "
            "KV_Inventory_Jet2.mdb.\n\nI_Master: 1 rows\nPCenter: 1 rows\n"
            "MISSING  Table I_Master: 1 of 2 rows could be read\n"
            "MISSING  Table I_Master: page 8: a row was moved in a circle\n");
}

TEST_F(ConvertAtOpeningTest, WhatCannotBeConvertedIsRefused) {
  const auto refused = [this](const std::string& bytes, const std::string& why) {
    Lay(bytes);
    ExpectBox("An error has occurred locating KV_Inventory.mdb. (" + why +
              ")\nKV Inventory must be shut down.");
    EndsUnchanged(bytes);
  };
  std::string newer = OldFile();
  newer[0x14] = 2;
  refused(newer, "3343-'" + stockroom.DatabaseFile() +
                     "' is a database of a newer kind than Jet 4. Save it in the format of 2000 or "
                     "2002-2003 with the program that made it.");
  refused(OldFile().substr(0, 9000),
          "3049-'" + stockroom.DatabaseFile() + "' is cut off: it has 2 pages.");
  JetFileWriter other(Version::Jet3);
  other.Begin({"Inventory", {{"i_num"}}});
  const std::string bytes = other.Finish();
  Lay(bytes);
  ExpectBox(kQuestion, Answer::Yes);
  ExpectBox(
      "KV_Inventory.mdb cannot be converted: it holds no inventory (there is no table I_Master). "
      "It was left as it is.");
  EndsUnchanged(bytes);
}

TEST_F(ConvertAtOpeningTest, ASecondDeskFindsTheFirstAtIt) {
  const std::string old = OldFile();
  Lay(old);
  ExpectBox(kQuestion, Answer::Yes);
  stockroom.desktop.Meanwhile([&] {
    TestStockroom second;
    WriteFile(second.folder / "TARNWK.INI",
              "[TARNWK]\nDatabasePath=" + stockroom.folder.Path().string() + "\n");
    second.desktop.ExpectBox(kQuestion, Answer::Yes);
    second.desktop.ExpectBox("KV_Inventory.mdb has been converted: 3 rows in 2 tables.");
    EXPECT_TRUE(second.Start());
  });
  EXPECT_TRUE(stockroom.Start()) << "on what the other desk made";
  EXPECT_EQ(ReadFile(Beside("KV_Inventory_Jet.mdb")), old);
  EXPECT_TRUE(stockroom.Exit());

  Lay(OldFile(Version::Jet4, "", Fate::MovedInACircle));
  fs::remove(Beside("KV_Inventory_Jet.mdb"));
  ExpectBox(kQuestion, Answer::Yes);
  ExpectBox(
      "Not all of KV_Inventory.mdb can be taken. This would be missing:\n\n"
      "Table I_Master: 1 of 2 rows could be read\n"
      "Table I_Master: page 8: a row was moved in a circle\n"
      "\nThe old file is kept whole. Convert what can be read?",
      Answer::No);
  stockroom.desktop.Meanwhile([&] {
    TestStockroom second;
    WriteFile(second.folder / "TARNWK.INI",
              "[TARNWK]\nDatabasePath=" + stockroom.folder.Path().string() + "\n");
    second.desktop.ExpectBox(kQuestion, Answer::Yes);
    second.desktop.ExpectBox(
        "Another desk is converting KV_Inventory.mdb at this moment. Please start the program "
        "again when it has finished.");
    EXPECT_FALSE(second.Start());
  });
  EXPECT_FALSE(stockroom.Start());
}

TEST_F(ConvertAtOpeningTest, AKillAtAnyMomentLeavesOneOfTheTwoWhole) {
  using Clock = std::chrono::steady_clock;
  constexpr int kKills = 16;
  const std::string old = OldFile();
  ExpectBox(kQuestion, Answer::Yes);
  ExpectBox("KV_Inventory.mdb has been converted: 3 rows in 2 tables.");
  // A desk in a process of its own, killed once so much time has gone by.
  const auto convert = [&](Clock::duration until) {
    const Clock::time_point begun = Clock::now();
    const pid_t desk = fork();
    if (desk == 0) {
      stockroom.Start();
      _exit(0);
    }
    while (Clock::now() - begun < until && waitpid(desk, nullptr, WNOHANG) == 0) {
    }
    kill(desk, SIGKILL);
    waitpid(desk, nullptr, 0);
    return Clock::now() - begun;
  };
  Lay(old);
  const Clock::duration whole = convert(std::chrono::minutes(5));
  for (int i = 0; i < kKills; ++i) {
    Lay(old);
    convert(whole * i / kKills);
    if (jet::IsJetFile(stockroom.DatabaseFile()))
      EXPECT_EQ(ReadFile(stockroom.DatabaseFile()), old) << i;
    else
      EXPECT_EQ(jet::Database::Open(stockroom.DatabaseFile(), false)
                    .OpenRecordset("SELECT Count(*) AS n FROM I_Master")
                    .Number("n"),
                2)
          << i;
    for (const char* rest : {"KV_Inventory.mdb", "KV_Inventory_Jet.mdb"}) fs::remove(Beside(rest));
  }
  Lay(old);
  ASSERT_TRUE(stockroom.Start()) << "whatever the killed ones left behind";
  EXPECT_EQ(Files(), "KV_Inventory.mdb\nKV_Inventory_Jet.mdb\n");
}

// The program's status, and what it says.
std::pair<int, std::string> Convert(const std::string& arguments) {
  FILE* pipe = popen((KVI_CONVERT " " + arguments + " 2>&1").c_str(), "r");
  std::string said;
  for (int letter = 0; (letter = std::fgetc(pipe)) != EOF;) said += static_cast<char>(letter);
  return {WEXITSTATUS(pclose(pipe)), said};
}

TEST_F(ConvertAtOpeningTest, ConvertProgramTellsWholeFromWithLossesAndRefused) {
  const std::string old = Beside("OLD.mdb"), made = Beside("NEW.mdb");
  WriteFile(old, OldFile(Version::Jet3, "secret"));
  const std::pair whole(0, old + " (Jet 3)\nI_Master: 2 rows\nPCenter: 1 rows\n");
  EXPECT_EQ(Convert(old + " " + made + " --check --password secret"), whole);
  EXPECT_FALSE(fs::exists(made));
  EXPECT_EQ(Convert(old + " " + made + " --password secret"), whole);
  EXPECT_TRUE(jet::Database::Open(made, false).OpenRecordset("SELECT * FROM Invoice").Eof());
  EXPECT_EQ(Convert(old + " " + made + " --password secret"),
            std::pair(1, std::string("kvi-convert: The database already exists.\n")));
  EXPECT_EQ(Convert(old + " --check"),
            std::pair(1, std::string("kvi-convert: The file is protected by a password.\n")));
  EXPECT_EQ(Convert(old).first, 2);
  WriteFile(old, OldFile(Version::Jet4, "", Fate::MovedInACircle));
  EXPECT_EQ(Convert(old + " --check"),
            std::pair(3, old + " (Jet 4)\nI_Master: 1 rows\nPCenter: 1 rows\n"
                               "MISSING  Table I_Master: 1 of 2 rows could be read\n"
                               "MISSING  Table I_Master: page 8: a row was moved in a circle\n"));
}

}  // namespace
}  // namespace kvi::test
