#include "desktop/printing/PrintJob.h"

#include <cups/cups.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

#include "base/RunTimeError.h"
#include "desktop/look/QtText.h"

namespace kvi {

namespace {

constexpr int kPrinterError = 482;
constexpr const char* kPart = ".part";  // of a document that is not whole yet
constexpr int kPdfTail = 16;            // bytes

// The toolkit reports no full disk: the end of the file is missing then.
bool IsWholePdf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - kPdfTail)) &&
         file.readAll().contains("%%EOF");
}

}  // namespace

// The job's name as a file name, with the time.
QString PrintJob::FreePdf(const QString& jobName, const QString& folder) {
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

PrintJob::PrintJob(const QString& jobName, const QString& pdf, const Page& page)
    : printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
  printer_->setDocName(jobName);
  if (pdf.isEmpty())
    BeginSpool();
  else
    BeginPdf(pdf);
  if (page.paper)
    printer_->setPageSize(QPageSize(QSizeF(page.paper->width, page.paper->height), QPageSize::Inch,
                                    {}, QPageSize::FuzzyMatch));
  printer_->setPageOrientation(page.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer_->setFullPage(true);
  if (!painter_.begin(printer_.get()))
    Fail(temporary_.isEmpty() ? QString("the printer does not answer")
                              : "cannot write to " + temporary_);
}

void PrintJob::BeginPdf(const QString& pdf) {
  const QString folder = QFileInfo(pdf).path();
  if (!QDir().mkpath(folder)) Fail("cannot make the folder " + folder);
  final_ = pdf;
  temporary_ = final_ + kPart;
  QFile probe(temporary_);
  if (!probe.open(QIODevice::WriteOnly))
    Fail("cannot write to " + folder + ": " + probe.errorString());
  probe.close();
  printer_->setOutputFormat(QPrinter::PdfFormat);
  printer_->setPageSize(QPageSize(QPageSize::Letter));
  printer_->setOutputFileName(temporary_);
}

// On the paper of the printer.
void PrintJob::BeginSpool() {
  const QPageLayout paper = printer_->pageLayout();
  queue_ = printer_->printerName();
  spool_ = std::make_unique<QTemporaryDir>();
  if (!spool_->isValid()) Fail("cannot write to " + QDir::tempPath());
  printer_->setOutputFormat(QPrinter::PdfFormat);
  printer_->setPageLayout(paper);
  printer_->setOutputFileName(spool_->filePath("document.pdf"));
}

void PrintJob::Spool() {
  const QByteArray queue = queue_.section('/', 0, 0).toUtf8();
  const QByteArray file = printer_->outputFileName().toUtf8();
  const QByteArray title = printer_->docName().toUtf8();
  if (!IsWholePdf(printer_->outputFileName())) Fail("the disk is full");
  if (cupsPrintFile(queue.constData(), file.constData(), title.constData(), 0, nullptr) == 0)
    Fail(QString("the printer does not take it: ") + cupsLastErrorString());
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
  if (printer_->newPage()) return;
  Fail(final_.isEmpty() ? QString("no new page")
                        : "cannot write " + final_ + ": is the disk full?");
}

void PrintJob::EndDocument() {
  if (!temporary_.isEmpty()) return;
  if (!painter_.end()) Fail("the document could not be ended");
  Spool();
}

// The scale of a painter's owner ends with its document.
void PrintJob::NextDocument() {
  if (!temporary_.isEmpty()) {
    NewPage();
    painter_.resetTransform();
  } else if (!painter_.begin(printer_.get())) {
    Fail("the printer does not answer");
  }
}

QString PrintJob::Finish() {
  const bool open = painter_.isActive();
  if (open && !painter_.end()) Fail("the document could not be ended");
  if (open && final_.isEmpty()) Spool();
  if (final_.isEmpty()) return {};
  if (!IsWholePdf(temporary_)) Fail("cannot write " + final_ + ": is the disk full?");
  QFile::remove(final_);
  if (!QFile::rename(temporary_, final_)) Fail("cannot write " + final_);
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
