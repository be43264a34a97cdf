// What is done to a file as a whole: copied, looked through, and given another content.
#include <sys/resource.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <thread>

#include "base/ErrorOf.h"
#include "jet/JetTestFile.h"

namespace kvi::jet {
namespace {

namespace fs = std::filesystem;
using Report = OtherProcess::Report;

void LimitFiles(std::uintmax_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_FSIZE, &limit);
}

class WholeFileTest : public JetFile {
 protected:
  // Another file, of one table of ours and one of its own: parts "1" to `count`, named by `letter`.
  std::string OtherFile(const std::string& name, int count, char letter) {
    auto tables = TestTables();
    tables.back() = {"Extra", {{"word"}}, {{{"word"}, true}}};
    Database other = Database::Create(folder_ / name, tables);
    WriteBatch batch(other);
    Recordset parts = other.OpenRecordset("SELECT * FROM I_Master");
    for (int number = 1; number <= count; ++number) {
      parts.AddNew();
      parts.Set("inv_id", number);
      parts.Set("name", std::string(200, letter));
      parts.Update();
    }
    other.Execute("INSERT INTO Extra (word) VALUES ('" + std::string(1, letter) + "')");
    batch.Finish();
    return folder_ / name;
  }
  int Files() const {
    return static_cast<int>(std::distance(fs::directory_iterator(folder_.Path()), {}));
  }
};

TEST_F(WholeFileTest, ACopyIsTheFileAndNeverTakesTheNameOfAnother) {
  AddParts(3000);
  const std::string copy = folder_ / "a%20?#copy.mdb";
  db_.CopyTo(copy);
  EXPECT_EQ(test::ReadFile(copy), test::ReadFile(path_));
  db_.Execute("UPDATE I_Master SET name = 'later'");
  EXPECT_EQ(ErrorOf([&] { db_.CopyTo(copy); }), 3204);
  EXPECT_EQ(ErrorOf([&] { db_.CopyTo(folder_ / "no/where.mdb"); }), 3051);
  OtherProcess full([&](const Report& report) {
    Database database = Database::Open(path_, false);
    LimitFiles(100000);
    report(std::to_string(ErrorOf([&] { database.CopyTo(folder_ / "full.mdb"); })));
  });
  EXPECT_EQ(full.AllLines(), "3183\n");
  EXPECT_EQ(Files(), 3) << "the file, its journal and one copy";
  db_.ReplaceContentWith(copy);
  EXPECT_EQ(Rows("SELECT * FROM I_Master WHERE inv_id = '7'", "name"), "Part 7\n");
}

TEST_F(WholeFileTest, TheOtherContentComesWholeAndNoRowIsTheOneReadBefore) {
  AddParts(300);
  const std::string other = OtherFile("other.mdb", 200, 'b'), before = test::ReadFile(other);
  Database desk = Database::Open(path_, false);
  Recordset read = desk.OpenRecordset(kParts), walked = desk.OpenRecordset(kParts),
            edited = desk.OpenRecordset(kParts), found = desk.OpenRecordset(kParts),
            ours = db_.OpenRecordset(kParts);
  EXPECT_EQ(read.Text("name"), "Part 1");
  edited.Edit();
  edited.Set("name", "mine");
  desk.GiveBackLocks();  // a box stands while the other desk restores
  db_.ReplaceContentWith(other);
  EXPECT_EQ(test::ReadFile(other), before);
  for (const auto& act : std::initializer_list<std::function<void()>>{
           [&] { read.Edit(); }, [&] { read.Delete(); }, [&] { edited.Update(); },
           [&] { found.FindFirst("inv_id = '7'"); },
           [&] {
             walked.MoveLast();
             walked.Text("name");
           },
           [&] { ours.Edit(); }})
    EXPECT_EQ(ErrorOf(act), 3167);
  desk.OnLocked([] { return true; });  // as within a save, which writes over what others left
  EXPECT_EQ(ErrorOf([&] { read.Edit(); }), 3167);
  for (Database* database : {&desk, &db_}) {
    EXPECT_EQ(RowsOf(*database, "SELECT * FROM Extra", "word"), "b\n");
    EXPECT_EQ(database->OpenRecordset(kParts).RecordCount(), 200);
    EXPECT_EQ(RowsOf(*database, "SELECT * FROM I_Master WHERE Trim(inv_id) = '7'", "name"),
              std::string(200, 'b') + "\n");
    EXPECT_EQ(ErrorOf([&] { database->OpenRecordset("SELECT * FROM [Historical Inventory]"); }),
              3078);
  }
  Recordset fresh = desk.OpenRecordset(kParts);
  fresh.Edit();
  fresh.Set("qty", 5);
  fresh.Update();
  db_.Check();
}

TEST_F(WholeFileTest, WhatFailsLeavesTheOldContent) {
  AddParts(2000);
  const std::string other = OtherFile("other.mdb", 3000, 'b');
  std::string damaged = test::ReadFile(other);
  std::mt19937 chance(5);
  for (std::size_t at = damaged.size() / 2; at < damaged.size() * 3 / 4; ++at)
    damaged[at] = static_cast<char>(chance());
  const std::string bad = folder_ / "bad.mdb";
  test::WriteFile(bad, damaged);
  EXPECT_EQ(ErrorOf([&] { Database::Open(bad, false).Check(); }), 3343);
  EXPECT_EQ(ErrorOf([&] { db_.ReplaceContentWith(bad); }), 3343);
  EXPECT_EQ(ErrorOf([&] { db_.ReplaceContentWith(path_); }), 3045);
  OtherProcess full([&](const Report& report) {
    Database database = Database::Open(path_, false);
    LimitFiles(fs::file_size(path_) + 100000);
    report(std::to_string(ErrorOf([&] { database.ReplaceContentWith(other); })));
  });
  EXPECT_EQ(full.AllLines(), "3183\n");
  OtherProcess holder([&](const Report& report) {
    Database database = Database::Open(path_, false);
    Recordset set = database.OpenRecordset(kParts);
    set.Edit();
    report("held");
    std::this_thread::sleep_for(std::chrono::seconds(60));
  });
  holder.Line();
  EXPECT_EQ(ErrorOf([&] { db_.ReplaceContentWith(other); }), 3260);
  bool asked = false;
  db_.OnLocked([&] {
    holder.Kill();
    return asked = true;
  });
  EXPECT_EQ(db_.OpenRecordset(kParts).RecordCount(), 2000);
  db_.ReplaceContentWith(other);
  EXPECT_TRUE(asked);
  EXPECT_EQ(db_.OpenRecordset(kParts).RecordCount(), 3000);
}

TEST_F(WholeFileTest, AKillAtAnyMomentLeavesTheOldContentOrTheNewAndDesksAtWorkGoOn) {
  const std::string a = OtherFile("a.mdb", 400, 'a'), b = OtherFile("b.mdb", 500, 'b');
  db_.ReplaceContentWith(a);
  // Desks that read and save meanwhile: what they see is of one content, and a row that they hold
  // is saved or gone.
  const auto work = [&](const Report& report) {
    Database database = Database::Open(path_, false);
    database.OnLocked([] { return true; });
    for (;;) {
      Recordset parts = database.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '7'");
      const int error = ErrorOf([&] {
        parts.Edit();
        parts.Set("qty", parts.Number("qty") + 1);
        parts.Update();
      });
      if (error != 0 && error != 3167) report("saving: " + std::to_string(error));
      const ReadTogether reads(database);
      const std::string word = RowsOf(database, "SELECT * FROM Extra", "word");
      const int count = database.OpenRecordset(kParts).RecordCount();
      if (count != (word == "a\n" ? 400 : 500)) report("between: " + word);
    }
  };
  OtherProcess desks[] = {OtherProcess(work), OtherProcess(work), OtherProcess(work)};
  std::mt19937 chance(20260309);
  for (int kill = 0; kill < 20; ++kill) {
    SCOPED_TRACE(kill);
    OtherProcess restorer([&](const Report& report) {
      Database database = Database::Open(path_, false);
      database.OnLocked([] { return true; });
      for (;;) {
        database.ReplaceContentWith(b);
        database.ReplaceContentWith(a);
        report("round");
      }
    });
    EXPECT_EQ(restorer.Line(), "round");
    const auto moment =
        std::chrono::steady_clock::now() + std::chrono::microseconds(chance() % 90000);
    while (std::chrono::steady_clock::now() < moment) {
    }
    restorer.Kill();
    restorer.AllLines();
    Database database = Database::Open(path_, false);
    const std::string word = RowsOf(database, "SELECT * FROM Extra", "word");
    EXPECT_EQ(database.OpenRecordset(kParts).RecordCount(), word == "a\n" ? 400 : 500);
    EXPECT_EQ(ErrorOf([&] { database.Check(); }), 0);
  }
  for (OtherProcess& desk : desks) {
    desk.Kill();
    EXPECT_EQ(desk.AllLines(), "");
  }
}

}  // namespace
}  // namespace kvi::jet
