#include "utilities/BulkTasks.h"

#include <algorithm>

#include "base/Text.h"
#include "frame/Application.h"
#include "frame/BulkWalk.h"
#include "frame/Wording.h"
#include "jet/KeyedRows.h"
#include "partgroups/PartGroupLine.h"
#include "platform/Hourglass.h"
#include "store/SaveRecord.h"

namespace kvi {

namespace {

struct PartText {
  Value name, desc;
};
using PartTexts = jet::KeyedRows<PartText>;

// By number, whatever the profit center: of two parts of one number the first wins.
PartTexts ReadPartTexts(jet::Database& database) {
  PartTexts texts;
  auto parts =
      database.OpenSnapshot("SELECT inv_id, name, desc FROM I_MASTER", {"inv_id", "name", "desc"});
  for (; !parts.Eof(); parts.MoveNext()) texts.Add(parts["inv_id"], {parts["name"], parts["desc"]});
  return texts;
}

void CopyPartTexts(jet::Database& database, Progress& progress) {
  const PartTexts texts = ReadPartTexts(database);
  auto lines = database.OpenRecordset("SELECT * FROM Inv_Recipe");
  progress.Begin("Lines", lines.RecordCount());
  const auto partOf = [&](const jet::Recordset& line) {
    return IsNestedLine(line.Text("desc")) ? nullptr : texts.FirstOf(Trim(line.Text("inv_id")));
  };
  const auto differs = [&](const jet::Recordset& line) {
    const PartText* part = partOf(line);
    return part && (line["iname"] != part->name || line["desc"] != part->desc);
  };
  const auto copyTexts = [&](jet::Recordset& line) {
    const PartText* part = partOf(line);
    if (!part) return RowEnd::Leave;
    line.Set("iname", part->name);
    line.Set("desc", part->desc);
    return RowEnd::Write;
  };
  WalkAndChange(database, lines, copyTexts, differs, &progress);
}

}  // namespace

bool SetInAllParts(Application& app, const std::vector<FieldValue>& fields) {
  const Hourglass busy(app.desktop);
  jet::Recordset& parts = app.ItemSet;
  const auto differs = [&](const jet::Recordset& part) {
    return std::ranges::any_of(fields,
                               [&](const FieldValue& to) { return part[to.field] != to.value; });
  };
  const auto change = [&](jet::Recordset& part) {
    for (const FieldValue& to : fields) part.Set(to.field, to.value);
    return RowEnd::Write;
  };
  return SaveRecord(app.desktop, app.CurrentDatabase, [&] {
           const auto progress = app.desktop.NewProgress("Utilities", false);
           progress->Begin("Parts", parts.RecordCount());
           if (parts.RecordCount() > 0) parts.MoveFirst();
           WalkAndChange(app.CurrentDatabase, parts, change, differs, progress.get());
         }) == SaveEnd::Saved;
}

bool UpdatePartGroupItems(Application& app) {
  const Hourglass busy(app.desktop);
  return SaveRecord(app.desktop, app.CurrentDatabase, [&] {
           const auto progress = app.desktop.NewProgress(kPartGroups, false);
           CopyPartTexts(app.CurrentDatabase, *progress);
         }) == SaveEnd::Saved;
}

bool RunTogether(Application& app, const std::vector<std::string>& statements) {
  const Hourglass busy(app.desktop);
  jet::Database& database = app.CurrentDatabase;
  return WriteUnderLocks(app.desktop, database, [&] {
    database.WriteAtOnce([&] {
      for (const std::string& statement : statements) database.Execute(statement);
    });
  });
}

}  // namespace kvi
