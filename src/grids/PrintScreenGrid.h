#pragma once

#include <string>
#include <vector>

#include "platform/Desktop.h"
#include "platform/Spread.h"

namespace kvi {

class Application;
class Screen;

// Prints a grid as it stands under the lines given, centred, with the page number at the foot.
void PrintGridUnder(Desktop& desktop, const Spread& grid, const std::vector<std::string>& lines);

// The same under the company's title, the screen's caption and today's date, as most lists do.
void PrintScreenGrid(Application& app, const Screen& screen, const Spread& grid);

}  // namespace kvi
