#pragma once

#include <string>

namespace kvi {

class Application;

// Before the database is opened: a file of the older program is converted in its place once the
// user agrees, and the old one is kept beside it. Does nothing for any other file. A No, and
// whatever stands against it, is a box and the end of the process; then the old file is as it was.
// A kill at any moment leaves the old or the new file whole under the name.
void ConvertAtOpening(Application& app, const std::string& path);

}  // namespace kvi
