#pragma once

#include <functional>
#include <memory>

#include "desktop/printing/PageMark.h"
#include "desktop/printing/PrintJob.h"

namespace kvi {

// A print job as a surface: each mark is painted as it comes. `finish` sends the document.
class QtSurface : public MarkingSurface {
 public:
  QtSurface(std::unique_ptr<PrintJob> job, std::function<void(PrintJob&)> finish)
      : job_(std::move(job)), finish_(std::move(finish)) {
    ScaleToMarks(job_->Painter(), job_->UnitsPerInch());
  }

  double PageWidth() const override { return job_->PageWidth(); }
  double PageHeight() const override { return job_->PageHeight(); }
  void NewPage() override;
  void EndDoc() override { finish_(*job_); }
  void KillDoc() override { job_->Drop(); }

 protected:
  void Draw(const PageMark& mark) override;

 private:
  std::unique_ptr<PrintJob> job_;
  std::function<void(PrintJob&)> finish_;
};

}  // namespace kvi
