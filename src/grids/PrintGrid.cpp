#include "grids/PrintGrid.h"

#include "grids/GridPages.h"
#include "platform/Progress.h"

namespace kvi {

namespace {

// False when the user cancelled.
bool DrawPages(GridPages& pages, Surface& surface, Progress& progress) {
  progress.Begin("Printing " + std::to_string(pages.Count()) + " pages", pages.Count());
  for (int page = 1; page <= pages.Count(); ++page) {
    if (progress.Cancelled()) return false;
    if (page > 1) surface.NewPage();
    pages.Draw(page);
    progress.Done(page);
  }
  return !progress.Cancelled();
}

}  // namespace

void PrintGrid(Desktop& desktop, const Spread& grid, const GridPrint& print) {
  auto progress = desktop.NewProgress(print.jobName, true);
  progress->Begin("Counting the pages");
  const auto document = desktop.NewDocument(print.jobName);
  GridPages pages(*document, grid, print);
  const bool whole = DrawPages(pages, *document, *progress);
  progress.reset();
  if (whole)
    document->EndDoc();
  else
    document->KillDoc();
}

}  // namespace kvi
