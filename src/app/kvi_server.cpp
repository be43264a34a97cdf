// Makes a stockroom's database on a PostgreSQL server, and looks after it:
// kvi-server create NAME [--desk ROLE] [--password-file FILE] | check NAME.

#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "ConsoleProgram.h"
#include "base/HiddenFolder.h"
#include "base/RunTimeError.h"
#include "jet/Database.h"
#include "jet/Server.h"
#include "store/Schema.h"

namespace {

constexpr const char* kUsage =
    "Usage: kvi-server create NAME [--desk ROLE] [--password-file FILE] | check NAME\n";
constexpr const char* kHelp =
    "Run it on the server, as PostgreSQL's administrator: sudo -u postgres kvi-server ...\n"
    "  create NAME  makes the database NAME with the tables of an empty stockroom, and the role\n"
    "               that desks log in as, whose password it asks for; then tells what is left\n"
    "               to do\n"
    "    --desk ROLE           the role's name, in the place of kvi_desks\n"
    "    --password-file FILE  takes the password from the first line of FILE\n"
    "  check NAME   tells the database's version and size, which desks are connected, and who\n"
    "               waits for whom\n";

struct Arguments {
  std::string act, passwordFile;
  kvi::jet::ServerSetUp setUp;
};

Arguments Read(int argc, char** argv) {
  Arguments arguments;
  std::string& name = arguments.setUp.Database;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--desk" || argument == "--password-file") {
      if (++i == argc) throw kvi::BadArgument{argument + " needs a value."};
      (argument == "--desk" ? arguments.setUp.Desk : arguments.passwordFile) = argv[i];
    } else if (argument.starts_with("-")) {
      throw kvi::BadArgument{"Unknown option " + argument + "."};
    } else if (arguments.act.empty()) {
      arguments.act = argument;
    } else if (name.empty()) {
      name = argument;
    } else {
      throw kvi::BadArgument{"There can be one database only."};
    }
  }
  if (arguments.act != "create" && arguments.act != "check")
    throw kvi::BadArgument{"It must be told to create or to check."};
  if (name.empty()) throw kvi::BadArgument{"The database's name is missing."};
  return arguments;
}

// What is typed is not shown.
class Unseen {
 public:
  Unseen() : shown_(isatty(STDIN_FILENO) != 0 && tcgetattr(STDIN_FILENO, &before_) == 0) {
    if (!shown_) return;
    termios hidden = before_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
  }
  ~Unseen() {
    if (!shown_) return;
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
    std::puts("");
  }
  Unseen(const Unseen&) = delete;
  Unseen& operator=(const Unseen&) = delete;

 private:
  termios before_{};
  bool shown_;
};

std::string Asked(const std::string& question) {
  std::printf("%s: ", question.c_str());
  std::fflush(stdout);
  const Unseen unseen;
  std::string answer;
  std::getline(std::cin, answer);
  return answer;
}

std::string Password(const Arguments& arguments) {
  std::string password;
  if (!arguments.passwordFile.empty()) {
    std::ifstream file(arguments.passwordFile);
    if (!file) throw kvi::RunTimeError(53, "There is no file " + arguments.passwordFile + ".");
    std::getline(file, password);
  } else {
    password = Asked("Password for the desks (" + arguments.setUp.Desk + ")");
    if (isatty(STDIN_FILENO) != 0 && Asked("Once more") != password)
      throw kvi::RunTimeError(5, "The two passwords differ.");
  }
  if (password.empty()) throw kvi::RunTimeError(5, "The desks need a password.");
  return password;
}

// As a new file has them, too.
void FillTables(const std::string& conninfo) {
  const kvi::HiddenFolder folder;
  const std::string path = folder / "KV_Inventory.mdb";
  std::ofstream(path) << kvi::jet::kServerFileMark << "\n" << conninfo << "\n";
  auto database = kvi::jet::Database::Open(path, false);
  kvi::FillColumnWidths(database);
}

void Create(Arguments arguments) {
  arguments.setUp.Fill = FillTables;
  arguments.setUp.AskPassword = [&] { return Password(arguments); };
  kvi::jet::CreateServerDatabase(arguments.setUp, kvi::Schema());
  std::printf("made the database %s\n\nThe desks reach it after this:\n",
              arguments.setUp.Database.c_str());
  for (const std::string& step : kvi::jet::StepsToReach(arguments.setUp))
    std::printf("- %s\n", step.c_str());
  std::printf("- on each desk: kvi-setup FOLDER --server HOST/%s\n",
              arguments.setUp.Database.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  return kvi::RunConsoleProgram({"kvi-server", kUsage, kHelp}, argc, argv, [&] {
    const Arguments arguments = Read(argc, argv);
    if (arguments.act == "create") {
      Create(arguments);
    } else {
      for (const auto& [name, text] : kvi::jet::WatchServerDatabase(arguments.setUp.Database))
        std::printf("%-14s %s\n", name.c_str(), text.c_str());
    }
    return 0;
  });
}
