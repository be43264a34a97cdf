#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

class QPixmap;

namespace kvi {

class PrintJob;
class Surface;

// Prints on the machine's printer. Where there is none, each document becomes a PDF in `printed/`
// under the program's folder: `saved` is called with its path, and the first time `tell` with a
// text that says so.
class PrintService {
 public:
  using Call = std::function<void(const std::string&)>;
  PrintService(Call tell, Call saved);

  void SetProgramFolder(const QString& folder) { folder_ = folder; }
  // A PDF is named by what it shows, since there is no queue that shows the job's name.
  std::unique_ptr<Surface> NewDocument(const std::string& jobName, const std::string& pdfName);
  // One page, as large as its margins allow, in the picture's own proportions.
  void PrintPicture(const QPixmap& picture, const std::string& jobName);

 private:
  std::unique_ptr<PrintJob> NewJob(const std::string& jobName, const std::string& pdfName,
                                   bool landscape) const;
  void Finish(PrintJob& job);

  Call tell_, saved_;
  QString folder_;
  bool told_ = false;
};

}  // namespace kvi
