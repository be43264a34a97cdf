#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "base/RunTimeError.h"
#include "jet/JetTestFile.h"
#include "jet/Server.h"
#include "support/ServerDatabase.h"

namespace kvi::jet {
namespace {

// libpq's surroundings stand for the server on which the administrator runs the program.
class ServerAdministrationTest : public testing::Test {
 protected:
  void SetUp() override {
    if (test::TestServer().empty()) GTEST_SKIP() << "no test server";
    setenv("PGHOST", test::TestServer().substr(5, test::TestServer().find(' ') - 5).c_str(), 1);
    setenv("PGUSER", test::TestServer().substr(test::TestServer().find("user=") + 5).c_str(), 1);
    const std::string number = std::to_string(getpid());
    setUp_ = {"made_" + number, "owner_" + number, "desks_" + number, [] { return "geheim"; }};
  }
  void TearDown() override {
    if (test::TestServer().empty()) return;
    test::AskServer("postgres", "DROP DATABASE IF EXISTS " + setUp_.Database);
    for (const std::string& role : {setUp_.Desk, setUp_.Owner})
      test::AskServer("postgres", "DROP ROLE IF EXISTS " + role);
  }
  std::string Refusal(const std::function<void()>& act) {
    try {
      act();
    } catch (const RunTimeError& error) {
      return std::to_string(error.Number) + " " + error.Description;
    }
    return "none";
  }
  std::string Made(const std::string& catalog, const std::string& field, const std::string& name) {
    return test::AskServer(
        "postgres", "SELECT count(*) FROM " + catalog + " WHERE " + field + " = '" + name + "'");
  }

  ServerSetUp setUp_;
};

TEST_F(ServerAdministrationTest, ADatabaseStandsWithItsRolesOrNothingDoes) {
  std::vector<TableDef> tables = TestTables();
  tables.push_back(tables[0]);
  EXPECT_NE(Refusal([&] { CreateServerDatabase(setUp_, tables); }), "none");
  EXPECT_EQ(Made("pg_database", "datname", setUp_.Database), "0");
  EXPECT_EQ(Made("pg_roles", "rolname", setUp_.Desk) + Made("pg_roles", "rolname", setUp_.Owner),
            "00");

  CreateServerDatabase(setUp_, TestTables());
  const std::string asDesk = setUp_.Database + " user=" + setUp_.Desk;
  EXPECT_EQ(test::AskServer(
                asDesk,
                "INSERT INTO public.i_master(name) VALUES('Öl') RETURNING _k_name = kvi.key('öL')"),
            "t");
  test::AskServer(asDesk, "ALTER TABLE public.i_master ADD COLUMN later bigint");
  test::AskServer(asDesk, "CREATE TABLE public.later()");
  EXPECT_EQ(test::AskServer(asDesk, "SELECT tableowner FROM pg_tables WHERE tablename = 'later'"),
            setUp_.Owner);
  EXPECT_EQ(test::AskServer(asDesk, "SHOW idle_in_transaction_session_timeout"), "10s");
  EXPECT_EQ(
      test::AskServer("postgres", "SELECT left(rolpassword, 13) FROM pg_authid WHERE rolname = '" +
                                      setUp_.Desk + "'"),
      "SCRAM-SHA-256");
  const auto state = WatchServerDatabase(setUp_.Database);
  EXPECT_EQ(state[0].second + " " + state[2].second, "1 3");
  EXPECT_EQ(Refusal([&] { CreateServerDatabase(setUp_, TestTables()); }),
            "3204 The database " + setUp_.Database + " is there already.");
}

TEST_F(ServerAdministrationTest, WhatIsWrongIsToldInASentence) {
  EXPECT_EQ(Refusal([] { WatchServerDatabase("postgres"); }),
            "3343 The database postgres is no stockroom.");
  EXPECT_EQ(Refusal([] { WatchServerDatabase("nowhere"); }),
            "3051 database \"nowhere\" does not exist");
  CreateServerDatabase(setUp_, {});
  test::AskServer(setUp_.Database, "UPDATE kvi.settings SET value = '7' WHERE name = 'version'");
  EXPECT_EQ(Refusal([&] { WatchServerDatabase(setUp_.Database); }),
            "3343 The database " + setUp_.Database + " is of version 7, this program of 1.");

  ServerSetUp other = setUp_;
  other.Database = "Stock room";
  EXPECT_EQ(Refusal([&] { CreateServerDatabase(other, {}); }).substr(0, 1), "5");
  setenv("PGUSER", setUp_.Desk.c_str(), 1);
  EXPECT_EQ(Refusal([&] { CreateServerDatabase(setUp_, {}); }),
            "3051 Run it as the server's administrator: sudo -u postgres kvi-server ...");
  setenv("PGHOST", "/nowhere", 1);
  EXPECT_TRUE(Refusal([&] {
                CreateServerDatabase(setUp_, {});
              }).starts_with("3051 The server does not answer: "));
}

}  // namespace
}  // namespace kvi::jet
