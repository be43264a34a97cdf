#include "desktop/printing/PrintJob.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "base/RunTimeError.h"
#include "desktop/look/QtText.h"

namespace kvi {

namespace {

constexpr int kPrinterError = 482;
constexpr const char* kPart = ".part";  // of a document that is not whole yet

// The job's name as a file name, with the time, so that no document replaces another.
QString PdfName(const QString& jobName, const QString& folder) {
  QString name = jobName;
  name.replace(QRegularExpression("[^\\w.-]+"), "_");
  name.truncate(60);
  const QString stem = folder + "/" + (name.isEmpty() ? "document" : name) + "-" +
                       QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss");
  QString path = stem + ".pdf";
  const auto taken = [&] { return QFileInfo::exists(path) || QFileInfo::exists(path + kPart); };
  for (int copy = 2; taken(); ++copy) path = stem + "-" + QString::number(copy) + ".pdf";
  return path;
}

}  // namespace

PrintJob::PrintJob(const QString& jobName, const QString& pdfFolder, bool landscape)
    : printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
  printer_->setDocName(jobName);
  if (!pdfFolder.isEmpty()) BeginPdf(jobName, pdfFolder);
  printer_->setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer_->setFullPage(true);
  if (!painter_.begin(printer_.get()))
    Fail(temporary_.isEmpty() ? QString("the printer does not answer")
                              : "cannot write to " + temporary_);
}

void PrintJob::BeginPdf(const QString& jobName, const QString& pdfFolder) {
  if (!QDir().mkpath(pdfFolder)) Fail("cannot make the folder " + pdfFolder);
  final_ = PdfName(jobName, pdfFolder);
  temporary_ = final_ + kPart;
  QFile probe(temporary_);
  if (!probe.open(QIODevice::WriteOnly))
    Fail("cannot write to " + pdfFolder + ": " + probe.errorString());
  probe.close();
  printer_->setOutputFormat(QPrinter::PdfFormat);
  printer_->setPageSize(QPageSize(QPageSize::Letter));
  printer_->setOutputFileName(temporary_);
}

PrintJob::~PrintJob() {
  Drop();
}

double PrintJob::PageWidth() const {
  return printer_->pageLayout().fullRect(QPageLayout::Inch).width();
}

double PrintJob::PageHeight() const {
  return printer_->pageLayout().fullRect(QPageLayout::Inch).height();
}

void PrintJob::NewPage() {
  if (!printer_->newPage()) Fail("no new page");
}

QString PrintJob::Finish() {
  if (!painter_.end()) Fail("the document could not be ended");
  if (final_.isEmpty()) return {};
  // A full disk shows in the size: the toolkit reports nothing.
  if (QFileInfo(temporary_).size() == 0 || !QFile::rename(temporary_, final_))
    Fail("cannot write " + final_);
  temporary_.clear();
  return final_;
}

void PrintJob::Drop() {
  if (painter_.isActive()) {
    printer_->abort();
    painter_.end();
  }
  if (!temporary_.isEmpty()) QFile::remove(temporary_);
  temporary_.clear();
}

void PrintJob::Fail(const QString& reason) {
  Drop();
  throw RunTimeError(kPrinterError, "Printer error: " + FromQt(reason));
}

}  // namespace kvi
