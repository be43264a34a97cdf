#include "base/RunTimeError.h"
#include "base/Text.h"
#include "jet/engine/FieldRules.h"
#include "jet/postgres/PostgresConnection.h"
#include "jet/postgres/PostgresError.h"
#include "jet/postgres/PostgresIndexes.h"
#include "jet/postgres/ServerTables.h"

namespace kvi::jet {
namespace {

constexpr const char* kTables =
    "SELECT coalesce(obj_description(oid),relname) FROM pg_class WHERE relkind='r' AND "
    "relnamespace='public'::regnamespace ORDER BY oid";

// A table's columns: the server's name, its type, the spelling, whether it is unique; and of the
// table the spelling and the number.
constexpr const char* kColumns =
    "SELECT a.attname,format_type(a.atttypid,a.atttypmod),"
    "coalesce(col_description(c.oid,a.attnum),a.attname),"
    "EXISTS(SELECT 1 FROM pg_index i WHERE i.indrelid=c.oid AND i.indisunique AND NOT "
    "i.indisprimary AND a.attnum=ANY(i.indkey)),"
    "coalesce(obj_description(c.oid),c.relname),c.oid,a.attnum "
    "FROM pg_class c JOIN pg_attribute a ON a.attrelid=c.oid WHERE c.relkind='r' AND "
    "c.relnamespace='public'::regnamespace AND c.relname=$1 AND a.attnum>0 AND NOT a.attisdropped "
    "ORDER BY a.attnum";

constexpr std::string_view kKey = "_k_", kTrimmedKey = "_t_";

}  // namespace

std::vector<std::string> PostgresConnection::TableNames() {
  const ServerResult tables = Ask(kTables);
  std::vector<std::string> names;
  for (int row = 0; row < PQntuples(tables.get()); ++row)
    names.emplace_back(PQgetvalue(tables.get(), row, 0));
  return names;
}

std::shared_ptr<StoredTable> PostgresConnection::ReadTable(std::string_view table) {
  const ServerResult columns = Run(kColumns, {{kServerText, false, LCase(table)}}, true);
  if (PQntuples(columns.get()) == 0) return nullptr;
  auto stored = std::make_shared<StoredTable>();
  for (int row = 0; row < PQntuples(columns.get()); ++row) {
    const auto text = [&](int column) {
      return std::string(PQgetvalue(columns.get(), row, column));
    };
    const std::string name = text(0);
    stored->Name = text(4);
    if (name == "_rid") {
      stored->Key = name;
    } else if (name == "_ver") {
      stored->Versioned = true;
    } else if (name.starts_with(kKey)) {
      if (text(3) == "t") stored->UniqueFields.push_back(name.substr(kKey.size()));
    } else if (name.starts_with(kTrimmedKey)) {
      stored->TrimmedKeys.push_back(name.substr(kTrimmedKey.size()));
    } else {
      stored->Fields.push_back(FieldOfColumn(text(2), text(1)));
      if (text(3) == "t") stored->UniqueFields.push_back(name);
      columns_[{static_cast<Oid>(std::stoul(text(5))), std::stoi(text(6))}] = {text(2), text(1)};
    }
  }
  return stored;
}

void PostgresConnection::AppendField(const StoredTable& table, const FieldDef& field) {
  ActAsOwner();
  for (const std::string& sql : ServerFieldSql(table.Name, field)) Ask(sql);
  TellOfTables();
}

void PostgresConnection::CreateTables(const std::vector<TableDef>& tables) {
  if (!TableNames().empty()) throw RunTimeError(3204);
  if (!TakeWriteLock(LockScope::All)) throw RunTimeError(3260);
  try {
    ActAsOwner();
    for (const TableDef& table : tables) {
      for (const std::string& sql : ServerTableSql(table)) RunLater(sql, {});
      KeepIndexes(table);
    }
    TellOfTables();
    if (!Commit()) throw RunTimeError(3260);
  } catch (...) {
    RollBack();
    throw;
  }
}

void PostgresConnection::ActAsOwner() {
  Ask("SELECT set_config('role',nspowner::regrole::text,true) FROM pg_namespace WHERE "
      "nspname='kvi'");
}

void PostgresConnection::TellOfTables() {
  Ask("INSERT INTO kvi.settings VALUES('schema','1') ON CONFLICT(name) DO UPDATE SET "
      "value=(settings.value::bigint+1)::text");
}

void PostgresConnection::KeepIndexes(const TableDef& table) {
  RunLater(
      "INSERT INTO kvi.settings VALUES('indexes of '||$1,$2) ON CONFLICT(name) DO UPDATE SET "
      "value=excluded.value",
      {{kServerText, false, LCase(table.Name)},
       {kServerText, false, IndexesAsText(table.Indexes)}});
}

std::vector<IndexDef> PostgresConnection::KeptIndexes(const std::string& table) {
  const ServerResult kept = Run("SELECT value FROM kvi.settings WHERE name='indexes of '||$1",
                                {{kServerText, false, LCase(table)}}, true);
  if (PQntuples(kept.get()) == 0) return {};
  return IndexesOfText(PQgetvalue(kept.get(), 0, 0));
}

void PostgresConnection::CopyIn(const std::string& sql,
                                const std::function<bool(std::string&)>& next) {
  try {
    Exchange();
    line_.Copy(sql, next);
  } catch (const ServerFailure& failure) {
    if (failure.IsLine()) Lost(failure);
    RollBack();
    RaiseServerError(failure);
  }
}

}  // namespace kvi::jet
