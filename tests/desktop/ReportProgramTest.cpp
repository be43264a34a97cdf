#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>

#include "desktop/look/QtText.h"
#include "support/TestStockroom.h"
#include "support/Workbook.h"

namespace kvi::test {
namespace {

struct Outcome {
  int status;
  QString said, failed;
};

Outcome Report(const QStringList& arguments) {
  QProcess program;
  program.start(KVI_REPORT, arguments);
  EXPECT_TRUE(program.waitForFinished());
  return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

// What a scanner reads on the labels that are made, in the order of the codes.
std::string CodesOn(const QString& folder, const QStringList& arguments) {
  const QString pdf = folder + "/labels.pdf";
  EXPECT_EQ(Report(QStringList(folder) + arguments + QStringList{"--pdf", pdf}).status, 0);
  QProcess pages;
  pages.start("pdftoppm", {"-r", "300", "-png", pdf, pdf});
  EXPECT_TRUE(pages.waitForFinished());
  QProcess scanner;
  scanner.start("zbarimg", {"-q", pdf + "-1.png"});
  EXPECT_TRUE(scanner.waitForFinished()) << "zbarimg (zbar-tools) is missing";
  QStringList codes = QString(scanner.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
  codes.sort();
  return FromQt(codes.join('\n') + '\n');
}

TEST(ReportProgramTest, MakesAReportAndTellsWhatIsWrongInALine) {
  TestStockroom stockroom;
  stockroom.Fill(
      "I_Master",
      "inv_id | pcenter | name | re_order | qty_on_hand | active\n"
      "1 | 0 | Bolt | 3 | 2 | YES\n 2 | 0 | Nut | 1 | 2 | YES\n 3 | 4 | Far | 1 | 0 | YES");
  const QString folder = ToQt(stockroom.folder.Path().string());
  const std::string before = ReadFile(stockroom.DatabaseFile());
  const Outcome text = Report({folder, "reorder-by-part", "--text"});
  EXPECT_EQ(text.status, 0);
  EXPECT_EQ(FromQt(text.failed), "");
  EXPECT_TRUE(text.said.contains("Harbour Works") && text.said.contains("Bolt"));
  EXPECT_FALSE(text.said.contains("Nut") || text.said.contains("Far"));
  EXPECT_TRUE(Report({folder, "r5", "--center", "4", "--text"}).said.contains("Far"));
  EXPECT_FALSE(Report({folder, "r3", "--levels", "no", "--text"}).said.contains("Qty On"));
  const QString pdf = folder + "/out/night.pdf";
  EXPECT_EQ(Report({folder, "r6", "--pdf", pdf}).status, 0);
  EXPECT_GT(QFileInfo(pdf).size(), 1000);
  const std::string book = stockroom.folder / "night.xlsx";
  EXPECT_EQ(Report({folder, "r5", "--xlsx", ToQt(book)}).status, 0);
  EXPECT_EQ(ReadWorkbook(book),
            "Name|Inv. ID#|Category|Location|How Purchased|Par Level|Quantity On Hand|Re-Order "
            "Level|Suggested Order\nBolt|1||||0|2|3|-2\n");
  EXPECT_EQ(CodesOn(folder, {"labels", "--sheet", "5160", "--first", "2", "--qr"}),
            "CODE-128:1\nCODE-128:2\nQR-Code:1\nQR-Code:2\n");
  EXPECT_EQ(ReadFile(stockroom.DatabaseFile()), before) << "it only reads";

  const auto expectRefused = [](const QStringList& arguments, int status, const char* line) {
    const Outcome run = Report(arguments);
    EXPECT_EQ(run.status, status) << line;
    EXPECT_TRUE(run.failed.contains(line)) << FromQt(run.failed);
    EXPECT_TRUE(run.said.isEmpty());
  };
  expectRefused({folder, "r9", "--text"}, 2, "There is no report \"r9\"");
  expectRefused({folder, "r10", "--text"}, 2, "This report needs --vendor NAME.");
  expectRefused({folder, "r5", "--text", "--print"}, 2,
                "Only one of --pdf, --xlsx, --print and --text");
  expectRefused({folder, "labels", "--sheet", "x"}, 2, "There is no label sheet \"x\"");
  expectRefused({folder, "r5", "--font", "12"}, 2, "--font needs a whole number from 5 to 9.");
  expectRefused({folder + "/none", "r5", "--text"}, 1, "is no program folder");
  expectRefused({folder, "r5", "--pdf", folder + "/KVI.INI/x.pdf"}, 1, "cannot make the folder");
}

}  // namespace
}  // namespace kvi::test
