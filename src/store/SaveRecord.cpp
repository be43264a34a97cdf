#include "store/SaveRecord.h"

#include <chrono>
#include <exception>

#include "base/Number.h"
#include "base/RunTimeError.h"

namespace kvi {

namespace {

constexpr int kDuplicateKey = 3022;
constexpr int kConnectionFailed = 3146;

// While one lives, the engine asks the user about locks that last.
class LockQuestion {
 public:
  LockQuestion(Desktop& desktop, jet::Database& database) : database_(database) {
    database_.OnLocked([&desktop] {
      return desktop.MsgBox(
                 {.text = "WARNING - Waiting for other user(s) to save changes to this data!\n\n"
                          "Your changes will overwrite any previous changes.\n\n"
                          "Attempt to save changes again?",
                  .title = "KV Inventory Save",
                  .buttons = Buttons::YesNo,
                  .icon = Icon::Question}) == Answer::Yes;
    });
  }
  ~LockQuestion() {
    if (database_.IsOpen()) database_.OnLocked({});
  }
  LockQuestion(const LockQuestion&) = delete;
  LockQuestion& operator=(const LockQuestion&) = delete;

 private:
  jet::Database& database_;
};

// The engine's own list of what went wrong; here it has the one entry.
void ShowEngineErrors(Desktop& desktop, const RunTimeError& error) {
  desktop.MsgBox({.text = Str(error.Number) + " " + error.Description, .icon = Icon::Error});
}

SaveEnd TellFailure(Desktop& desktop, const RunTimeError& error, const std::string& alreadySaved) {
  if (error.Number == kDuplicateKey) {
    desktop.MsgBox({.text = "Duplicate # found.  Please enter a different #.\n"
                            "Changes NOT saved." +
                            alreadySaved,
                    .title = "Save Changes"});
    return SaveEnd::Duplicate;
  }
  if (error.Number == kConnectionFailed)
    ShowEngineErrors(desktop, error);
  else
    desktop.MsgBox({.text = "An error has occurred saving data." + Str(error.Number) + " " +
                            error.Description + alreadySaved,
                    .title = "KV Inventory Save Changes",
                    .icon = Icon::Error});
  return SaveEnd::Failed;
}

std::string Sentence(const std::function<std::string()>& alreadySaved) {
  const std::string text = alreadySaved ? alreadySaved() : "";
  return text.empty() ? text : "\n\n" + text;
}

}  // namespace

bool WriteUnderLocks(Desktop& desktop, jet::Database& database, const std::function<void()>& write,
                     const std::function<std::string()>& alreadySaved) {
  try {
    const LockQuestion question(desktop, database);
    write();
    return true;
  } catch (const jet::NotWaiting&) {
    desktop.MsgBox(
        {.text = "Changes have NOT been saved" + Sentence(alreadySaved), .title = "KV Inventory"});
    return false;
  }
}

SaveEnd SaveRecord(Desktop& desktop, jet::Database& database, const std::function<void()>& save,
                   const std::function<std::string()>& alreadySaved) {
  try {
    const bool saved = WriteUnderLocks(desktop, database, save, alreadySaved);
    return saved ? SaveEnd::Saved : SaveEnd::GivenUp;
  } catch (const RunTimeError& error) {
    return TellFailure(desktop, error, Sentence(alreadySaved));
  }
}

SaveEnd SaveOnce(Desktop& desktop, const std::function<void()>& save) {
  try {
    save();
    return SaveEnd::Saved;
  } catch (const RunTimeError& error) {
    return TellFailure(desktop, error, "");
  }
}

std::string SavedBefore(int lines, int of) {
  if (lines == 0) return "";
  return "Saved before that: " + Str(lines) + " of " + Str(of) + " lines.";
}

void SaveRows(jet::Database& database, int count, const std::function<void(int row)>& save,
              const std::function<void(int row)>& saved) {
  using Clock = std::chrono::steady_clock;
  constexpr std::chrono::milliseconds kGroup{100};
  std::exception_ptr failure;
  for (int first = 1; first <= count && !failure;) {
    int row = first;
    try {
      database.WriteAtOnce([&] {
        const Clock::time_point end = Clock::now() + kGroup;
        for (row = first; row <= count && Clock::now() < end; ++row) save(row);
      });
    } catch (const RunTimeError&) {
      if (row == first || row > count) throw;
      // The group went with its bad row: those before it are saved once more.
      failure = std::current_exception();
      database.WriteAtOnce([&] {
        for (int good = first; good < row; ++good) save(good);
      });
    }
    for (; first < row; ++first) saved(first);
  }
  if (failure) std::rethrow_exception(failure);
}

void LoadStatements::operator()(const std::function<void()>& statement) const {
  try {
    statement();
  } catch (const RunTimeError& error) {
    ShowEngineErrors(desktop_, error);
  }
}

}  // namespace kvi
