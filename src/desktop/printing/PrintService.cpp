#include "desktop/printing/PrintService.h"

#include <QPixmap>
#include <QPrinterInfo>

#include "desktop/look/QtText.h"
#include "desktop/printing/QtSurface.h"

namespace kvi {

PrintService::PrintService(Call tell, Call saved)
    : tell_(std::move(tell)), saved_(std::move(saved)) {}

bool PrintService::HasPrinter() {
  return !QPrinterInfo::defaultPrinter().isNull();
}

std::unique_ptr<PrintJob> PrintService::NewJob(const std::string& jobName,
                                               const std::string& pdfName,
                                               const PrintJob::Page& page) const {
  if (!file_.isEmpty()) return std::make_unique<PrintJob>(ToQt(jobName), file_, page);
  if (HasPrinter()) return std::make_unique<PrintJob>(ToQt(jobName), QString(), page);
  return std::make_unique<PrintJob>(ToQt(pdfName),
                                    PrintJob::FreePdf(ToQt(pdfName), folder_ + "/printed"), page);
}

std::unique_ptr<Surface> PrintService::NewDocument(const std::string& jobName,
                                                   const std::string& pdfName) {
  return std::make_unique<QtSurface>(measure_, NewJob(jobName, pdfName, {}),
                                     [this](PrintJob& job) { Finish(job); });
}

std::unique_ptr<PrintRun> PrintService::NewRun(const std::string& title,
                                               std::optional<PaperSize> paper) {
  return std::make_unique<QtPrintRun>(
      measure_, [this, title, paper] { return NewJob(title, title, {.paper = paper}); },
      [this](PrintJob& job) { Finish(job); });
}

void PrintService::PrintPicture(const QPixmap& picture, const std::string& jobName) {
  constexpr double kPageMargin = 0.5;  // inches
  const auto job = NewJob(jobName, jobName, {.landscape = picture.width() > picture.height()});
  const double units = job->UnitsPerInch();
  const QSizeF room((job->PageWidth() - 2 * kPageMargin) * units,
                    (job->PageHeight() - 2 * kPageMargin) * units);
  const QSizeF size = QSizeF(picture.size()).scaled(room, Qt::KeepAspectRatio);
  const QRectF area(QPointF(kPageMargin, kPageMargin) * units, size);
  job->Painter().setRenderHint(QPainter::SmoothPixmapTransform);
  job->Painter().drawPixmap(area, picture, QRectF(picture.rect()));
  Finish(*job);
}

void PrintService::Finish(PrintJob& job) {
  const std::string pdf = FromQt(job.Finish());
  if (pdf.empty() || !file_.isEmpty()) return;
  if (!std::exchange(told_, true))
    tell_(
        "There is no printer on this machine. What is printed is saved as PDF documents "
        "instead:\n" +
        pdf);
  saved_(pdf);
}

}  // namespace kvi
