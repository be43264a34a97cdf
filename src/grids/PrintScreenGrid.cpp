#include "grids/PrintScreenGrid.h"

#include "frame/Application.h"
#include "grids/PrintCodes.h"
#include "grids/PrintGrid.h"
#include "platform/Hourglass.h"

namespace kvi {

void PrintScreenGrid(Application& app, const Screen& screen, const Spread& grid) {
  const Hourglass busy(app.desktop);
  PrintGrid(app.desktop, grid,
            {.jobName = "Printing - Click Cancel to Quit",
             .header = "/fn\"Arial\"/fz\"14\"/c" + PlainPrintText(app.settings.CompanyName) +
                       "/n/c" + screen.Caption() + "/n/c" + Str(app.clock.Now().WithoutTime()),
             .footer = "/cPage: /p"});
}

}  // namespace kvi
