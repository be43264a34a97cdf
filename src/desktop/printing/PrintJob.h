#pragma once

#include <QPainter>
#include <QPrinter>
#include <QString>
#include <memory>

namespace kvi {

// One document on its way to the printer, or, where `pdfFolder` is given, into a PDF there. A PDF
// is written under a temporary name and gets its own when it is whole; a job that is not finished
// leaves nothing. Raises 482 when it cannot be begun or finished.
class PrintJob {
 public:
  PrintJob(const QString& jobName, const QString& pdfFolder, bool landscape = false);
  ~PrintJob();
  PrintJob(const PrintJob&) = delete;
  PrintJob& operator=(const PrintJob&) = delete;

  QPainter& Painter() { return painter_; }
  double UnitsPerInch() const { return printer_->resolution(); }
  double PageWidth() const;   // inches
  double PageHeight() const;  // inches
  void NewPage();
  // Where the document is, for a PDF; empty for a printed one.
  QString Finish();
  void Drop();

 private:
  void BeginPdf(const QString& jobName, const QString& pdfFolder);
  void Fail(const QString& reason);

  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;
  QString temporary_, final_;
};

}  // namespace kvi
