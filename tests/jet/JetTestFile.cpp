#include "jet/JetTestFile.h"

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "base/RunTimeError.h"
#include "jet/sqlite/JetFunctions.h"
#include "support/TableText.h"

namespace kvi::jet {

std::vector<TableDef> TestTables() {
  return {{"I_Master",
           {{"inv_id", FieldType::Text, 15},
            {"name"},
            {"pcenter", FieldType::Integer},
            {"qty", FieldType::Double},
            {"bought", FieldType::Date},
            {"corp", FieldType::Boolean},
            {"notes", FieldType::Memo}},
           {{{"inv_id"}, true}, {{"trim(inv_id) COLLATE JET1"}}}},
          {"Historical Inventory",
           {{"Inv_ID", FieldType::Text, 15}, {"Amount", FieldType::Double}},
           {}}};
}

JetFile::JetFile()
    : path_(folder_ / "KV_Inventory.mdb"), db_(Database::Create(path_, TestTables())) {}

std::string JetFile::Rows(const std::string& sql, const std::string& fields) {
  return RowsOf(db_, sql, fields);
}

std::string JetFile::RowsOf(Database& database, const std::string& sql, const std::string& fields) {
  Recordset set = database.OpenRecordset(sql);
  return test::RowsText(set, fields);
}

void JetFile::AddParts(int count) {
  WriteBatch batch(db_);
  Recordset parts = db_.OpenRecordset("SELECT * FROM I_Master");
  for (int number = 1; number <= count; ++number) {
    parts.AddNew();
    parts.Set("inv_id", number);
    parts.Set("name", "Part " + std::to_string(number));
    parts.Set("qty", 10);
    parts.Update();
  }
  batch.Finish();
}

RawFile::RawFile(const std::string& path) {
  sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr);
  RegisterJetFunctions(db_);
}

RawFile::~RawFile() {
  sqlite3_close_v2(db_);
}

std::string RawFile::Ask(const std::string& sql) {
  std::string answer;
  const auto append = [](void* text, int, char** values, char**) {
    *static_cast<std::string*>(text) += std::string(values[0] ? values[0] : "Null") + "\n";
    return 0;
  };
  if (sqlite3_exec(db_, sql.c_str(), append, &answer, nullptr) != SQLITE_OK)
    return sqlite3_errmsg(db_);
  return answer;
}

OtherProcess::OtherProcess(const std::function<void(const Report&)>& action) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  pid_ = fork();
  if (pid_ == 0) {
    close(ends[0]);
    const auto report = [&](const std::string& line) {
      const std::string text = line + "\n";
      if (write(ends[1], text.data(), text.size()) < 0) _exit(1);
    };
    try {
      action(report);
    } catch (const RunTimeError& error) {
      report("Error " + std::to_string(error.Number) + " " + error.Description);
    } catch (const std::exception& error) {
      report(std::string("Fault ") + error.what());
    }
    _exit(0);
  }
  close(ends[1]);
  pipe_ = ends[0];
}

OtherProcess::~OtherProcess() {
  close(pipe_);
  Wait();
}

std::string OtherProcess::Line() {
  std::string line;
  for (char letter = 0; read(pipe_, &letter, 1) == 1 && letter != '\n';) line += letter;
  return line;
}

std::string OtherProcess::AllLines() {
  std::string all;
  for (std::string line = Line(); !line.empty(); line = Line()) all += line + "\n";
  Wait();
  return all;
}

void OtherProcess::Kill() {
  kill(pid_, SIGKILL);
}

void OtherProcess::GoOn() {
  kill(pid_, SIGCONT);
}

void OtherProcess::Wait() {
  if (pid_ > 0) waitpid(pid_, nullptr, 0);
  pid_ = -1;
}

void BecomeNobody() {
  constexpr uid_t kNobody = 65534;
  if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(1);
}

}  // namespace kvi::jet
