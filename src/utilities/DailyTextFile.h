#pragma once

#include <string>

#include "base/Date.h"

namespace kvi {

class Application;

// The name of a day's text file: month, day and the year's last two digits as plain numbers, so
// that 1 November and 11 January share one.
std::string DailyFileName(const Date& day);

// Writes number, name and used quantity of the parts of every profit center into the day's file in
// the folder `files` beside the program, after a question where it stands already. Raises 53 where
// the folder holds no master.txt, 61 for a full disk, 75 where the file cannot be made; what stood
// there then stays.
void createFile(Application& app);

}  // namespace kvi
