// Several desks on one file, in one process and in many.
#include <array>
#include <memory>

#include "base/ErrorOf.h"
#include "base/RunTimeError.h"
#include "jet/JetTestFile.h"

namespace kvi::jet {
namespace {

class SharingTest : public JetFile {
 protected:
  // A second desk on the same file.
  Database other_ = Database::Open(path_, false);
};

TEST_F(SharingTest, ARowIsSeenAsItStandsWhenItIsReached) {
  AddParts(10);
  Recordset set = db_.OpenRecordset("SELECT * FROM I_Master");
  EXPECT_EQ(set.Text("name"), "Part 1");
  other_.Execute("UPDATE I_Master SET name = 'New ' & inv_id");
  EXPECT_EQ(set.Text("name"), "Part 1");
  set.MoveNext();
  EXPECT_EQ(set.Text("name"), "New 2");
  // Our own writes too, through another set or a statement.
  db_.Execute("UPDATE I_Master SET name = 'Ours' WHERE inv_id = '3'");
  set.MoveNext();
  EXPECT_EQ(set.Text("name"), "Ours");
  Recordset second = db_.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '4'");
  second.Edit();
  second.Set("name", "Second");
  second.Update();
  set.MoveNext();
  EXPECT_EQ(set.Text("name"), "Second");
  other_.Execute("DELETE * FROM I_Master WHERE inv_id = '5'");
  set.MoveNext();
  EXPECT_EQ(ErrorOf([&] { (void)set["name"]; }), 3167);
  EXPECT_EQ(ErrorOf([&] { set.Edit(); }), 3167);
  set.MoveNext();
  EXPECT_EQ(set.Text("name"), "New 6");
}

TEST_F(SharingTest, AnEditOfAChangedRowTells3197AndGoesOnOnTheFreshRow) {
  AddParts(2);
  Recordset set = db_.OpenRecordset(kParts);
  EXPECT_EQ(set.Number("qty"), 10);
  other_.Execute("UPDATE I_Master SET qty = 50, name = 'Theirs' WHERE inv_id = '1'");
  EXPECT_EQ(ErrorOf([&] { set.Edit(); }), 3197);
  EXPECT_EQ(set.Number("qty"), 50);
  set.Set("qty", set.Number("qty") + 1);
  set.Update();
  EXPECT_EQ(Rows(kParts, "name qty"), "Part 2|10\nTheirs|51\n");
  EXPECT_EQ(ErrorOf([&] { set.Edit(); }), 0);  // told once
  set.CancelUpdate();
  // A row that was not read yet cannot have changed under anybody.
  set.MoveNext();
  other_.Execute("UPDATE I_Master SET qty = 60 WHERE inv_id = '2'");
  EXPECT_EQ(ErrorOf([&] { set.Edit(); }), 0);
  EXPECT_EQ(set.Number("qty"), 60);
}

TEST_F(SharingTest, AnUpdateThatChangesNothingIsNoChange) {
  AddParts(1);
  Recordset set = db_.OpenRecordset(kParts), theirs = other_.OpenRecordset(kParts);
  EXPECT_EQ(theirs.Number("qty") + set.Number("qty"), 20);
  set.Edit();
  for (const double level : {11, 10}) set.Set("qty", level);
  set.Update();
  EXPECT_EQ(ErrorOf([&] { theirs.Edit(); }), 0);
  theirs.CancelUpdate();
}

TEST_F(SharingTest, ANewRowNeverTakesADeletedRowsPlaceInAnothersSet) {
  AddParts(2);
  Recordset set = db_.OpenRecordset("SELECT * FROM I_Master");
  set.MoveLast();
  other_.Execute("DELETE * FROM I_Master WHERE inv_id = '2'");
  other_.Execute("INSERT INTO I_Master (inv_id, name) VALUES ('3', 'Another part')");
  EXPECT_EQ(ErrorOf([&] { set.Edit(); }), 3167);
}

TEST_F(SharingTest, AnEditHoldsTheLockAndALastingLockIs3260) {
  AddParts(2);
  Recordset mine = db_.OpenRecordset(kParts), theirs = other_.OpenRecordset(kParts);
  mine.Edit();
  EXPECT_EQ(theirs.Number("qty"), 10);  // reading goes on
  theirs.AddNew();
  theirs.Set("inv_id", "3");
  EXPECT_EQ(ErrorOf([&] { theirs.Update(); }), 3260);
  EXPECT_EQ(theirs.Text("inv_id"), "3");  // the buffer is kept
  mine.CancelUpdate();
  theirs.Update();
  EXPECT_EQ(Rows("SELECT * FROM I_Master", "inv_id"), "1\n2\n3\n");
}

TEST_F(SharingTest, AnUpdateThatCannotCommitHoldsNothingAndRunsAgain) {
  AddParts(2);
  Recordset set = db_.OpenRecordset(kParts);
  set.Edit();
  set.Set("qty", 11);
  {
    RawFile reader(path_);
    reader.Ask("BEGIN;SELECT * FROM I_Master");
    EXPECT_EQ(ErrorOf([&] { set.Update(); }), 3260);
    EXPECT_EQ(RawFile(path_).Ask("BEGIN IMMEDIATE;ROLLBACK;SELECT qty FROM I_Master"),
              "10.0\n10.0\n");
  }
  set.Update();
  EXPECT_EQ(Rows(kParts, "qty"), "11\n10\n");
}

TEST_F(SharingTest, WhileAPersonThinksNothingIsHeldAndTheLastWriterWins) {
  AddParts(1);
  Recordset set = db_.OpenRecordset(kParts);
  set.Edit();
  set.Set("qty", 11);
  db_.GiveBackLocks();
  EXPECT_EQ(other_.Execute("UPDATE I_Master SET qty = 50, name = 'Theirs'"), 1);
  set.Update();
  EXPECT_EQ(Rows(kParts, "name qty"), "Theirs|11\n");
  EXPECT_EQ(set.Text("name"), "Theirs");
  set.Edit();
  set.Set("qty", 12);
  db_.GiveBackLocks();
  other_.Execute("DELETE * FROM I_Master");
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), 3167);
}

TEST_F(SharingTest, ReadsTogetherSeeOneStateAndEndBeforeAWriteOrABox) {
  AddParts(2);
  Recordset set = db_.OpenRecordset(kParts);
  const auto levelIn = [&](auto&& end) {
    const ReadTogether reads(db_);
    EXPECT_EQ(Rows(kParts, "name"), "Part 1\nPart 2\n");
    EXPECT_EQ(RawFile(path_).Ask("UPDATE I_Master SET qty = qty + 1"), "database is locked");
    end();
    EXPECT_EQ(RawFile(path_).Ask("UPDATE I_Master SET qty = qty + 1"), "");
    set.MoveFirst();
    return set.Number("qty");
  };
  EXPECT_EQ(levelIn([&] { db_.GiveBackLocks(); }), 11);
  EXPECT_EQ(levelIn([&] { db_.Execute("UPDATE I_Master SET qty = 20"); }), 21);
  {
    const ReadTogether reads(db_);
    set.MoveFirst();
    EXPECT_EQ(set.Number("qty"), 21);
  }
  RawFile(path_).Ask("UPDATE I_Master SET qty = 30");
  const ReadTogether reads(db_);
  set.MoveFirst();
  EXPECT_EQ(set.Number("qty"), 30);
}

TEST_F(SharingTest, ARowWrittenDuringAnEditIsCommittedAndTheEditTakesItsLockAgain) {
  AddParts(1);
  Recordset edited = db_.OpenRecordset(kParts), added = db_.OpenRecordset(kParts);
  edited.Edit();
  edited.Set("name", "Ours");
  added.AddNew();
  added.Set("inv_id", "2");
  added.Update();
  EXPECT_EQ(other_.Execute("UPDATE I_Master SET qty = 100 WHERE inv_id = '1'"), 1);
  edited.Update();
  EXPECT_EQ(Rows(kParts, "name qty"), "Null|Null\nOurs|100\n");
  other_.Execute("UPDATE I_Master SET qty = 200 WHERE inv_id = '1'");
  EXPECT_EQ(ErrorOf([&] { edited.Edit(); }), 3197) << "no change of theirs goes unnoticed";
  edited.CancelUpdate();
}

// Whoever waits is asked with nothing held, and what they write adds to what the others left.
TEST_F(SharingTest, ALockThatLastsAsksAndTheStatementRunsAgain) {
  AddParts(2);
  const auto reader = std::make_unique<RawFile>(path_);
  const auto asks = [&](auto&& write) {
    reader->Ask("BEGIN;SELECT * FROM I_Master");  // no commit passes it
    int questions = 0;
    db_.OnLocked([&] {
      reader->Ask("ROLLBACK");
      EXPECT_EQ(RawFile(path_).Ask("UPDATE I_Master SET qty = 100 WHERE inv_id = '1'"), "");
      return ++questions == 1;
    });
    write();
    db_.OnLocked({});
    return questions;
  };
  Recordset set = db_.OpenRecordset(kParts);
  const auto add = [&] {
    set.MoveFirst();
    set.Edit();
    set.Set("qty", set.Number("qty") + 1);
    set.Update();
  };
  EXPECT_EQ(asks([&] { db_.WriteAtOnce(add); }), 1);
  EXPECT_EQ(Rows(kParts, "qty"), "101\n10\n");
  EXPECT_EQ(asks([&] { db_.Execute("UPDATE I_Master SET qty = qty + 1"); }), 1);
  EXPECT_EQ(Rows(kParts, "qty"), "101\n11\n");
  EXPECT_EQ(asks(add), 1);  // computed before the lock was met: the last writer wins
  EXPECT_EQ(Rows(kParts, "qty"), "102\n11\n");

  RawFile writer(path_);
  writer.Ask("PRAGMA cache_size=1;BEGIN EXCLUSIVE");
  db_.OnLocked([] { return false; });
  EXPECT_THROW(db_.OpenRecordset("SELECT * FROM I_Master WHERE qty = 3"), NotWaiting);
  EXPECT_THROW(db_.WriteAtOnce(add), NotWaiting);
}

TEST_F(SharingTest, ABatchThatCannotCommitHoldsNothingAndTells) {
  AddParts(2);
  RawFile reader(path_);
  reader.Ask("BEGIN;SELECT * FROM I_Master");
  Recordset set = db_.OpenRecordset(kParts);
  const auto write = [&] {
    set.Edit();
    set.Set("qty", 1);
    set.Update();
  };
  {
    WriteBatch batch(db_);
    write();
    EXPECT_EQ(ErrorOf([&] { batch.Finish(); }), 3260);
    EXPECT_EQ(RawFile(path_).Ask("BEGIN IMMEDIATE;SELECT qty FROM I_Master"), "10.0\n10.0\n");
  }
  {
    WriteBatch batch(db_);
    write();
    db_.GiveBackLocks();
    EXPECT_EQ(RawFile(path_).Ask("BEGIN IMMEDIATE"), "");
    EXPECT_EQ(ErrorOf(write), 3260) << "the batch cannot go on as if it had written";
  }
  reader.Ask("ROLLBACK");
  // A box amid what belongs together leaves nothing of it.
  EXPECT_EQ(ErrorOf([&] {
              db_.WriteAtOnce([&] {
                write();
                db_.GiveBackLocks();
              });
            }),
            3034);
  EXPECT_EQ(ErrorOf([&] {
              const WriteBatch batch(db_);
              db_.WriteAtOnce(write);
            }),
            5);
  EXPECT_EQ(Rows(kParts, "qty"), "10\n10\n");
  write();
  EXPECT_EQ(RowsOf(other_, kParts, "qty"), "1\n10\n");
}

TEST_F(SharingTest, ABatchKeepsWhatWasWrittenBeforeItFailed) {
  AddParts(3);
  Recordset set = db_.OpenRecordset(kParts);
  const auto pass = [&] {
    WriteBatch batch(db_);
    for (const char* number : {"x", "y", "3"}) {
      set.Edit();
      set.Set("inv_id", number);
      set.Update();
      set.MoveNext();
    }
  };
  EXPECT_EQ(ErrorOf(pass), 0);
  set.MoveFirst();
  const auto failingPass = [&] {
    WriteBatch batch(db_);
    WriteBatch inner(db_);
    set.Edit();
    set.Set("inv_id", "z");
    set.Update();
    inner.Finish();
    EXPECT_EQ(RowsOf(other_, kParts, "inv_id"), "x\ny\n3\n");  // the outer one's group
    set.Edit();
    set.Set("inv_id", "y");
    set.Update();
  };
  EXPECT_EQ(ErrorOf(failingPass), 3022);
  EXPECT_EQ(RowsOf(other_, kParts, "inv_id"), "z\ny\n3\n");
  EXPECT_EQ(other_.Execute("DELETE * FROM I_Master"), 3);
}

TEST_F(SharingTest, ABatchGivesWayWhenAPersonIsAsked) {
  AddParts(2);
  Recordset set = db_.OpenRecordset(kParts);
  WriteBatch batch(db_);
  set.Edit();
  set.Set("qty", 1);
  set.Update();
  set.MoveNext();
  set.Edit();
  set.Set("qty", 2);
  db_.GiveBackLocks();
  EXPECT_EQ(RowsOf(other_, kParts, "qty"), "1\n10\n");
  EXPECT_EQ(other_.Execute("UPDATE I_Master SET name = 'x'"), 2);
  set.Update();
  batch.Finish();
  EXPECT_EQ(RowsOf(other_, kParts, "name qty"), "x|1\nx|2\n");
}

TEST_F(SharingTest, AnEditBegunBeforeABatchIsWrittenWithIt) {
  AddParts(1);
  Recordset set = db_.OpenRecordset(kParts);
  set.Edit();
  set.Set("qty", 1);
  {
    WriteBatch batch(db_);
    set.Update();
  }
  EXPECT_EQ(RowsOf(other_, kParts, "qty"), "1\n");
}

TEST_F(SharingTest, ALongBatchLetsOthersInBetweenItsGroups) {
  AddParts(500);
  OtherProcess bulk([&](const OtherProcess::Report& report) {
    Database database = Database::Open(path_, false);
    WriteBatch batch(database);
    for (int pass = 0;; ++pass) {
      Recordset set = database.OpenRecordset("SELECT * FROM I_Master");
      for (; !set.Eof(); set.MoveNext()) {
        set.Edit();
        set.Set("qty", pass);
        set.Update();
        if (pass == 0 && set.Text("inv_id") == "100") report("on its way");
      }
    }
  });
  EXPECT_EQ(bulk.Line(), "on its way");
  Recordset set = db_.OpenRecordset(kParts);
  for (int save = 0; save < 5; ++save) {
    EXPECT_EQ(ErrorOf([&] { db_.Execute("UPDATE I_Master SET notes = 'saved'"); }), 0);
    const int error = ErrorOf([&] { set.Edit(); });
    EXPECT_TRUE(error == 0 || error == 3197) << error;
    set.Set("name", "saved");
    EXPECT_EQ(ErrorOf([&] { set.Update(); }), 0);
  }
  bulk.Kill();
}

TEST_F(SharingTest, AFileHeldExclusivelyOpensForNobodyElse) {
  db_.Close();
  other_.Close();
  const Database exclusive = Database::Open(path_, true);
  OtherProcess desk([&](const OtherProcess::Report&) { Database::Open(path_, false); });
  EXPECT_EQ(desk.Line().substr(0, 10), "Error 3045");
}

// Adds 1 to the level of each part in turn, as a save does: whoever finds the row changed goes on,
// whoever finds it locked tries again.
void AddToLevels(const std::string& path, int rounds) {
  Database database = Database::Open(path, false);
  Recordset set = database.OpenRecordset("SELECT * FROM I_Master WHERE Val(inv_id) <= 3");
  const auto until = [](const std::function<void()>& statement) {
    int error = 0;
    do error = ErrorOf(statement);
    while (error == 3260);
    if (error != 0 && error != 3197) throw RunTimeError(error);
  };
  for (int round = 0; round < rounds; ++round) {
    if (set.Eof()) set.MoveFirst();
    until([&] { set.Edit(); });
    set.Set("qty", set.Number("qty") + 1);
    until([&] { set.Update(); });
    set.MoveNext();
  }
}

void AddToAll(const std::string& path, const std::string& notes) {
  Database database = Database::Open(path, false);
  WriteBatch batch(database);
  Recordset set = database.OpenRecordset("SELECT * FROM I_Master WHERE Val(inv_id) > 3");
  for (; !set.Eof(); set.MoveNext()) {
    set.Edit();
    set.Set("notes", notes);
    set.Update();
  }
  batch.Finish();
}

TEST_F(SharingTest, FourDesksBesideABulkPassLoseNothing) {
  constexpr int kRounds = 60, kPartCount = 4000;
  AddParts(kPartCount);
  db_.Close();
  {
    std::array<std::unique_ptr<OtherProcess>, 4> desks;
    for (auto& desk : desks)
      desk = std::make_unique<OtherProcess>(
          [&](const OtherProcess::Report&) { AddToLevels(path_, kRounds); });
    OtherProcess bulk([&](const OtherProcess::Report&) { AddToAll(path_, "checked"); });
    for (const auto& desk : desks) EXPECT_EQ(desk->AllLines(), "");
    EXPECT_EQ(bulk.AllLines(), "");
  }
  EXPECT_EQ(RowsOf(other_, "SELECT sum(qty) FROM I_Master WHERE Val(inv_id) <= 3", ""),
            std::to_string(3 * 10 + 4 * kRounds) + "\n");
  EXPECT_EQ(RowsOf(other_, "SELECT count(*) FROM I_Master WHERE notes = 'checked'", ""),
            std::to_string(kPartCount - 3) + "\n");
}

}  // namespace
}  // namespace kvi::jet
