#include "grids/PrintScreenGrid.h"

#include "frame/Application.h"
#include "grids/PrintCodes.h"
#include "grids/PrintGrid.h"
#include "platform/Hourglass.h"

namespace kvi {

void PrintGridUnder(Desktop& desktop, const Spread& grid, const std::vector<std::string>& lines) {
  const Hourglass busy(desktop);
  std::string header = "/fn\"Arial\"/fz\"14\"/c";
  for (std::size_t line = 0; line < lines.size(); ++line)
    header += (line == 0 ? "" : "/n/c") + PlainPrintText(lines[line]);
  PrintGrid(
      desktop, grid,
      {.jobName = "Printing - Click Cancel to Quit", .header = header, .footer = "/cPage: /p"});
}

void PrintScreenGrid(Application& app, const Screen& screen, const Spread& grid) {
  PrintGridUnder(app.desktop, grid,
                 {app.settings.CompanyName, screen.Caption(), Str(app.clock.Now().WithoutTime())});
}

}  // namespace kvi
