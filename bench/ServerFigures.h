#pragma once

#include <string>
#include <vector>

namespace kvi::bench {

// Prints the same works on several databases of the same content beside each other, a column each:
// desks that save at the same time, a walk, a part's load, a count. (They are written to.)
void MakeServerFigures(const std::vector<std::string>& databases);

}  // namespace kvi::bench
