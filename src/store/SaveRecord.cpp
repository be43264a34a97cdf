#include "store/SaveRecord.h"

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "store/DButils.h"

namespace kvi {

namespace {

constexpr int kDataChanged = 3197;
constexpr int kDuplicateKey = 3022;
constexpr int kConnectionFailed = 3146;

// The user would not wait for the lock any longer.
struct NotWaiting {};

bool AskToTryAgain(Desktop& desktop) {
  return desktop.MsgBox({.text =
                             "WARNING - Waiting for other user(s) to save changes to this data!\n\n"
                             "Your changes will overwrite any previous changes.\n\n"
                             "Attempt to save changes again?",
                         .title = "KV Inventory Save",
                         .buttons = Buttons::YesNo,
                         .icon = Icon::Question}) == Answer::Yes;
}

// The engine's own list of what went wrong; here it has the one entry.
void ShowEngineErrors(Desktop& desktop, const RunTimeError& error) {
  desktop.MsgBox({.text = Str(error.Number) + " " + error.Description, .icon = Icon::Error});
}

}  // namespace

void SaveStatements::operator()(const std::function<void()>& statement) {
  for (;;) {
    try {
      statement();
      return;
    } catch (const RunTimeError& error) {
      if (error.Number == kDataChanged) return;
      if (!IsLockError(error.Number)) throw;
      if (!AskToTryAgain(desktop_)) throw NotWaiting{};
    }
  }
}

SaveEnd SaveRecord(Desktop& desktop, const std::function<void(SaveStatements&)>& save) {
  SaveStatements statements(desktop);
  try {
    save(statements);
    return SaveEnd::Saved;
  } catch (const NotWaiting&) {
    desktop.MsgBox({.text = "Changes have NOT been saved", .title = "KV Inventory"});
    return SaveEnd::GivenUp;
  } catch (const RunTimeError& error) {
    if (error.Number == kDuplicateKey) {
      desktop.MsgBox({.text = "Duplicate # found.  Please enter a different #.\n"
                              "Changes NOT saved.",
                      .title = "Save Changes"});
      return SaveEnd::Duplicate;
    }
    if (error.Number == kConnectionFailed) {
      ShowEngineErrors(desktop, error);
      return SaveEnd::Failed;
    }
    desktop.MsgBox(
        {.text = "An error has occurred saving data." + Str(error.Number) + " " + error.Description,
         .title = "KV Inventory Save Changes",
         .icon = Icon::Error});
    return SaveEnd::Failed;
  }
}

void LoadStatements::operator()(const std::function<void()>& statement) const {
  try {
    statement();
  } catch (const RunTimeError& error) {
    ShowEngineErrors(desktop_, error);
  }
}

}  // namespace kvi
