#include "store/ConvertAtOpening.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "frame/Application.h"
#include "platform/Hourglass.h"
#include "platform/Progress.h"
#include "store/ConvertInventory.h"
#include "store/Schema.h"

namespace kvi {
namespace {

namespace fs = std::filesystem;

constexpr int kWrongPassword = 3031;
constexpr std::size_t kMostLines = 12;
// The new file and its copy in the making; the old one stays.
constexpr std::uintmax_t kRoomFactor = 2;

[[noreturn]] void Stop(Application& app, const std::string& text) {
  app.desktop.MsgBox({.text = text, .icon = Icon::Warning});
  throw EndOfProcess{};
}

void AskOrEnd(Application& app, const std::string& question, Answer usual) {
  const bool isSafe = usual == Answer::Yes;
  if (app.desktop.MsgBox({.text = question,
                          .buttons = Buttons::YesNo,
                          .icon = isSafe ? Icon::Question : Icon::Warning,
                          .defaultAnswer = usual}) != Answer::Yes)
    throw EndOfProcess{};
}

// A file that one desk at a time has: whoever else asks for it meanwhile does not get it. It goes
// with its holder, also with one that is killed.
class OneDesk {
 public:
  explicit OneDesk(const std::string& path) : path_(path) {
    file_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    struct flock whole {};
    whole.l_type = F_WRLCK;
    has_ = file_ >= 0 && fcntl(file_, F_OFD_SETLK, &whole) == 0 && IsStillThere();
  }
  ~OneDesk() {
    if (has_) unlink(path_.c_str());
    if (file_ >= 0) close(file_);
  }
  OneDesk(const OneDesk&) = delete;
  OneDesk& operator=(const OneDesk&) = delete;

  bool CouldBeMade() const { return file_ >= 0; }
  bool Has() const { return has_; }

 private:
  // The one before may have removed the file between our opening and our lock.
  bool IsStillThere() const {
    struct stat ours {
    }, there{};
    return fstat(file_, &ours) == 0 && stat(path_.c_str(), &there) == 0 &&
           ours.st_ino == there.st_ino && ours.st_dev == there.st_dev;
  }

  const std::string path_;
  int file_ = -1;
  bool has_ = false;
};

// Where the old file goes: a name that nothing else has. (A run that was killed may have given it
// one already.)
fs::path NameToKeep(const fs::path& old) {
  for (int number = 1;; ++number) {
    const fs::path name = old.parent_path() /
                          (old.stem().string() + "_Jet" + (number > 1 ? Str(number) : "") + ".mdb");
    std::error_code error;
    if (!fs::exists(fs::symlink_status(name, error)) || fs::equivalent(name, old, error))
      return name;
  }
}

fs::file_time_type WrittenAt(const fs::path& path) {
  std::error_code ignored;
  return fs::last_write_time(path, ignored);
}

void Sync(const fs::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool failed = file < 0 || fsync(file) != 0;
  if (file >= 0) close(file);
  if (failed) throw RunTimeError(75, path.string() + " could not be written to the disk.");
}

// One conversion, from the question to the new file in its place.
class Opening {
 public:
  Opening(Application& app, const std::string& path)
      : app_(app),
        path_(fs::absolute(path)),
        new_(path_.string() + ".new"),
        kept_(NameToKeep(path_)) {}

  void Run() {
    const bool asksForPassword = jet::AsksForPassword(path_);
    Ask();
    const OneDesk lock(path_.string() + ".converting");
    if (!lock.CouldBeMade())
      Stop(app_, "KV_Inventory.mdb cannot be converted: its folder may not be written.");
    if (!lock.Has())
      Stop(app_,
           "Another desk is converting KV_Inventory.mdb at this moment. Please start the program "
           "again when it has finished.");
    // Somebody else may have done it while the question stood.
    if (!jet::IsJetFile(path_)) return;
    CheckRoom();
    RemoveRests();
    written_ = WrittenAt(path_);
    try {
      const jet::Conversion protocol = Convert(asksForPassword);
      AcceptLosses(protocol);
      PutInPlace(protocol);
      Tell(protocol);
    } catch (...) {
      RemoveRests();
      throw;
    }
  }

 private:
  void Ask() {
    const std::string question =
        "KV_Inventory.mdb is a database of the older program and must be converted. The old file "
        "is kept as " +
        kept_.filename().string() + ". Convert it now?";
    if (LockFileBeside(path_).empty()) return AskOrEnd(app_, question, Answer::Yes);
    AskOrEnd(app_,
             "WARNING - KV_Inventory.ldb stands beside the database: another desk may still be at "
             "work on it with the older program. What it saves from now on would be lost.\n\n" +
                 question,
             Answer::No);
  }

  void CheckRoom() {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path_, error);
    const std::uintmax_t free = fs::space(path_.parent_path(), error).available;
    constexpr double kMegabyte = 1024 * 1024;
    if (!error && free < kRoomFactor * size)
      Stop(app_, "KV_Inventory.mdb cannot be converted: the disk has not enough room. " +
                     Str(std::ceil(static_cast<double>(kRoomFactor * size) / kMegabyte)) +
                     " MB are needed.");
  }

  jet::Conversion Convert(bool asksForPassword) {
    jet::ConversionOrder order{path_.string()};
    std::string prompt = "KV_Inventory.mdb is protected by a password. Please enter it.";
    for (;;) {
      if (asksForPassword) {
        const auto password = app_.desktop.InputBox(prompt, "Convert");
        if (!password) throw EndOfProcess{};
        order.Password = *password;
      }
      try {
        return ConvertShown(order);
      } catch (const RunTimeError& error) {
        if (error.Number != kWrongPassword) throw;
        prompt = "This is not the password of KV_Inventory.mdb. Please enter it again.";
      }
    }
  }

  jet::Conversion ConvertShown(jet::ConversionOrder& order) {
    const Hourglass busy(app_.desktop);
    const auto progress = app_.desktop.NewProgress("Convert", false);
    order.Progress = TablesOn(*progress, "Converting");
    return ConvertInventory(order, new_.string());
  }

  void AcceptLosses(const jet::Conversion& protocol) {
    if (!protocol.HasTable(Schema().front().Name))
      Stop(app_, "KV_Inventory.mdb cannot be converted: it holds no inventory (there is no table " +
                     Schema().front().Name + "). It was left as it is.");
    const std::vector<std::string> losses = protocol.AllLosses();
    if (losses.empty()) return;
    std::string text = "Not all of KV_Inventory.mdb can be taken. This would be missing:\n\n";
    for (std::size_t i = 0; i < losses.size() && i < kMostLines; ++i) text += losses[i] + "\n";
    if (losses.size() > kMostLines)
      text += "and " + std::to_string(losses.size() - kMostLines) + " more\n";
    AskOrEnd(app_, text + "\nThe old file is kept whole. Convert what can be read?", Answer::No);
  }

  // At each moment one of the two stands whole under the name.
  void PutInPlace(const jet::Conversion& protocol) {
    if (WrittenAt(path_) != written_)
      Stop(app_,
           "KV_Inventory.mdb was written to while it was converted. Please close the older "
           "program on every desk and start again.");
    if (!protocol.IsWhole() || !protocol.Notes.empty()) WriteProtocol(protocol);
    TakeRights();
    std::error_code error;
    // The journal of a database that stood there before would be played back into the new one.
    fs::remove(path_.string() + "-journal", error);
    if (link(path_.c_str(), kept_.c_str()) != 0 && !fs::equivalent(path_, kept_, error)) {
      // A file system without links.
      if (!fs::copy_file(path_, kept_, error)) Fail(kept_);
      Sync(kept_);
    }
    Sync(path_.parent_path());
    fs::rename(new_, path_, error);
    if (error) Fail(path_);
    Sync(path_.parent_path());
  }

  // Whoever could write to the old file can write to the new one.
  void TakeRights() const {
    struct stat old {};
    if (stat(path_.c_str(), &old) != 0) return;
    if (chown(new_.c_str(), static_cast<uid_t>(-1), old.st_gid) == 0 || old.st_gid == getegid())
      chmod(new_.c_str(), (old.st_mode & 0777) | S_IRUSR | S_IWUSR);
  }

  void WriteProtocol(const jet::Conversion& protocol) const {
    const fs::path name = ProtocolFile();
    std::ofstream file(name);
    file << "KV_Inventory.mdb, converted to this program's own kind. The older one is "
         << kept_.filename().string() << ".\n\n"
         << ProtocolText(protocol);
    file.close();
    if (!file) Fail(name);
    Sync(name);
  }

  fs::path ProtocolFile() const { return fs::path(kept_).replace_extension(".txt"); }

  void Tell(const jet::Conversion& protocol) {
    double rows = 0;
    for (const jet::ConvertedTable& table : protocol.Tables) rows += table.Rows;
    std::string text = "KV_Inventory.mdb has been converted: " + Str(rows) + " rows in " +
                       std::to_string(protocol.Tables.size()) + " tables.";
    if (!protocol.IsWhole())
      text += "\n\nWhat is missing stands in " + ProtocolFile().filename().string() + ".";
    else if (!protocol.Notes.empty())
      text += "\n\nNotes stand in " + ProtocolFile().filename().string() + ".";
    app_.desktop.MsgBox({.text = text});
  }

  void RemoveRests() const {
    std::error_code ignored;
    for (const char* end : {"", ".new", "-journal"}) fs::remove(new_.string() + end, ignored);
  }

  [[noreturn]] static void Fail(const fs::path& path) {
    throw RunTimeError(75, path.string() + " could not be made.");
  }

  Application& app_;
  const fs::path path_, new_, kept_;
  fs::file_time_type written_;
};

}  // namespace

void ConvertAtOpening(Application& app, const std::string& path) {
  if (jet::IsJetFile(path)) Opening(app, path).Run();
}

}  // namespace kvi
