// What a server has and a file has not: rows locked one by one, sessions that end, lines that
// break.
#include <libpq-fe.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <optional>

#include "base/ErrorOf.h"
#include "base/RunTimeError.h"
#include "jet/JetTestFile.h"
#include "jet/Server.h"
#include "support/ServerDatabase.h"

namespace kvi::jet {
namespace {

constexpr int kNoLine = 3151;

// The first field of what the server answers to a statement.
std::string Ask(const std::string& conninfo, const std::string& sql) {
  PGconn* server = PQconnectdb(conninfo.c_str());
  PGresult* result = PQexec(server, sql.c_str());
  const std::string answer = PQntuples(result) > 0 ? PQgetvalue(result, 0, 0) : "";
  EXPECT_STREQ(PQresultErrorMessage(result), "");
  PQclear(result);
  PQfinish(server);
  return answer;
}

class ServerSharingTest : public testing::Test {
 protected:
  void SetUp() override {
    if (test::TestServer().empty()) GTEST_SKIP() << "no test server";
    server_.emplace();
    db_ = Database::Create(FileFor(server_->Conninfo()), TestTables());
    other_ = Database::Open(path_, false);
    for (const char* number : {"1", "2"})
      db_.Execute(std::string("INSERT INTO I_Master (inv_id, qty) VALUES ('") + number + "', 10)");
  }

  std::string FileFor(const std::string& conninfo) {
    const std::string path = folder_ / (std::to_string(++files_) + ".mdb");
    test::WriteFile(path, std::string(kServerFileMark) + "\n" + conninfo + "\n");
    return path_ = path;
  }
  // Ends the sessions of all desks but the one that asks.
  void EndSessions() {
    Ask(server_->Conninfo(),
        "SELECT count(pg_terminate_backend(pid, 5000)) FROM pg_stat_activity WHERE "
        "datname=current_database() AND pid<>pg_backend_pid()");
  }
  // The folder of the server's socket, and how to connect through another one.
  std::string Host() const {
    const std::string& conninfo = server_->Conninfo();
    const std::size_t at = conninfo.find(kHost) + kHost.size();
    return conninfo.substr(at, conninfo.find(' ', at) - at);
  }
  std::string Through(const std::string& socket) const {
    std::string conninfo = server_->Conninfo();
    return conninfo.replace(conninfo.find(kHost) + kHost.size(), Host().size(), socket);
  }
  std::string Levels() { return JetFile::RowsOf(other_, kLevels, "inv_id qty"); }

  static constexpr std::string_view kHost = "host=";
  static constexpr const char* kLevels = "SELECT * FROM I_Master ORDER BY inv_id";
  std::optional<test::ServerDatabase> server_;
  test::TemporaryFolder folder_;
  int files_ = 0;
  std::string path_;
  Database db_, other_;
};

// Between a desk and the server: it passes all on, until it drops the answer to the first commit
// and the line with it. Lines that come later are left alone.
class CuttingLine {
 public:
  enum class ComesBack { AtOnce, WhenTold };
  CuttingLine(const std::string& folder, const std::string& server,
              ComesBack comesBack = ComesBack::AtOnce)
      : listener_(socket(AF_UNIX, SOCK_STREAM, 0)), server_(server) {
    std::filesystem::create_directory(folder);
    std::filesystem::remove(folder + "/.s.PGSQL.5432");
    const sockaddr_un address = AddressIn(folder);
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, 8) != 0)
      throw std::runtime_error("no socket");
    pid_ = fork();
    if (pid_ == 0) {
      Pass(accept(listener_, nullptr, nullptr), true);
      test::WriteFile(folder + "/cut", "");
      if (comesBack != ComesBack::AtOnce) {
        // Whoever calls is turned away.
        while (!std::filesystem::exists(folder + "/back"))
          close(accept(listener_, nullptr, nullptr));
      }
      for (;;) Pass(accept(listener_, nullptr, nullptr), false);
    }
    close(listener_);
  }
  ~CuttingLine() { kill(pid_, SIGKILL); }

 private:
  static sockaddr_un AddressIn(const std::string& folder) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    (folder + "/.s.PGSQL.5432").copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
  }
  void Pass(int desk, bool cuts) const {
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    const sockaddr_un address = AddressIn(server_);
    if (connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) _exit(1);
    pollfd ends[] = {{desk, POLLIN, 0}, {server, POLLIN, 0}};
    for (bool open = true; open && poll(ends, 2, -1) > 0;) {
      for (const auto& [from, to] : {std::pair(0, 1), std::pair(1, 0)}) {
        if (ends[from].revents == 0) continue;
        char bytes[65536];
        const ssize_t count = read(ends[from].fd, bytes, sizeof bytes);
        const std::string_view text(bytes, count > 0 ? static_cast<std::size_t>(count) : 0);
        open = count > 0 &&
               !(cuts && from == 1 && text.find(std::string_view("COMMIT\0", 7)) != text.npos) &&
               write(ends[to].fd, bytes, text.size()) == count;
        if (!open) break;
      }
    }
    close(desk);
    close(server);
  }

  int listener_;
  std::string server_;
  pid_t pid_ = -1;
};

TEST_F(ServerSharingTest, AnEditHoldsItsRowAlone) {
  Recordset mine = db_.OpenRecordset(kLevels), theirs = other_.OpenRecordset(kLevels);
  mine.Edit();
  mine.Set("qty", mine.Number("qty") + 1);
  theirs.AddNew();
  theirs.Set("inv_id", "3");
  theirs.Update();
  theirs.MoveLast();
  theirs.MovePrevious();
  theirs.Edit();
  theirs.Set("qty", 20);
  theirs.Update();
  theirs.MoveFirst();
  EXPECT_EQ(theirs.Number("qty"), 10);
  EXPECT_EQ(ErrorOf([&] { theirs.Edit(); }), 3260);
  EXPECT_EQ(ErrorOf([&] { other_.Execute("UPDATE I_Master SET qty = 0"); }), 3260);
  mine.Update();
  EXPECT_EQ(ErrorOf([&] { theirs.Edit(); }), 3197);
  EXPECT_EQ(theirs.Number("qty"), 11);
  theirs.CancelUpdate();
  EXPECT_EQ(Levels(), "1|11\n2|20\n3|Null\n");
}

TEST_F(ServerSharingTest, AGroupWaitsForAnEditAndRunsAgainOnWhatItLeft) {
  Recordset mine = db_.OpenRecordset(kLevels);
  mine.Edit();
  mine.Set("qty", 100);
  int questions = 0;
  other_.OnLocked([&] {
    mine.Update();
    return ++questions == 1;
  });
  other_.WriteAtOnce([&] {
    Recordset set = other_.OpenRecordset(kLevels);
    for (; !set.Eof(); set.MoveNext()) {
      set.Edit();
      set.Set("qty", set.Number("qty") + 1);
      set.Update();
    }
  });
  other_.OnLocked({});
  EXPECT_EQ(questions, 1);
  EXPECT_EQ(Levels(), "1|101\n2|11\n");
}

TEST_F(ServerSharingTest, ASessionThatEndsLosesWhatItHeldAndNothingElse) {
  Recordset set = db_.OpenRecordset(kLevels), unmoved = db_.OpenRecordset(kLevels);
  set.Edit();
  set.Set("qty", 50);
  EndSessions();
  EXPECT_EQ(Levels(), "1|10\n2|10\n") << "whoever only reads hears nothing of it";
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), kNoLine);
  set.Update();
  EXPECT_EQ(Levels(), "1|50\n2|10\n");
  set.Edit();
  set.Set("qty", 60);
  EndSessions();
  other_.Execute("UPDATE I_Master SET qty = 70 WHERE inv_id = '1'");
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), kNoLine);
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), 3197) << "another desk was there meanwhile";
  set.Update();
  EXPECT_EQ(Levels(), "1|60\n2|10\n");

  const auto pass = [&] {
    WriteBatch batch(db_);
    for (Recordset all = db_.OpenRecordset(kLevels); !all.Eof(); all.MoveNext()) {
      all.Edit();
      all.Set("qty", 5);
      all.Update();
      EndSessions();
    }
    batch.Finish();
  };
  EXPECT_EQ(ErrorOf(pass), kNoLine);
  EXPECT_EQ(Levels(), "1|60\n2|10\n");
}

TEST_F(ServerSharingTest, ASaveWhoseAnswerWasLostIsNotMadeTwice) {
  const std::string socket = folder_ / "socket";
  for (const bool adds : {true, false}) {
    const CuttingLine line(socket, Host());
    Database desk = Database::Open(FileFor(Through(socket)), false);
    Recordset set = desk.OpenRecordset(kLevels);
    if (adds) {
      set.AddNew();
      set.Set("inv_id", "3");
    } else {
      set.Edit();
      set.Set("qty", set.Number("qty") + 1);
    }
    EXPECT_EQ(ErrorOf([&] { set.Update(); }), 0);
    EXPECT_TRUE(std::filesystem::remove(socket + "/cut"));
  }
  EXPECT_EQ(Levels(), "1|11\n2|10\n3|Null\n");
}

TEST_F(ServerSharingTest, ASaveOfWhichNobodyKnowsIsAskedAboutWhenItIsMadeAgain) {
  const std::string socket = folder_ / "socket";
  const CuttingLine line(socket, Host(), CuttingLine::ComesBack::WhenTold);
  Database desk = Database::Open(FileFor(Through(socket)), false);
  Recordset set = desk.OpenRecordset(kLevels), another = desk.OpenRecordset(kLevels);
  set.AddNew();
  set.Set("inv_id", "3");
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), kNoLine);
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), kNoLine) << "it cannot be told yet";
  another.AddNew();
  another.Set("inv_id", "4");
  test::WriteFile(socket + "/back", "");
  EXPECT_EQ(ErrorOf([&] { another.Update(); }), kNoLine) << "the last one that is turned away";
  another.Update();
  set.Update();
  EXPECT_EQ(Levels(), "1|10\n2|10\n3|Null\n4|Null\n");
}

TEST_F(ServerSharingTest, ADeskThatHangsLosesItsLock) {
  Ask(server_->Conninfo(),
      "DO $$BEGIN EXECUTE format('ALTER DATABASE %I SET "
      "idle_in_transaction_session_timeout=300',current_database()); END$$");
  OtherProcess desk([&](const OtherProcess::Report& report) {
    Database hanging = Database::Open(path_, false);
    Recordset set = hanging.OpenRecordset(kLevels);
    set.Edit();
    set.Set("qty", 99);
    report("held");
    raise(SIGSTOP);
    report(std::to_string(ErrorOf([&] { set.Update(); })));
    set.Update();
  });
  EXPECT_EQ(desk.Line(), "held");
  Recordset mine = db_.OpenRecordset(kLevels);
  mine.Edit();
  mine.Set("name", "Mine");
  mine.Update();
  desk.GoOn();
  EXPECT_EQ(desk.AllLines(), "3151\nError 3197 " + DescriptionOf(3197) + "\n");
  EXPECT_EQ(JetFile::RowsOf(other_, kLevels, "name qty"), "Mine|10\nNull|10\n");
}

TEST_F(ServerSharingTest, WhatIsNoDatabaseOfOursIsRefused) {
  const auto open = [&](const std::string& conninfo) {
    return ErrorOf([&] { Database::Open(FileFor(conninfo), false); });
  };
  EXPECT_EQ(open("host=" + folder_.Path().string()), kNoLine);
  EXPECT_EQ(open(server_->Conninfo() + " dbname=nowhere"), kNoLine);
  EXPECT_EQ(open(test::TestServer() + " dbname=postgres"), 3343);
  Ask(server_->Conninfo(), "UPDATE kvi.settings SET value='99' WHERE name='version'");
  EXPECT_EQ(open(server_->Conninfo()), 3343);
}

TEST_F(ServerSharingTest, ContentThatCannotBeReadToItsEndLeavesTheOldOne) {
  const std::string copy = folder_ / "copy.mdb";
  db_.CopyTo(copy);
  // The page of the first rows is no page any more, the list of tables is whole.
  std::string bytes = test::ReadFile(copy);
  for (std::size_t at = 16384; at < bytes.size(); ++at) bytes[at] = '?';
  test::WriteFile(copy, bytes);
  EXPECT_NE(ErrorOf([&] { db_.ReplaceContentWith(copy); }), 0);
  EXPECT_EQ(Levels(), "1|10\n2|10\n");
  db_.Execute("UPDATE I_Master SET qty = 1");
  EXPECT_EQ(Levels(), "1|1\n2|1\n") << "nothing is held";
}

}  // namespace
}  // namespace kvi::jet
