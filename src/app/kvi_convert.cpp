// Makes a database of this program out of an older program's file: kvi-convert OLD.mdb NEW.mdb.

#include <cstdio>
#include <string>
#include <string_view>

#include "ConsoleProgram.h"
#include "base/RunTimeError.h"
#include "store/ConvertInventory.h"

namespace {

constexpr int kWithLosses = 3;

constexpr const char* kUsage = "Usage: kvi-convert OLD.mdb NEW.mdb [--check] [--password TEXT]\n";
constexpr const char* kHelp =
    "Makes a database file NEW.mdb of all tables of OLD.mdb, a Jet 3 or Jet 4 database, and "
    "prints\n"
    "what was taken and what is missing. OLD.mdb is only read; NEW.mdb must not stand there yet.\n"
    "  --check          reads all of OLD.mdb and makes nothing; NEW.mdb can be left out\n"
    "  --password TEXT  the password of OLD.mdb\n"
    "It ends with 0 when all was taken, with 3 when something is missing, with 1 when the file "
    "was\n"
    "refused, with 2 for a wrong argument.\n";

struct Arguments {
  std::string from, to, password;
  bool check = false;
};

Arguments Read(int argc, char** argv) {
  Arguments arguments;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--check") {
      arguments.check = true;
    } else if (argument == "--password") {
      if (++i == argc) throw kvi::BadArgument{"--password needs a value."};
      arguments.password = argv[i];
    } else if (argument.starts_with("-")) {
      throw kvi::BadArgument{"Unknown option " + argument + "."};
    } else if (arguments.from.empty()) {
      arguments.from = argument;
    } else if (arguments.to.empty()) {
      arguments.to = argument;
    } else {
      throw kvi::BadArgument{"\"" + argument + "\" is one file too many."};
    }
  }
  if (arguments.from.empty()) throw kvi::BadArgument{"The old file is missing."};
  if (arguments.to.empty() && !arguments.check) throw kvi::BadArgument{"The new file is missing."};
  return arguments;
}

int Convert(const Arguments& arguments) {
  if (const std::string lock = kvi::LockFileBeside(arguments.from); !lock.empty())
    std::fprintf(stderr, "kvi-convert: %s: another program may be writing to the database.\n",
                 lock.c_str());
  const kvi::jet::ConversionOrder order{arguments.from, arguments.password};
  const kvi::jet::Conversion protocol =
      arguments.check ? kvi::jet::CheckOldFile(order) : kvi::ConvertInventory(order, arguments.to);
  std::printf("%s (%s)\n%s", arguments.from.c_str(), protocol.Format.c_str(),
              kvi::ProtocolText(protocol).c_str());
  return protocol.IsWhole() ? 0 : kWithLosses;
}

}  // namespace

int main(int argc, char** argv) {
  return kvi::RunConsoleProgram({"kvi-convert", kUsage, kHelp}, argc, argv,
                                [&] { return Convert(Read(argc, argv)); });
}
