#pragma once

namespace kvi {

class Application;
class Screen;
class Spread;

// Prints a screen's grid as it stands, under the company's title, the screen's caption and today's
// date, centred, with the page number at the foot.
void PrintScreenGrid(Application& app, const Screen& screen, const Spread& grid);

}  // namespace kvi
