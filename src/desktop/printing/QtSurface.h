#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "desktop/printing/MarkPainter.h"
#include "desktop/printing/PrintJob.h"

namespace kvi {

// A print job as a surface: each mark is painted as it comes. `finish` sends the document.
class QtSurface : public MarkingSurface {
 public:
  QtSurface(TextMeasure& measure, std::unique_ptr<PrintJob> job,
            std::function<void(PrintJob&)> finish)
      : MarkingSurface(measure),
        job_(std::move(job)),
        painter_(job_->Painter(), job_->UnitsPerInch()),
        finish_(std::move(finish)) {}

  double PageWidth() const override { return job_->PageWidth(); }
  double PageHeight() const override { return job_->PageHeight(); }
  void NewPage() override;
  void EndDoc() override { finish_(*job_); }
  void KillDoc() override { job_->Drop(); }

 protected:
  void Draw(const PageMark& mark) override { painter_.Paint(mark); }

 private:
  std::unique_ptr<PrintJob> job_;
  MarkPainter painter_;
  std::function<void(PrintJob&)> finish_;
};

// A run of documents on one printer object, or the pages of one PDF. The job begins with the first
// mark.
class QtPrintRun : public PrintRun {
 public:
  using Begin = std::function<std::unique_ptr<PrintJob>()>;
  QtPrintRun(TextMeasure& measure, Begin begin, std::function<void(PrintJob&)> finish)
      : paper_(measure, std::move(begin)), finish_(std::move(finish)) {}

  Surface& Paper() override { return paper_; }
  void Finish() override {
    if (paper_.Job() != nullptr) finish_(*paper_.Job());
  }

 private:
  class Sheets : public MarkingSurface {
   public:
    Sheets(TextMeasure& measure, Begin begin) : MarkingSurface(measure), begin_(std::move(begin)) {}

    double PageWidth() const override { return 8.5; }  // before a printer is asked
    double PageHeight() const override { return 11; }
    void NewPage() override { EndDoc(); }
    void EndDoc() override;
    void KillDoc() override;
    PrintJob* Job() { return job_.get(); }

   protected:
    void Draw(const PageMark& mark) override;

   private:
    Begin begin_;
    std::unique_ptr<PrintJob> job_;
    std::optional<MarkPainter> painter_;  // while a document is open
  };

  Sheets paper_;
  std::function<void(PrintJob&)> finish_;
};

}  // namespace kvi
