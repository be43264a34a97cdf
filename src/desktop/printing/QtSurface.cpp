#include "desktop/printing/QtSurface.h"

namespace kvi {

void QtSurface::NewPage() {
  job_->NewPage();
  CurrentX = CurrentY = 0;
}

void QtSurface::Draw(const PageMark& mark) {
  PaintMark(job_->Painter(), mark);
}

}  // namespace kvi
