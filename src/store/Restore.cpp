#include "store/Restore.h"

#include <algorithm>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/Application.h"
#include "platform/Hourglass.h"
#include "store/BackUp.h"
#include "store/OpenInventoryDatabase.h"
#include "store/SaveRecord.h"
#include "store/Schema.h"

namespace kvi {

// (Fields that are missing are added at the next opening; what a later version has more than this
// one stays.)
void RequireInventoryFile(const std::string& path) {
  jet::Database database = jet::Database::Open(path, false);
  database.Check();
  const auto standing = database.TableDefs();
  for (const jet::TableDef& wanted : Schema())
    if (std::ranges::none_of(standing, [&](const jet::TableDef& table) {
          return EqualsNoCase(table.Name, wanted.Name);
        }))
      throw RunTimeError(3343, "'" + path + "' is no database of this program: the table " +
                                   wanted.Name + " is missing.");
}

bool RestoreDatabase(Application& app, const std::string& path) {
  try {
    {
      const Hourglass busy(app.desktop);
      RequireInventoryFile(path);
    }
    if (!BackUpBefore(app, "restoring a copy")) return false;
    const Hourglass busy(app.desktop);
    jet::Database& database = app.CurrentDatabase;
    if (!WriteUnderLocks(app.desktop, database, [&] { database.ReplaceContentWith(path); }))
      return false;
  } catch (const RunTimeError& error) {
    app.desktop.MsgBox({.text = "The copy could not be restored.  Nothing was changed.\n\n" +
                                Str(error.Number) + " " + error.Description,
                        .icon = Icon::Error});
    return false;
  }
  ReopenInventoryDatabase(app);
  return true;
}

}  // namespace kvi
