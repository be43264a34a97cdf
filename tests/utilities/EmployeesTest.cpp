#include "support/Story.h"
#include "utilities/KVI_EmployeeSetup.h"
#include "utilities/KVI_EmployeeSetupDetail.h"
#include "utilities/KVI_Utilities.h"

namespace kvi::test {
namespace {

constexpr const char* kDuplicate = "Duplicate employee code.  Please re-enter code.";
constexpr const char* kRemoval = "Are you sure you want to remove this employee?";

class EmployeesTest : public StoryTest {
 protected:
  EmployeesTest() {
    stockroom.Fill("EmployeeDB",
                   "E_Code | E_Name | E_SL | ReadInv | WriteInv | ReadHist\n"
                   "007 | Bo | 3 | 1 | 0 | 1\n 12 | Ines | 4 | 0 | 0 | 0");
  }

  KVI_EmployeeSetup& List() { return The<KVI_EmployeeSetup>(); }
  KVI_EmployeeSetupDetail& Detail() { return The<KVI_EmployeeSetupDetail>(); }
  std::string Stored(const std::string& fields = "E_Code, E_Name") {
    return stockroom.Rows("SELECT " + fields + " FROM EmployeeDB");
  }
  void InList(const Acts& user) {
    stockroom.InUtilities([&](auto& utilities) {
      stockroom.desktop.ExpectScreen("KVI_EmployeeSetup", [&] {
        user();
        Click(List().exit_lab);
      });
      Click(utilities.Command5);
    });
  }
  // The employee of a row, or a new one for row 0; the acts end with the leaving.
  void InDetail(int row, const Acts& user) {
    stockroom.desktop.ExpectScreen("KVI_EmployeeSetupDetail", user);
    if (row == 0)
      Click(List().dai);
    else
      EXPECT_TRUE(stockroom.user().DoubleClick(List().Spread1, row, 1));
    stockroom.desktop.AllCame();
  }
  void SaveWith(const std::string& code, const std::string& refused = "") {
    Type(Detail().E_Code, code);
    if (!refused.empty()) ExpectBox(refused);
    Click(Detail().save);
  }
};

TEST_F(EmployeesTest, ANewEmployeeNeedsANumberOfItsOwnAndAName) {
  InList([&] {
    InDetail(2, [&] { Click(Detail().exit_lab); });
    InDetail(0, [&] {
      EXPECT_EQ(Detail().E_Name.Text(), "");
      SaveWith("a1", "Employee code must be greater than zero");
      SaveWith("9", "Invalid employee name");
      Type(Detail().E_Name, "O'Mia");
      Type(Detail().E_Code, "123456");
      ExpectBox("Employee code can not exceed 5 characters");
      stockroom.user().Leave(Detail().E_Code);
      EXPECT_EQ(Detail().E_Code.Text(), "");
      SaveWith("012", kDuplicate);
      SaveWith("7a", kDuplicate);
      SaveWith("00033");
    });
    EXPECT_EQ(GridText(List().Spread1), "007|Bo\n12|Ines\n00033|O'Mia\n");
  });
}

TEST_F(EmployeesTest, RightsGoTogetherAndTheCodeKeepsItsNumber) {
  InList([&] {
    InDetail(1, [&] {
      auto& screen = Detail();
      EXPECT_TRUE(screen.ReadInv.Value && !screen.WriteInv.Value);
      stockroom.user().Choose(screen.SSTab1, 1);
      Click(screen.Label7);
      EXPECT_TRUE(screen.ReadPrint.Value && screen.WriteUtil.Value);
      stockroom.user().Tick(screen.ReadInv);
      EXPECT_FALSE(screen.WriteInv.Value);
      stockroom.user().Tick(screen.WriteInv);
      EXPECT_TRUE(screen.ReadInv.Value);
      stockroom.user().Tick(screen.WriteInv);
      EXPECT_TRUE(screen.ReadInv.Value);
      stockroom.user().Choose(screen.SSTab1, 0);
      SaveWith("8", "Employee record not found");
      SaveWith("12", kDuplicate);
      SaveWith("07");
    });
    InDetail(2, [&] {
      EXPECT_FALSE(Detail().ReadPrint.Value);
      Click(Detail().exit_lab);
    });
  });
  EXPECT_EQ(Stored("E_Code, E_SL, ReadInv, WriteInv, WritePSO, WriteUtil, ReadHist"),
            "07|3|True|False|True|True|True\n12|4|False|False|False|False|False\n");
}

TEST_F(EmployeesTest, OneIsRemovedByItsNumberAndTheBulkSaveTellsWhatItCannotTake) {
  InList([&] {
    ExpectBox(kRemoval, Answer::No, "Employee Setup");
    Click(List().remove);
    ExpectBox(kRemoval, Answer::Yes, "Employee Setup");
    Click(List().remove);
    EXPECT_EQ(GridText(List().Spread1), "12|Ines\n");
    stockroom.Fill("EmployeeDB", "E_Code | E_Name\n 5 | 44 Jo");
    InDetail(1, [&] { Click(Detail().exit_lab); });
    stockroom.Execute("DELETE * FROM EmployeeDB WHERE E_Name = 'Ines'");
    ExpectBox(
        "You have an item which has not been input correctly:\n\nCode: 5  Name: 44 Jo  Security "
        "Level: \n\nCorrect this and re-save!",
        Answer::Ok, "Employee Setup");
    List().save_changes();
    ExpectBox("Employee record not found");
    InDetail(2, [&] { Click(Detail().exit_lab); });
  });
  EXPECT_EQ(Stored("E_Code, E_Name, E_SL"), "1|0|0\n");
}

}  // namespace
}  // namespace kvi::test
