#pragma once

#include <QPainter>
#include <QPrinter>
#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <optional>

#include "platform/Desktop.h"

namespace kvi {

// A document, or several of one name, on its way to the printer, or, where `pdf` names a
// file, into that PDF, which takes the place of one of its name. A PDF is written under a temporary
// name and gets its own when it is whole; a job that is not finished leaves nothing. Raises 482
// when it cannot be begun or finished, or when the spooler refuses it: what goes to a printer is
// made as a PDF too and handed over by us, since the toolkit drops the spooler's answer.
class PrintJob {
 public:
  // Without a paper it is what the printer has, and letters in a PDF.
  struct Page {
    bool landscape = false;
    std::optional<PaperSize> paper = std::nullopt;
  };
  PrintJob(const QString& jobName, const QString& pdf, const Page& page);
  ~PrintJob();
  // A path in a folder for a document of that name, such that it replaces no other.
  static QString FreePdf(const QString& jobName, const QString& folder);
  PrintJob(const PrintJob&) = delete;
  PrintJob& operator=(const PrintJob&) = delete;

  QPainter& Painter() { return painter_; }
  double UnitsPerInch() const { return printer_->resolution(); }
  double PageWidth() const;   // inches
  double PageHeight() const;  // inches
  void NewPage();
  // For several documents of one name. A printer gets each as a job of its own, through this one
  // printer object; in a PDF each begins on a new page.
  void EndDocument();
  void NextDocument();
  // Where the document is, for a PDF; empty for a printed one.
  QString Finish();
  void Drop();

 private:
  void BeginPdf(const QString& pdf);
  void BeginSpool();
  void Spool();
  void Fail(const QString& reason);

  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;
  QString temporary_, final_;
  QString queue_;  // the printer's, by its name
  std::unique_ptr<QTemporaryDir> spool_;
};

}  // namespace kvi
