#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDir>
#include <QPixmap>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <csignal>

#include "DesktopTest.h"
#include "base/RunTimeError.h"
#include "desktop/printing/PrintService.h"
#include "desktop/printing/QtSurface.h"

namespace kvi::test {

// The jobs go into PDFs whether or not the machine has a printer.
class PrintingTest : public DesktopTest {
 protected:
  std::unique_ptr<QtSurface> NewDocument(const QString& name = "Stock report") {
    return std::make_unique<QtSurface>(
        measure_,
        std::make_unique<PrintJob>(name, PrintJob::FreePdf(name, Printed()), PrintJob::Page{}),
        [this](PrintJob& job) { pdfs_.push_back(job.Finish()); });
  }
  QString Printed() const { return ToQt(folder / "printed"); }
  QStringList Files() const { return QDir(Printed()).entryList(QDir::Files); }

  // Where a word stands, in inches: left edge and top.
  static QPointF PlaceOf(const QString& pdf, const QString& word) {
    QProcess reader;
    reader.start("pdftotext", {"-bbox", pdf, "-"});
    EXPECT_TRUE(reader.waitForFinished()) << "pdftotext (poppler-utils) is missing";
    const QRegularExpression pattern("xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\"[^>]*>" + word + "<");
    const auto match = pattern.match(reader.readAllStandardOutput());
    EXPECT_TRUE(match.hasMatch()) << FromQt(word);
    return {match.captured(1).toDouble() / 72, match.captured(2).toDouble() / 72};
  }

  QtTextMeasure measure_;
  QStringList pdfs_;
};

TEST_F(PrintingTest, TextLandsWhereItIsPrintedToTheHundredthOfAnInch) {
  auto page = NewDocument();
  EXPECT_DOUBLE_EQ(page->PageWidth(), 8.5);
  EXPECT_DOUBLE_EQ(page->PageHeight(), 11);
  page->PrintAt(2.1, 1, "X");
  page->PrintAt(0.25, 3, "Left");
  const double right = page->CurrentX;
  page->Print("Right");
  page->NewPage();
  page->FontSize = 14;
  page->FontBold = true;
  page->PrintAt(7 - page->TextWidth("1234.50"), 5, "1234.50");
  EXPECT_NEAR(page->CurrentX, 7, 1e-9);
  page->EndDoc();
  ASSERT_EQ(pdfs_.size(), 1);
  EXPECT_NEAR(PlaceOf(pdfs_[0], "X").x(), 2.1, 0.01);
  EXPECT_NEAR(PlaceOf(pdfs_[0], "X").y(), 1, 0.03);
  EXPECT_NEAR(PlaceOf(pdfs_[0], "LeftRight").x(), 0.25, 0.01);
  EXPECT_GT(right, 0.4);
  EXPECT_NEAR(PlaceOf(pdfs_[0], "1234.50").x(), 7 - page->TextWidth("1234.50"), 0.01);
}

TEST_F(PrintingTest, ADocumentGetsItsNameWhenItIsWholeAndADroppedOneLeavesNothing) {
  auto first = NewDocument("Orders / week 9");
  auto second = NewDocument("Orders / week 9");
  first->Print("one");
  first->EndDoc();
  second->Print("two");
  second->EndDoc();
  ASSERT_EQ(Files().size(), 2) << "of one name and second";
  EXPECT_TRUE(Files()[0].startsWith("Orders_week_9-")) << FromQt(Files()[0]);
  NewDocument()->Print("never ended");
  auto dropped = NewDocument();
  dropped->Print("dropped");
  dropped->KillDoc();
  EXPECT_EQ(Files().size(), 2);
}

TEST_F(PrintingTest, AFolderThatCannotBeWrittenIsAPrinterError) {
  WriteFile(folder / "printed", "a file stands in the way");
  try {
    NewDocument();
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number, 482);
    EXPECT_NE(error.Description.find("printed"), std::string::npos) << error.Description;
  }
}

TEST_F(PrintingTest, ARunIsOnePdfOfAllItsPagesAndNothingUntilItIsFinished) {
  int told = 0;
  PrintService service([&](const std::string&) { ++told; }, [](const std::string&) {});
  const QString pdf = ToQt(folder / "night.pdf");
  service.PrintInto(pdf);
  service.NewRun("Nothing drawn")->Finish();
  const auto print = [&](bool finished) {
    const auto run = service.NewRun("Pages");
    for (const char* word : {"first", "second", "third"}) {
      run->Paper().Put(1, 2, word, 3);
      run->Paper().EndDoc();
    }
    if (finished) run->Finish();
  };
  print(false);
  EXPECT_FALSE(QFileInfo::exists(pdf));
  print(true);
  print(true);
  EXPECT_EQ(QDir(ToQt(folder.Path().string())).entryList({"night*"}).size(), 1);
  QProcess reader;
  reader.start("pdftotext", {"-bbox", pdf, "-"});
  ASSERT_TRUE(reader.waitForFinished());
  const QString text = reader.readAllStandardOutput();
  EXPECT_EQ(text.count("<page "), 3);
  const auto wide =
      QRegularExpression("xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\"[^>]*>third<")
          .match(text);
  EXPECT_NEAR(wide.captured(1).toDouble() / 72, 1, 0.01);
  EXPECT_NEAR(wide.captured(2).toDouble() / 72, 2, 0.03);
  EXPECT_NEAR(wide.captured(3).toDouble() / 72, 4, 0.02) << "brought to its room";
  EXPECT_EQ(told, 0);
}

// Whatever part of it had room: in the middle of a page, or all but the end.
TEST_F(PrintingTest, ADocumentThatTheDiskHasNoRoomForIsToldAndLeavesNothing) {
  const auto print = [this] {
    auto page = NewDocument("Full");
    for (double y = 0.5; y < 10; y += 0.01) page->Put(1, y, "a line of the list");
    page->EndDoc();
  };
  print();
  const auto whole = static_cast<rlim_t>(QFileInfo(pdfs_.at(0)).size());
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  for (const rlim_t room : {rlim_t{100}, whole / 2, whole - 20}) {
    const rlimit small{room, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(print(), RunTimeError) << room;
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(Files().size(), 1) << room;
  }
}

TEST_F(PrintingTest, WithoutAPrinterDocumentsTellWhereTheyAre) {
  if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "this machine would print";
  std::vector<std::string> told, saved;
  PrintService service([&](const std::string& text) { told.push_back(text); },
                       [&](const std::string& path) { saved.push_back(path); });
  service.SetProgramFolder(ToQt(folder.Path().string()));
  QPixmap wide(300, 100);
  wide.fill(Qt::red);
  service.PrintPicture(wide, "Screen");
  service.NewDocument("Job", "Second")->EndDoc();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find(FromQt(Printed()) + "/Screen-"), std::string::npos) << told[0];
  EXPECT_EQ(Files().size(), 2);
  ASSERT_EQ(saved.size(), 2U) << "each is named";
  EXPECT_NE(saved[1].find("/Second-"), std::string::npos) << saved[1];
}

}  // namespace kvi::test
