#include "platform/IniFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

// The bytes go through as they are, so that a file in an old code page survives a rewrite.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi {
namespace {

// A private-profile buffer of 128 characters, the last of them for the NUL.
constexpr std::size_t kLongestValue = 127;

constexpr int kDiskFull = 61;
constexpr int kPathFileAccess = 75;

[[noreturn]] void RaiseFileError(int error) {
  throw RunTimeError(error == ENOSPC || error == EDQUOT ? kDiskFull : kPathFileAccess);
}

class Descriptor {
 public:
  Descriptor(const std::filesystem::path& path, int flags, mode_t mode = 0)
      : handle_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (handle_ >= 0) ::close(handle_);
  }

  bool IsOpen() const { return handle_ >= 0; }
  int Handle() const { return handle_; }

  // Some disks tell only now that they are full.
  bool Close() { return ::close(std::exchange(handle_, -1)) == 0; }

 private:
  int handle_;
};

// The bytes of the file; nothing, with errno set, when it cannot be read.
std::optional<std::string> ReadBytes(const std::filesystem::path& path) {
  // A pipe in the file's place must not hang the start.
  const Descriptor file(path, O_RDONLY | O_NONBLOCK);
  if (!file.IsOpen()) return std::nullopt;
  std::string bytes;
  char buffer[4096];
  for (;;) {
    const ssize_t count = ::read(file.Handle(), buffer, sizeof buffer);
    if (count == 0) return bytes;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    bytes.append(buffer, static_cast<std::size_t>(count));
  }
}

void Load(CSimpleIniA& ini, const std::string& bytes) {
  ini.SetUnicode();
  ini.SetMultiKey();
  ini.SetSpaces(false);
  if (ini.LoadData(bytes) < 0) throw RunTimeError(kPathFileAccess);
}

// A file being written beside the one that it is to replace. It is gone again unless it got there.
class Replacement {
 public:
  explicit Replacement(const std::filesystem::path& target)
      : target_(target), path_(target.string() + "." + std::to_string(::getpid()) + ".new") {
    ::unlink(path_.c_str());
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  ~Replacement() { ::unlink(path_.c_str()); }

  void Write(std::string_view bytes) const {
    Descriptor file(path_, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (!file.IsOpen()) RaiseFileError(errno);
    KeepOwnerAndPermissions(file);
    while (!bytes.empty()) {
      const ssize_t count = ::write(file.Handle(), bytes.data(), bytes.size());
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) RaiseFileError(errno);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    if (::fsync(file.Handle()) != 0 || !file.Close()) RaiseFileError(errno);
  }

  void TakePlace() const {
    if (::rename(path_.c_str(), target_.c_str()) != 0) RaiseFileError(errno);
  }

 private:
  void KeepOwnerAndPermissions(const Descriptor& file) const {
    struct stat original {};
    if (::stat(target_.c_str(), &original) != 0) return;
    // Only the superuser may give a file away; for anyone else it stays the writer's.
    [[maybe_unused]] const int given = ::fchown(file.Handle(), original.st_uid, original.st_gid);
    if (::fchmod(file.Handle(), original.st_mode & 0777) != 0) RaiseFileError(errno);
  }

  std::filesystem::path target_, path_;
};

std::string WithoutQuotes(std::string_view value) {
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
      value.front() == value.back())
    value = value.substr(1, value.size() - 2);
  return std::string(value);
}

}  // namespace

bool IniFile::HasSection(std::string_view section) const {
  CSimpleIniA ini;
  Load(ini, ReadBytes(path_).value_or(""));
  return ini.GetSectionSize(std::string(section).c_str()) > 0;
}

std::string IniFile::Read(std::string_view section, std::string_view key,
                          std::string_view fallback) const {
  CSimpleIniA ini;
  Load(ini, ReadBytes(path_).value_or(""));
  const char* value = ini.GetValue(std::string(section).c_str(), std::string(key).c_str());
  return value ? Left(WithoutQuotes(value), kLongestValue) : std::string(fallback);
}

void IniFile::Write(std::string_view section, std::string_view key, std::string_view value) const {
  Write(section, {{std::string(key), std::string(value)}});
}

void IniFile::Write(std::string_view section, const std::vector<KeyAndValue>& values) const {
  // Through a link, or the rename would put a file in the link's place.
  std::error_code error;
  const std::filesystem::path target = std::filesystem::weakly_canonical(path_, error);
  if (error) throw RunTimeError(kPathFileAccess);

  // What cannot be read must not be replaced, and a file set to read-only is left alone.
  const std::optional<std::string> bytes = ReadBytes(target);
  if (!bytes && errno != ENOENT) throw RunTimeError(kPathFileAccess);
  if (bytes && ::access(target.c_str(), W_OK) != 0) throw RunTimeError(kPathFileAccess);

  CSimpleIniA ini;
  Load(ini, bytes.value_or(""));
  for (const auto& [key, value] : values) {
    const std::string line = value.substr(0, value.find_first_of(std::string_view("\0\r\n", 3)));
    ini.SetValue(std::string(section).c_str(), key.c_str(), line.c_str(), nullptr, true);
  }
  std::string text;
  ini.Save(text);

  const Replacement replacement(target);
  replacement.Write(text);
  replacement.TakePlace();
}

}  // namespace kvi
