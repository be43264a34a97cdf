#pragma once

#include <string>

#include "items/WorkingItem.h"
#include "platform/Desktop.h"

namespace kvi {

// The picture of a part: the working item holds its path, the file itself is never touched.

// Takes a stored path. One that names no existing file shows no picture, and the path stays shown.
void ShowPicture(WorkingItem& item, const std::string& path);

// Asks for a picture file and shows it. False when the user cancels, and nothing changed. Raises 53
// for a file that is not there and 481 for one that cannot be shown; the path is taken even then.
bool SelectPicture(WorkingItem& item, Desktop& desktop);

}  // namespace kvi
