#pragma once

#include <filesystem>
#include <string>

#include "base/Date.h"
#include "jet/Database.h"

namespace kvi {

class Application;
class Progress;

// Copies the database and looks through the copy. Raises as Database::CopyTo, 75 where the folder
// cannot be made, and 3343 for a copy that is damaged, which is not kept.
void CopyAndCheck(jet::Database& database, const std::filesystem::path& path,
                  Progress* progress = nullptr);
// The same under a free name of the reason; its path.
std::filesystem::path MakeBackUp(jet::Database& database, const Date& now,
                                 const std::string& reason, Progress* progress = nullptr);
// The copy of a day: none where it stands already, also when another desk was quicker.
void MakeDailyBackUp(jet::Database& database, const Date& today, Progress* progress = nullptr);

// Before an act that cannot be undone, after which the copy is named. Where it cannot be made the
// user is asked whether to go on without one. False when the act is not to be done.
[[nodiscard]] bool BackUpBefore(Application& app, const std::string& act);

// The copy of the first start of a day, by whichever desk. A failure is told, and is no reason not
// to work; where this desk may not write into the database's folder nothing is done.
void BackUpOfTheDay(Application& app);

}  // namespace kvi
