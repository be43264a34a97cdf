#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/Date.h"

namespace kvi {

// The copies of a database lie in the folder `backups` beside it. Each is named by its day, its
// time and its reason, as "2026-03-09 140506 before removing a vendor.mdb"; the one that comes at
// the first start of a day has no time, so that a day has one of them. What has another name is not
// ours, and is neither listed nor removed.
struct BackUpFile {
  std::filesystem::path Path;
  Date Made;
  std::string Reason;
};

// The reason of those that a command makes, which nobody removes by hand.
inline constexpr const char* kScheduledBackUp = "by kvi-backup";

std::filesystem::path BackUpFolder(const std::filesystem::path& database);
std::filesystem::path DailyName(const std::filesystem::path& folder, const Date& day);
// A name that no file has yet. Of the reason only what may stand in a file's name is taken.
std::filesystem::path FreeName(const std::filesystem::path& folder, const Date& now,
                               const std::string& reason);

// The newest first; none where there is no folder.
std::vector<BackUpFile> BackUpsIn(const std::filesystem::path& folder);

// Of the copies that come by themselves, those of the last 14 days stay, and the first of each of
// the last 12 months; the rest is removed, and so is what a copying left that was broken off more
// than a day ago. What cannot be removed stays.
void RemoveOldBackUps(const std::filesystem::path& folder, const Date& today);

}  // namespace kvi
