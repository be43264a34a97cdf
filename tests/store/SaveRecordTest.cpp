#include "store/SaveRecord.h"

#include "base/RunTimeError.h"
#include "store/DButils.h"
#include "support/Story.h"

namespace kvi::test {
namespace {

// One desk saves a part's level while another works on the same file.
class SaveRecordTest : public StoryTest {
 protected:
  SaveRecordTest() {
    stockroom.Fill("I_Master", "inv_id | qty_on_hand\n 1 | 5\n 2 | 7");
    EXPECT_TRUE(stockroom.Start());
    other = OtherDesk();
    theirs = other.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '1'");
    ours =
        stockroom.App().CurrentDatabase.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '1'");
  }
  SaveEnd SaveLevel(int level) {
    return SaveRecord(stockroom.desktop, stockroom.App().CurrentDatabase, [&] {
      ours.Edit();
      ours.Set("qty_on_hand", level);
      ours.Update();
    });
  }
  std::string Level() {
    return stockroom.Rows("SELECT qty_on_hand FROM I_Master WHERE inv_id='1'");
  }

  jet::Database other;
  jet::Recordset theirs, ours;
};

TEST_F(SaveRecordTest, DataChangedUnderTheEditIsOverwrittenSilently) {
  ours.Number("qty_on_hand");
  theirs.Edit();
  theirs.Set("qty_on_hand", 50);
  theirs.Update();
  EXPECT_EQ(SaveLevel(6), SaveEnd::Saved);
  EXPECT_EQ(Level(), "6\n");
}

TEST_F(SaveRecordTest, ALockThatLastsAsksAndYesTriesAgain) {
  theirs.Edit();
  ExpectLock(Answer::Yes);
  ExpectLock(Answer::Yes);
  stockroom.desktop.Meanwhile([&] { theirs.CancelUpdate(); });
  EXPECT_EQ(SaveLevel(6), SaveEnd::Saved);
  EXPECT_EQ(Level(), "6\n");
}

TEST_F(SaveRecordTest, NoLeavesTheSaveWithNothingWritten) {
  theirs.Edit();
  ExpectLock(Answer::No);
  EXPECT_EQ(SaveLevel(6), SaveEnd::GivenUp);
  theirs.CancelUpdate();
  EXPECT_EQ(Level(), "5\n");
}

TEST_F(SaveRecordTest, ALostConnectionShowsTheEnginesErrorsAndLeaves) {
  ExpectBox("3146 The server is gone.");
  EXPECT_EQ(SaveRecord(stockroom.desktop, stockroom.App().CurrentDatabase,
                       [] { throw RunTimeError(3146, "The server is gone."); }),
            SaveEnd::Failed);
}

TEST(IsLockErrorTest, KnowsTheNumbersOfALockAndLooksBehind3000) {
  for (int code :
       {3006, 3009, 3046, 3158, 3186, 3189, 3197, 3202, 3211, 3212, 3218, 3260, 3261, 3262})
    EXPECT_TRUE(IsLockError(code)) << code;
  EXPECT_FALSE(IsLockError(3022));
  EXPECT_TRUE(IsLockError(3000, 3260));
  EXPECT_FALSE(IsLockError(3000, 3022));
}

}  // namespace
}  // namespace kvi::test
