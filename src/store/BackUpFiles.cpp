#include "store/BackUpFiles.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <optional>
#include <set>
#include <utility>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

namespace fs = std::filesystem;

namespace {

constexpr const char* kEnding = ".mdb";
constexpr const char* kDaily = "daily";
constexpr std::size_t kDateLength = 10, kTimeLength = 6;
constexpr std::size_t kLongestReason = 60;
constexpr long kDaysKept = 14;
constexpr int kMonthsKept = 12;

bool AreDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

int TwoDigits(const std::string& text, std::size_t at) {
  return static_cast<int>(Val(text.substr(at, 2)));
}

std::optional<BackUpFile> OfName(const fs::path& path) {
  std::string name = path.filename().string();
  if (!name.ends_with(kEnding) || name.size() <= kDateLength) return std::nullopt;
  name.resize(name.size() - std::string_view(kEnding).size());
  const auto day = FromIsoText(name.substr(0, kDateLength));
  if (!day || !IsValid(*day) || name.size() <= kDateLength + 1 || name[kDateLength] != ' ')
    return std::nullopt;
  BackUpFile file{path, *day, name.substr(kDateLength + 1)};
  const std::string& rest = file.Reason;
  if (rest.size() > kTimeLength + 1 && AreDigits(rest.substr(0, kTimeLength)) &&
      rest[kTimeLength] == ' ') {
    file.Made.hour = TwoDigits(rest, 0);
    file.Made.minute = TwoDigits(rest, 2);
    file.Made.second = TwoDigits(rest, 4);
    if (!IsValid(file.Made)) return std::nullopt;
    file.Reason = rest.substr(kTimeLength + 1);
  }
  return file;
}

std::string ForFileName(const std::string& reason) {
  std::string name;
  for (const char letter : reason) {
    const bool plain = std::isalnum(static_cast<unsigned char>(letter)) != 0 ||
                       std::string_view(" -_(),").find(letter) != std::string_view::npos;
    name += plain ? letter : ' ';
  }
  name = Trim(Left(Trim(name), kLongestReason));
  return name.empty() ? "by hand" : name;
}

// No link and no folder.
bool IsPlainFile(const fs::path& path) {
  std::error_code ignored;
  return fs::is_regular_file(fs::symlink_status(path, ignored));
}

std::vector<fs::path> FilesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error))
    if (IsPlainFile(entry->path())) files.push_back(entry->path());
  return files;
}

bool IsDaily(const BackUpFile& file) {
  return file.Reason == kDaily && !file.Made.HasTime();
}
bool IsScheduled(const BackUpFile& file) {
  return file.Reason == kScheduledBackUp;
}

std::vector<fs::path> Outdated(const std::vector<BackUpFile>& newestFirst, const Date& today) {
  std::vector<fs::path> outdated;
  for (const auto isOfKind : {IsDaily, IsScheduled}) {
    std::set<int> months;
    for (auto file = newestFirst.rbegin(); file != newestFirst.rend(); ++file) {
      if (!isOfKind(*file)) continue;
      const int month = file->Made.year * 12 + file->Made.month;
      const bool isFirst = months.insert(month).second;
      const bool isRecent = DayNumber(today) - DayNumber(file->Made) < kDaysKept;
      const bool isOfTheYear = today.year * 12 + today.month - month < kMonthsKept;
      if (!isRecent && !(isFirst && isOfTheYear)) outdated.push_back(file->Path);
    }
  }
  return outdated;
}

// "2026-03-09 daily.mdb.123456.new", as long as nobody can be at work on it.
bool IsLeftOver(const fs::path& path) {
  std::error_code error;
  const fs::path numbered = path.stem();
  const std::string number = numbered.extension().string();
  if (path.extension() != ".new" || number.empty() || !AreDigits(number.substr(1)) ||
      !OfName(path.parent_path() / numbered.stem()))
    return false;
  const auto written = fs::last_write_time(path, error);
  return !error && fs::file_time_type::clock::now() - written > std::chrono::hours(24);
}

}  // namespace

fs::path BackUpFolder(const fs::path& database) {
  return database.parent_path() / "backups";
}

fs::path DailyName(const fs::path& folder, const Date& day) {
  return folder / (Format(day, "yyyy-mm-dd") + " " + kDaily + kEnding);
}

fs::path FreeName(const fs::path& folder, const Date& now, const std::string& reason) {
  const std::string name =
      Format(now, "yyyy-mm-dd") + " " + Format(now, "hhmmss") + " " + ForFileName(reason);
  fs::path path = folder / (name + kEnding);
  std::error_code ignored;
  for (int number = 2; fs::exists(fs::symlink_status(path, ignored)); ++number)
    path = folder / (name + " (" + Str(number) + ")" + kEnding);
  return path;
}

std::vector<BackUpFile> BackUpsIn(const fs::path& folder) {
  std::vector<BackUpFile> files;
  for (const fs::path& path : FilesIn(folder))
    if (auto file = OfName(path)) files.push_back(*std::move(file));
  std::ranges::sort(files, [](const BackUpFile& left, const BackUpFile& right) {
    return std::pair(right.Made, right.Path) < std::pair(left.Made, left.Path);
  });
  return files;
}

void RemoveOldBackUps(const fs::path& folder, const Date& today) {
  std::vector<fs::path> removed = Outdated(BackUpsIn(folder), today);
  for (const fs::path& path : FilesIn(folder))
    if (IsLeftOver(path)) removed.push_back(path);
  std::error_code ignored;
  for (const fs::path& path : removed) fs::remove(path, ignored);
}

}  // namespace kvi
