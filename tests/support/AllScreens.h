#pragma once

#include <vector>

namespace kvi {
class Application;
class Screen;
}  // namespace kvi

namespace kvi::test {

// Every screen of the system. A new one is entered here and in the picture tour.
std::vector<Screen*> AllScreens(Application& app);

}  // namespace kvi::test
