#include "reports/ReportStory.h"

namespace kvi::test {
namespace {

using TableReportsTest = ReportStory;

TEST_F(TableReportsTest, CountSheetsAskForTheLevelsAndShowThemInTheirUnits) {
  ASSERT_TRUE(stockroom.Start());
  AtReports([&] {
    ExpectLevels(Answer::Yes);
    Print(Screen().r3);
    EXPECT_EQ(Header(1),
              "0.30 Harbour Works|7.00 Page: 1\n"
              "0.30 Count Sheet\n"
              "0.30 Date Printed: 3/9/2026\n"
              "0.30 Sorted by Name\n"
              "6.20 Re-|6.50 Qty On\n"
              "0.30 Name|1.50 Inv. ID#|2.41 Category|3.20 Location|4.00 Description|5.40 How Inv."
              "|6.07 Order|6.63 Hand|7.00 Physical Count\n");
    EXPECT_EQ(Rows(1),
              "0.30 Bolt of thirty letters|1.40 1|2.41 Iron|3.20 Bin 1|4.00 short|5.40 box|6.07 "
              "36.00|6.57 24.00|6.90     ___________\n"
              "0.30 Nut|1.40 2|2.41 IRON|3.20 Bin 2|5.40 bag|6.13 0.00|6.63 0.00|6.90     "
              "___________\n"
              "0.30 Tape|1.40 3|3.20 Bin 0|5.40 roll|6.13 1.00|6.63 9.00|6.90     ___________\n");
    EXPECT_NE(Page(1).find("0.30 1.30 8 into 1.05 | Bolt"), std::string::npos) << Page(1);
    stockroom.user().Choose(Screen().sort_id);
    ExpectLevels(Answer::No);
    Print(Screen().r3);
    EXPECT_EQ(Header(1).find("Sorted"), std::string::npos);
    EXPECT_EQ(Header(1).find("Qty On"), std::string::npos);
    EXPECT_NE(Rows(1).find("6.07 36.00|6.90     ___________\n"), std::string::npos) << Rows(1);
    stockroom.user().Choose(Screen().sort_loc);
    ExpectLevels(Answer::Yes);
    Print(Screen().r4);
    EXPECT_EQ(Rows(1).substr(0, Rows(1).find("0.30 Bolt")),
              "0.30 Tape|1.70 3|3.40 Bin 0|5.20 roll|6.13 1.00|6.63 9.00|6.90     ___________\n"
              "5.20 roll|6.13 1.00|6.63 9.00|6.90     ___________\n");
    EXPECT_NE(Rows(1).find("5.20 case|6.13 3.00|6.63 2.00|6.90     ___________\n"
                           "0.30 short|5.20 box|6.07 36.00|6.57 24.00|6.90     ___________\n"),
              std::string::npos);
    ExpectLevels(Answer::No);
    Print(Screen().r15);
    EXPECT_NE(Header(1).find("6.00 On Hand"), std::string::npos) << "stays";
    EXPECT_NE(Rows(1).find("0.30 Bolt of thirty letters, a|1.75 Iron|2.50 Bin 1|3.30 Acme "
                           "(A-1)|4.70 1 case = 12.00 box(s|6.73 3.00|7.30 ___________\n"),
              std::string::npos);
  });
}

TEST_F(TableReportsTest, TheReportsByPartSuggestAndMarkEachByItsOwnRule) {
  ASSERT_TRUE(stockroom.Start());
  AtReports([&] {
    Print(Screen().r5);
    EXPECT_EQ(Rows(1),
              "0.30 Bolt of thirty |1.40 1|2.00 Iron|2.90 Bin 1|3.90 case|5.53 8.00|6.33 2.00|6.93 "
              "3.00|7.73 6.00\n"
              "0.30 Nut|1.40 2|2.00 IRON|2.90 Bin 2|3.90 bag|5.53 5.00|6.29 10.00|6.89 10.00|7.69 "
              "-5.00\n");
    EXPECT_NE(Header(1).find("7.00 Page: 1"), std::string::npos);
    Print(Screen().r8);
    EXPECT_EQ(Rows(1),
              "0.30 Bolt of thirty let|1.80 1|2.90 short|4.30 case|5.33 8.00|5.83 2.00|6.33 "
              "3.00|6.83 6.00|7.10 Below Re-Order\n"
              "0.30 Nut|1.80 2|4.30 bag|5.33 5.00|5.79 10.00|6.29 10.00|7.10 Below Re-Order\n"
              "0.30 Tape|1.80 3|4.30 roll|5.33 4.00|5.83 9.00|6.33 1.00\n");
  });
}

TEST_F(TableReportsTest, TheReportsByVendorLookAtTheSlotThatIsChosen) {
  ASSERT_TRUE(stockroom.Start());
  auto& choice = stockroom.App().Get<KVI_ChooseVendors>();
  AtReports([&] {
    ExpectVendor(choice.u_v1, "Acme");
    Print(Screen().r10);
    EXPECT_EQ(Rows(1),
              "0.30 Bolt of thirty letters, at last|2.00 1|2.80 A-1|4.00 case|5.33 8.00|5.83 "
              "2.00|6.33 3.00|6.83 6.00|7.10 Below Re-Order\n"
              "0.30 Tape|2.00 3|2.80 A-3|4.00 roll|5.33 4.00|5.83 9.00|6.33 1.00\n");
    EXPECT_NE(Page(1).find("0.10 0.70 8 | Page: 1"), std::string::npos) << Page(1);
    ExpectVendor(choice.u_v2, "Acme");
    Print(Screen().r17);
    EXPECT_NE(Header(1).find("0.30 Items Displayed for Vendor 2 Only\n0.30 Report for Acme\n"),
              std::string::npos);
    EXPECT_EQ(Rows(1), "0.30 Nut|2.00 2|2.80 A-2|4.00 bag|5.33 5.00|5.79 10.00|6.29 10.00\n")
        << "at its level, and not marked";
  });
}

TEST_F(TableReportsTest, ValuationsAddUpWhatThePartsHold) {
  ASSERT_TRUE(stockroom.Start());
  AtReports([&] {
    Print(Screen().r6);
    EXPECT_EQ(Rows(1),
              "0.30 Bolt of thirty let|1.50 1|2.40 Iron|3.40 Bin 1|4.40 case / box|5.35 "
              "$24.00|6.13 $2.00|6.80 2.00|7.25 $48.00\n"
              "0.30 Nut|1.50 2|2.40 IRON|3.40 Bin 2|4.40 bag / bag|5.43 $6.00|6.13 $0.00|6.73 "
              "10.00|7.25 $60.00\n"
              "0.30 Tape|1.50 3|3.40 Bin 0|4.40 roll / roll|5.43 $3.00|6.13 $3.00|6.80 9.00|7.25 "
              "$27.00\n"
              "7.18 $135.00\n");
    EXPECT_NE(Header(1).find("0.30 Valuation Report (FIFO)|4.00 CPHP = Cost"), std::string::npos);
    Print(Screen().r7);
    EXPECT_EQ(Rows(1), "2.75 $27.00\n0.30 Iron|2.71 $108.00\n0.30 Grand Total:|2.71 $135.00\n")
        << "whatever the case of a category";
  });
}

TEST_F(TableReportsTest, InformationShowsPartsAsBlocksAndGroupsWithTheirLines) {
  ASSERT_TRUE(stockroom.Start());
  AtReports([&] {
    Print(Screen().r1);
    EXPECT_NE(Header(1).find("|6.90 Page: 1"), std::string::npos);
    EXPECT_NE(Rows(1).find("0.30 Name:|1.15 Nut|3.70 How Purchased/How Inv:|5.40 bag/bag (1 "
                           "bag=0.00 bag(s))\n"),
              std::string::npos);
    EXPECT_NE(Rows(1).find("0.30 Vendor 2:|1.15 Acme|4.20 Vendor Inv. ID#:|5.40 A-2\n"),
              std::string::npos);
    Print(Screen().r2);
    EXPECT_EQ(Lines(1, false) + Lines(1, true),
              "0.30 Harbour Works|7.00 Page: 1\n"
              "0.30 Part Group Summary\n0.30 03/09/2026\n0.30 Sorted by Name\n"
              "0.30 Name|2.10 Rec. ID#|2.75 Category|4.40 Cost|5.00 Notes\n"
              "0.30 Bare|2.10 G2|2.75 Odd|4.40 $0.00\n"
              "0.30 Kit|2.10 G1|2.75 Sets|4.40 $12.50|5.00 for the van\n"
              "0.40 Bolt|2.80 ID#: 1|4.20 Desc: |6.40 Qty:|6.83 2.50\n"
              "0.40 Nut|2.80 ID#: 2|4.20 Desc: hex|6.40 Qty:|6.83 4.00\n");
    stockroom.user().Choose(Screen().sort_id);
    stockroom.user().Choose(Screen().sub_like);
    stockroom.user().Type(Screen().subset, "od");
    Print(Screen().r2);
    EXPECT_EQ(Rows(1), "0.30 Bare|2.10 G2|2.75 Odd|4.40 $0.00\n") << "it looks in the category";
  });
}

}  // namespace
}  // namespace kvi::test
