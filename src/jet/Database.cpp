#include "jet/Database.h"

#include <cstdlib>
#include <filesystem>

#include "base/HiddenFolder.h"
#include "base/RunTimeError.h"
#include "jet/engine/FieldRules.h"
#include "jet/engine/StatementRun.h"
#include "jet/sets/Dynaset.h"
#include "jet/sets/QueryCache.h"
#include "jet/sets/Snapshot.h"
#include "jet/sqlite/SqliteTables.h"

namespace kvi::jet {
namespace {

OpenFile& Required(const std::shared_ptr<OpenFile>& engine) {
  if (!engine) throw RunTimeError(3420);
  engine->RequireOpen();
  return *engine;
}

void MakeTables(const std::string& path, const std::vector<TableDef>& tables) {
  SqliteConnection connection(path);
  connection.Run("PRAGMA page_size=16384;BEGIN");
  for (const TableDef& table : tables) CreateTable(connection, table);
  connection.Run("COMMIT");
}

}  // namespace

Database::Database() = default;
Database::Database(std::shared_ptr<OpenFile> engine) : engine_(std::move(engine)) {}
Database::Database(Database&&) noexcept = default;
Database::~Database() {
  Close();
}

Database& Database::operator=(Database&& other) noexcept {
  if (this == &other) return *this;
  Close();
  engine_ = std::move(other.engine_);
  return *this;
}

Database Database::Open(const std::string& path, bool exclusive) {
  return Database(std::make_shared<OpenFile>(OpenConnection(path, exclusive)));
}

Database Database::Create(const std::string& path, const std::vector<TableDef>& tables) {
  std::error_code error;
  if (MakeTablesOnServer(path, tables)) {
    Database made = Open(path, false);
    made.UseDefaultsOf(tables);
    return made;
  }
  if (std::filesystem::exists(path, error)) throw RunTimeError(3204);
  // Under another name until it is whole: a start that is broken off leaves no half a database.
  const std::string unfinished = path + ".new";
  std::filesystem::remove(unfinished, error);
  try {
    MakeTables(unfinished, tables);
    // The journal of a database that is gone would be played back into the new one.
    std::filesystem::remove(path + "-journal", error);
    std::filesystem::rename(unfinished, path, error);
    if (error) throw RunTimeError(3051);
  } catch (const RunTimeError&) {
    std::filesystem::remove(unfinished, error);
    throw;
  }
  Database made = Open(path, false);
  made.UseDefaultsOf(tables);
  return made;
}

// The copy lives as long as it is open: its name is gone before anybody gets it.
ForeignDatabase Database::OpenForeign(const std::string& path, const std::string& password) {
  const HiddenFolder folder;
  const std::string copy = folder / "foreign.mdb";
  ForeignDatabase foreign;
  if (IsJetFile(path))
    foreign.Protocol = ConvertOldFile({path, password}, copy);
  else
    Open(path, false).CopyTo(copy);
  auto opened = std::make_unique<SqliteConnection>(copy, true);
  SqliteConnection& connection = *opened;
  const auto engine = std::make_shared<OpenFile>(std::move(opened));
  for (const ConvertedTable& table : foreign.Protocol.Tables)
    if (!table.Losses.empty() && engine->tables.Find(table.Name))
      connection.Run("DROP TABLE " + Bracketed(table.Name));
  engine->tables.Forget();
  connection.Run("PRAGMA query_only=ON");
  foreign.Content = Database(engine);
  return foreign;
}

bool Database::IsOpen() const {
  return engine_ && engine_->IsOpen();
}

void Database::Close() {
  if (engine_) engine_->Close();
  engine_.reset();
}

Recordset Database::OpenRecordset(std::string_view sql) {
  OpenFile& engine = Required(engine_);
  engine.lock.Breathe();
  engine.Look();
  const auto query = engine.queries.Find(sql);
  if (query->translation.kind != Translation::Kind::Select) throw RunTimeError(3219);
  if (query->shape) return Recordset(std::make_unique<Dynaset>(engine_, *query));
  return Recordset(std::make_unique<Snapshot>(engine_, *query));
}

Recordset Database::OpenSnapshot(std::string_view sql, const std::vector<std::string>& fields) {
  OpenFile& engine = Required(engine_);
  engine.lock.Breathe();
  engine.Look();
  const auto query = engine.queries.Find(sql);
  if (query->translation.kind != Translation::Kind::Select) throw RunTimeError(3219);
  return Recordset(std::make_unique<Snapshot>(engine_, *query, fields));
}

long Database::Execute(std::string_view sql) {
  OpenFile& engine = Required(engine_);
  engine.Look();
  const auto query = engine.queries.Find(sql);
  if (query->translation.kind != Translation::Kind::Action) throw RunTimeError(3065);
  long count = 0;
  engine.lock.Run(LockScope::All, [&] {
    StatementRun run(engine.connection, query->translation.Sql);
    run.BindAll(query->translation.Parameters);
    run.Step();
    count = engine.connection.RowsWritten();
  });
  if (count > 0) engine.watch.Distrust();
  return count;
}

std::vector<TableDef> Database::TableDefs() {
  OpenFile& engine = Required(engine_);
  engine.Look();
  return engine.tables.Tables();
}

void Database::UseDefaultsOf(const std::vector<TableDef>& tables) {
  Required(engine_).tables.UseDefaultsOf(tables);
}

void Database::AppendField(std::string_view table, const FieldDef& field) {
  OpenFile& engine = Required(engine_);
  engine.Look();
  engine.lock.Run(LockScope::All, [&] { engine.tables.AppendField(table, field); });
  engine.tables.Forget();
}

std::string Database::Path() const {
  return Required(engine_).connection.Path();
}

std::uint64_t Database::ChangeCount() {
  OpenFile& engine = Required(engine_);
  engine.Look();
  return engine.watch.Commits();
}

void Database::CopyTo(const std::string& path) {
  OpenFile& engine = Required(engine_);
  engine.lock.GiveBack();
  engine.connection.CopyTo(path);
}

void Database::Check() {
  Required(engine_).connection.Check();
}

void Database::ReplaceContentWith(const std::string& path) {
  OpenFile& engine = Required(engine_);
  if (engine.lock.InBatch()) throw RunTimeError(5);
  std::error_code error;
  if (std::filesystem::equivalent(path, Path(), error))
    throw RunTimeError(3045, "'" + path + "' is the open database itself.");
  engine.lock.GiveBack();
  const auto content = engine.connection.OpenContent(path);
  engine.lock.Run(LockScope::All, [&] { content->PutIn(engine.watch.Generation() + 1); });
  engine.watch.Look();
  engine.tables.Forget();
}

void Database::WriteAtOnce(const std::function<void()>& work) {
  OpenFile& engine = Required(engine_);
  if (engine.lock.InBatch()) throw RunTimeError(5);
  for (;;) {
    try {
      engine.lock.EnterBatch(true);
      const LeavingBatch leaving{engine.lock};
      work();
      engine.lock.CommitGroup();
      return;
    } catch (const RunTimeError& error) {
      if (error.Number != 3260 || !engine.connection.AskToWait()) throw;
    }
  }
}

void Database::OnLocked(std::function<bool()> ask) {
  Required(engine_).connection.OnLocked = std::move(ask);
}

ReadTogether::ReadTogether(Database& database) : engine_(database.engine_) {
  begun_ = Required(engine_).lock.BeginRead();
}

ReadTogether::~ReadTogether() {
  if (begun_ && engine_->IsOpen()) engine_->lock.EndRead();
}

void Database::GiveBackLocks() {
  Required(engine_).lock.GiveBack();
}

}  // namespace kvi::jet
