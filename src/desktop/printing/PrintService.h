#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "desktop/printing/MarkPainter.h"
#include "desktop/printing/PrintJob.h"

class QPixmap;

namespace kvi {

class PrintRun;
class Surface;

// Prints on the machine's printer. Where there is none, each document becomes a PDF in `printed/`
// under the program's folder: `saved` is called with its path, and the first time `tell` with a
// text that says so.
class PrintService {
 public:
  using Call = std::function<void(const std::string&)>;
  PrintService(Call tell, Call saved);

  void SetProgramFolder(const QString& folder) { folder_ = folder; }
  // From here on everything goes into this file, whatever printer there is, and nothing is told.
  void PrintInto(const QString& pdf) { file_ = pdf; }
  static bool HasPrinter();
  // A PDF is named by what it shows, since there is no queue that shows the job's name.
  std::unique_ptr<Surface> NewDocument(const std::string& jobName, const std::string& pdfName);
  // The title names the jobs and the PDF that holds them all.
  std::unique_ptr<PrintRun> NewRun(const std::string& title,
                                   std::optional<PaperSize> paper = std::nullopt);
  TextMeasure& Measure() { return measure_; }
  // One page, as large as its margins allow, in the picture's own proportions.
  void PrintPicture(const QPixmap& picture, const std::string& jobName);

 private:
  std::unique_ptr<PrintJob> NewJob(const std::string& jobName, const std::string& pdfName,
                                   const PrintJob::Page& page) const;
  void Finish(PrintJob& job);

  QtTextMeasure measure_;
  Call tell_, saved_;
  QString folder_, file_;
  bool told_ = false;
};

}  // namespace kvi
