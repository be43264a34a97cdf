// Sets up a folder for the program: kvi-setup FOLDER [--sample | --parts N | --shared PLACE].

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ConsoleProgram.h"
#include "base/RunTimeError.h"
#include "sample/OldProducts.h"
#include "sample/SampleStockroom.h"
#include "store/SetUpFolder.h"

namespace {

constexpr int kMostParts = 200000;
// A larger stockroom is for measuring, with a longer history behind each part.
constexpr int kPurchasesInLargeSample = 10;

constexpr const char* kUsage = "Usage: kvi-setup FOLDER [--sample | --parts N | --shared PLACE]\n";
constexpr const char* kHelp =
    "Makes what Kestvar Inventory needs in FOLDER: TARNWK.INI, KVI.INI, files/master.txt and\n"
    "KV_Inventory.mdb. Files that stand there already are kept as they are.\n"
    "  --sample   fills a new database with a sample stockroom of 1,500 parts, and lays a small\n"
    "             database of each of the two older products beside it, to try the import with\n"
    "  --parts N  the same with N parts (1 to 200000)\n"
    "  --shared PLACE\n"
    "             makes no database: the desk works on the one in the folder PLACE\n";

struct Arguments {
  std::string Folder;
  std::optional<kvi::SampleOptions> Sample;
  std::string Shared;
};

int PartsIn(std::string_view text) {
  const bool digits = !text.empty() && text.size() <= 6 &&
                      text.find_first_not_of("0123456789") == std::string_view::npos;
  const int parts = digits ? std::atoi(std::string(text).c_str()) : 0;
  if (parts < 1 || parts > kMostParts)
    throw kvi::BadArgument{"--parts needs a whole number from 1 to 200000."};
  return parts;
}

Arguments Read(int argc, char** argv) {
  Arguments arguments;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--sample") {
      if (!arguments.Sample) arguments.Sample.emplace();
    } else if (argument == "--parts") {
      arguments.Sample =
          kvi::SampleOptions{PartsIn(i + 1 < argc ? argv[i + 1] : ""), kPurchasesInLargeSample};
      ++i;
    } else if (argument == "--shared") {
      arguments.Shared = i + 1 < argc ? argv[i + 1] : "";
      if (arguments.Shared.empty()) throw kvi::BadArgument{"--shared needs a folder."};
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
  if (arguments.Sample && !arguments.Shared.empty())
    throw kvi::BadArgument{"A sample goes into a database of its own, and not into a shared one."};
  return arguments;
}

void SetUp(const Arguments& arguments) {
  const std::string spreadsheet = kvi::FindSpreadsheetProgram();
  std::function<void(kvi::jet::Database&)> fill;
  if (arguments.Sample)
    fill = [&](kvi::jet::Database& database) {
      kvi::FillSampleStockroom(database, *arguments.Sample);
    };
  auto files = arguments.Shared.empty()
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
