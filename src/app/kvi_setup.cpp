// Sets up a folder for the program:
// kvi-setup FOLDER [--sample | --parts N | --shared PLACE | --server HOST/NAME].

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ConsoleProgram.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "sample/OldProducts.h"
#include "sample/SampleStockroom.h"
#include "store/SetUpFolder.h"

namespace {

constexpr int kMostParts = 200000;
// A larger stockroom is for measuring, with a longer history behind each part.
constexpr int kPurchasesInLargeSample = 10;
constexpr int kPartsToAnInvoice = 5;

constexpr const char* kUsage =
    "Usage: kvi-setup FOLDER [--sample | --parts N | --shared PLACE |\n"
    "                         --server HOST/NAME [--user ROLE] [--root-cert FILE | --no-tls]]\n";
constexpr const char* kHelp =
    "Makes what Kestvar Inventory needs in FOLDER: TARNWK.INI, KVI.INI, files/master.txt and\n"
    "KV_Inventory.mdb. Files that stand there already are kept as they are.\n"
    "  --sample   fills a new database with a sample stockroom of 1,500 parts, and lays a small\n"
    "             database of each of the two older products beside it, to try the import with\n"
    "  --parts N  the same with N parts (1 to 200000), ten purchases of each and an invoice to\n"
    "             five of them\n"
    "  --shared PLACE\n"
    "             makes no database: the desk works on the one in the folder PLACE\n"
    "  --server HOST/NAME\n"
    "             makes no database: the desk works on NAME, which kvi-server made on HOST (also\n"
    "             HOST:PORT, or the folder of a socket). Its password stands in ~/.pgpass\n"
    "    --user ROLE       the role that it logs in as, in the place of kvi_desks\n"
    "    --root-cert FILE  who vouches for the server's name, in the place of\n"
    "                      ~/.postgresql/root.crt\n"
    "    --no-tls          asks for no encryption\n";

struct Arguments {
  std::string Folder;
  std::optional<kvi::SampleOptions> Sample;
  std::string Shared;
  std::string Server, User = "kvi_desks", RootCert;
  bool Tls = true;
};

int PartsIn(std::string_view text) {
  const bool digits = !text.empty() && text.size() <= 6 &&
                      text.find_first_not_of("0123456789") == std::string_view::npos;
  const int parts = digits ? std::atoi(std::string(text).c_str()) : 0;
  if (parts < 1 || parts > kMostParts)
    throw kvi::BadArgument{"--parts needs a whole number from 1 to 200000."};
  return parts;
}

// A value as libpq reads it.
std::string Quoted(const std::string& value) {
  if (value.find_first_of(" '\\") == std::string::npos) return value;
  return "'" + kvi::Replace(kvi::Replace(value, "\\", "\\\\"), "'", "\\'") + "'";
}

// What libpq needs for HOST/NAME. A socket's folder begins with a slash, and needs no encryption.
std::string Conninfo(const Arguments& arguments) {
  const std::size_t slash = arguments.Server.rfind('/');
  std::string host = arguments.Server.substr(0, slash), port;
  const std::string name = slash == std::string::npos ? "" : arguments.Server.substr(slash + 1);
  if (host.empty() || name.empty()) throw kvi::BadArgument{"--server needs a host and a name."};
  const bool socket = host.front() == '/';
  if (const std::size_t colon = host.rfind(':'); colon != std::string::npos && !socket) {
    port = " port=" + Quoted(host.substr(colon + 1));
    host.resize(colon);
  }
  std::string conninfo =
      "host=" + Quoted(host) + port + " dbname=" + Quoted(name) + " user=" + Quoted(arguments.User);
  if (!socket && arguments.Tls) conninfo += " sslmode=verify-full";
  if (!arguments.RootCert.empty()) conninfo += " sslrootcert=" + Quoted(arguments.RootCert);
  return conninfo;
}

Arguments Read(int argc, char** argv) {
  Arguments arguments;
  const std::map<std::string_view, std::pair<std::string*, const char*>> values = {
      {"--shared", {&arguments.Shared, "--shared needs a folder."}},
      {"--server", {&arguments.Server, "--server needs a host and a name."}},
      {"--user", {&arguments.User, "--user needs a role."}},
      {"--root-cert", {&arguments.RootCert, "--root-cert needs a file."}}};
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--sample") {
      if (!arguments.Sample) arguments.Sample.emplace();
    } else if (argument == "--parts") {
      const int parts = PartsIn(i + 1 < argc ? argv[i + 1] : "");
      arguments.Sample = kvi::SampleOptions{parts, kPurchasesInLargeSample,
                                            std::max(1, parts / kPartsToAnInvoice)};
      ++i;
    } else if (argument == "--no-tls") {
      arguments.Tls = false;
    } else if (const auto value = values.find(argument); value != values.end()) {
      const auto& [text, complaint] = value->second;
      *text = i + 1 < argc ? argv[i + 1] : "";
      if (text->empty()) throw kvi::BadArgument{complaint};
      ++i;
    } else if (argument.starts_with("-")) {
      throw kvi::BadArgument{"Unknown option " + std::string(argument) + "."};
    } else if (!arguments.Folder.empty()) {
      throw kvi::BadArgument{"Only one folder can be set up."};
    } else {
      arguments.Folder = argument;
    }
  }
  if (arguments.Folder.empty()) throw kvi::BadArgument{"The folder is missing."};
  if (arguments.Sample && !(arguments.Shared + arguments.Server).empty())
    throw kvi::BadArgument{"A sample goes into a database of its own, and not into a shared one."};
  if (!arguments.Shared.empty() && !arguments.Server.empty())
    throw kvi::BadArgument{"Only one of --shared and --server can be."};
  return arguments;
}

void SetUp(const Arguments& arguments) {
  const std::string spreadsheet = kvi::FindSpreadsheetProgram();
  std::function<void(kvi::jet::Database&)> fill;
  if (arguments.Sample)
    fill = [&](kvi::jet::Database& database) {
      kvi::FillSampleStockroom(database, *arguments.Sample);
    };
  auto files = !arguments.Server.empty()
                   ? kvi::SetUpServerDesk(arguments.Folder, spreadsheet, Conninfo(arguments))
               : arguments.Shared.empty()
                   ? kvi::SetUpFolder(arguments.Folder, spreadsheet, fill)
                   : kvi::SetUpDesk(arguments.Folder, spreadsheet, arguments.Shared);
  if (arguments.Sample)
    for (const auto& file : kvi::LayOldProducts(arguments.Folder)) files.push_back(file);
  for (const auto& file : files)
    std::printf("%s %s\n", file.Made ? "made" : "kept", file.Path.c_str());
  if (spreadsheet.empty())
    std::puts("No spreadsheet program was found: choose one in Utilities before exporting.");
}

}  // namespace

int main(int argc, char** argv) {
  return kvi::RunConsoleProgram({"kvi-setup", kUsage, kHelp}, argc, argv, [&] {
    SetUp(Read(argc, argv));
    return 0;
  });
}
