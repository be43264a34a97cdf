#pragma once

#include <string>

namespace kvi::test {

// Where the tests' server is, as libpq takes it; "" where none was started (see
// scripts/test-server).
std::string TestServer();

// The first field of a statement's answer on the tests' server, "" for none. Behind the database's
// name more may stand that libpq takes. Raises std::runtime_error with the server's message.
std::string AskServer(const std::string& database, const std::string& sql);

// A database of its own on the tests' server, with our functions and no tables, gone with it.
class ServerDatabase {
 public:
  ServerDatabase();
  ~ServerDatabase();
  ServerDatabase(const ServerDatabase&) = delete;
  ServerDatabase& operator=(const ServerDatabase&) = delete;

  const std::string& Conninfo() const { return conninfo_; }

 private:
  std::string name_, conninfo_;
};

}  // namespace kvi::test
