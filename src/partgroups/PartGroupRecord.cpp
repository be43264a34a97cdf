#include "partgroups/PartGroupRecord.h"

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/StrgSubs.h"

namespace kvi {

namespace {

constexpr std::size_t kLongestCategory = 50;
constexpr int kMostCopied = 100;
constexpr int kOutOfRange = 9, kDataChanged = 3197;

constexpr const char* kCopiedFields[] = {"inv_id",   "iname",    "desc", "qty",
                                         "how_used", "cost_per", "notes"};

std::string LinesWhere(const std::string& number) {
  return "SELECT * FROM Inv_Recipe where Rec_ID = '" + number + "'";
}

// A number that breaks the search is no part's.
std::string PresentName(jet::Recordset& items, const std::string& number,
                        const std::string& nameThen) {
  try {
    items.FindFirst("inv_id = '" + number + "'");
    return items.NoMatch() ? nameThen : items.Text("name");
  } catch (const RunTimeError&) {
    return nameThen;
  }
}

void EditLatest(jet::Recordset& row) {
  try {
    row.Edit();
  } catch (const RunTimeError& error) {
    if (error.Number != kDataChanged) throw;
  }
}

void SetHeader(jet::Recordset& group, const PartGroupHeader& header) {
  group.Set("category", Trim(Left(header.category, kLongestCategory)));
  group.Set("rec_id", header.number);
  group.Set("name", header.name);
  group.Set("notes", header.notes);
}

void StandOn(jet::Recordset& groups, const std::string& number) {
  groups.FindFirst("REC_ID = '" + number + "'");
  if (groups.NoMatch()) groups.MoveLast();
}

void AddEntry(jet::Recordset& lines, const PartGroupSave& save, const PartGroupEntry& entry) {
  lines.AddNew();
  lines.Set("pcenter", save.profitCenter);
  lines.Set("rec_id", save.header.number);
  lines.Set("inv_id", entry.inv_id);
  lines.Set("iname", entry.iname);
  lines.Set("how_used", entry.how_used);
  lines.Set("qty", entry.qty);
  lines.Set("cost_per", entry.cost_per);
  lines.Set("desc", entry.desc);
  lines.Set("notes", entry.notes);
  lines.Update();
}

void WriteAll(jet::Database& database, jet::Recordset& groups, const PartGroupSave& save) {
  if (save.isNew)
    groups.AddNew();
  else
    EditLatest(groups);
  jet::Recordset lines = database.OpenRecordset(save.replaced);
  groups.Set("pcenter", save.profitCenter);
  SetHeader(groups, save.header);
  groups.Update();
  if (save.isNew) StandOn(groups, save.header.number);
  for (; !lines.Eof(); lines.MoveNext()) lines.Delete();
  for (const PartGroupEntry& entry : save.entries) AddEntry(lines, save, entry);
}

using CopiedLine = std::vector<Value>;  // in the order of kCopiedFields

std::vector<CopiedLine> HoldLines(jet::Recordset& lines) {
  std::vector<CopiedLine> held;
  for (; !lines.Eof(); lines.MoveNext()) {
    CopiedLine& line = held.emplace_back();
    for (const char* field : kCopiedFields) line.push_back(lines[field]);
    line.front() = Trim(line.front().Text());
  }
  return held;
}

void AddCopy(jet::Recordset& lines, const std::string& number, const CopiedLine& line) {
  lines.AddNew();
  lines.Set("rec_id", number);
  std::size_t at = 0;
  for (const char* field : kCopiedFields) lines.Set(field, line[at++]);
  lines.Update();
}

}  // namespace

std::string LinesOfGroup(const std::string& number) {
  return LinesWhere(number) + " ORDER BY inv_id";
}

std::string LinesOfGroup(const std::string& number, int profitCenter) {
  return LinesWhere(number) + " and pcenter = " + Str(profitCenter) + " ORDER BY inv_id";
}

PartGroupHeader ReadHeader(const jet::Recordset& group) {
  return {group.Text("Rec_ID"), group.Text("name"), group.Text("category"), group.Text("notes")};
}

std::vector<PartGroupEntry> ReadEntries(jet::Database& database, const std::string& statement,
                                        jet::Recordset& items) {
  std::vector<PartGroupEntry> entries;
  jet::Recordset lines = database.OpenRecordset(statement);
  for (; !lines.Eof(); lines.MoveNext()) {
    const std::string number = Trim(lines.Text("inv_id"));
    entries.push_back({.inv_id = number,
                       .iname = PresentName(items, number, lines.Text("iname")),
                       .how_used = Trim(lines.Text("how_used")),
                       .cost_per = lines["cost_per"],
                       .desc = Trim(lines.Text("desc")),
                       .notes = Trim(lines.Text("notes"))});
  }
  return entries;
}

void WriteGroup(jet::Database& database, jet::Recordset& groups, const PartGroupSave& save) {
  try {
    database.WriteAtOnce([&] { WriteAll(database, groups, save); });
  } catch (...) {
    // The set lives on, and keeps neither the edit nor its lock.
    groups.CancelUpdate();
    throw;
  }
}

bool DuplicateGroup(jet::Database& database, jet::Recordset& groups,
                    const PartGroupHeader& original, double cost) {
  PartGroupHeader copy = original;
  copy.number += kDuplicateMark;
  copy.name += kDuplicateMark;
  if (!database.OpenRecordset("SELECT * FROM r_master WHERE Rec_ID = '" + copy.number + "';").Eof())
    return false;
  jet::Recordset lines = database.OpenRecordset(LinesWhere(original.number) + ";");
  const std::vector<CopiedLine> held = HoldLines(lines);
  const bool tooMany = held.size() > kMostCopied;
  database.WriteAtOnce([&] {
    groups.AddNew();
    SetHeader(groups, copy);
    groups.Set("cost", cost);
    groups.Update();
    if (tooMany) return;
    for (const CopiedLine& line : held) AddCopy(lines, copy.number, line);
  });
  if (tooMany) throw RunTimeError(kOutOfRange);
  return true;
}

}  // namespace kvi
