#include "desktop/printing/QtSurface.h"

namespace kvi {

void QtSurface::NewPage() {
  job_->NewPage();
  CurrentX = CurrentY = 0;
}

void QtPrintRun::Sheets::Draw(const PageMark& mark) {
  if (!painter_) {
    if (job_)
      job_->NextDocument();
    else
      job_ = begin_();
    painter_.emplace(job_->Painter(), job_->UnitsPerInch());
  }
  painter_->Paint(mark);
}

void QtPrintRun::Sheets::EndDoc() {
  if (!painter_) return;
  painter_.reset();
  job_->EndDocument();
}

void QtPrintRun::Sheets::KillDoc() {
  painter_.reset();
  if (job_) job_->Drop();
}

}  // namespace kvi
