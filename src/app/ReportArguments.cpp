#include "ReportArguments.h"

#include <functional>
#include <map>
#include <string_view>

#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

namespace {

constexpr int kSmallestFont = 5, kLargestFont = 9;
constexpr int kMostCenters = 9999, kMostPlaces = 999;

int WholeNumber(const std::string& option, const std::string& text, int least, int most) {
  const bool digits = !text.empty() && text.size() <= 4 &&
                      text.find_first_not_of("0123456789") == std::string::npos;
  const int number = digits ? static_cast<int>(Val(text)) : least - 1;
  if (number < least || number > most)
    throw BadArgument{option + " needs a whole number from " + Str(least) + " to " + Str(most) +
                      "."};
  return number;
}

std::string SortField(const std::string& option, const std::string& text) {
  if (text == "id") return "inv_id";
  if (text == "name" || text == "category" || text == "location") return text;
  throw BadArgument{option + " needs name, category, location or id."};
}

bool YesOrNo(const std::string& option, const std::string& text) {
  if (text != "yes" && text != "no") throw BadArgument{option + " needs yes or no."};
  return text == "yes";
}

const ReportKind* FindReport(const std::string& name) {
  for (const ReportKind& kind : Reports())
    if (name == kind.box || name == kind.name) return &kind;
  throw BadArgument{"There is no report \"" + name + "\"; --help lists them."};
}

void TakeReport(ReportArguments& arguments, const std::string& name) {
  if (name == "labels")
    arguments.labels = LabelChoice{&LabelSheets().front()};
  else
    arguments.kind = FindReport(name);
}

void ChooseOutput(ReportArguments& arguments, ReportArguments::Output output,
                  const std::string& file = "") {
  if (arguments.output) throw BadArgument{"Only one of --pdf, --xlsx, --print and --text can be."};
  arguments.output = output;
  arguments.file = file;
}

// What is said of labels holds for nothing else.
LabelChoice& Labels(ReportArguments& arguments, const std::string& option) {
  if (!arguments.labels) throw BadArgument{option + " is for labels alone."};
  return *arguments.labels;
}

const LabelSheet* FindSheet(const std::string& name) {
  if (const LabelSheet* sheet = FindLabelSheet(name)) return sheet;
  throw BadArgument{"There is no label sheet \"" + name + "\"; --help lists them."};
}

// The options that take no value; false for any other.
bool TakeFlag(ReportArguments& arguments, const std::string& option) {
  if (option == "--print")
    ChooseOutput(arguments, ReportArguments::Output::Printer);
  else if (option == "--text")
    ChooseOutput(arguments, ReportArguments::Output::Text);
  else if (option == "--renew")
    arguments.renew = true;
  else if (option == "--qr")
    Labels(arguments, option).withQR = true;
  else
    return false;
  return true;
}

void TakeOption(ReportArguments& arguments, const std::string& option, const std::string& text) {
  ReportParameters& with = arguments.with;
  const std::map<std::string_view, std::function<void()>> options = {
      {"--sort", [&] { with.ReportPrimarySort = SortField(option, text); }},
      {"--then", [&] { with.ReportSecondarySort = SortField(option, text); }},
      {"--like",
       [&] {
         with.showsLike = true;
         with.ReportFilterText = text;
       }},
      {"--font", [&] { with.fontSize = WholeNumber(option, text, kSmallestFont, kLargestFont); }},
      {"--center", [&] { arguments.center = WholeNumber(option, text, 0, kMostCenters); }},
      {"--vendor", [&] { with.vendor = text; }},
      {"--slot", [&] { with.vendorSlot = WholeNumber(option, text, 1, 3); }},
      {"--levels", [&] { with.SystemLevelsAnswer = YesOrNo(option, text); }},
      {"--sheet", [&] { Labels(arguments, option).sheet = FindSheet(text); }},
      {"--first",
       [&] { Labels(arguments, option).firstPlace = WholeNumber(option, text, 1, kMostPlaces); }},
      {"--pdf", [&] { ChooseOutput(arguments, ReportArguments::Output::Pdf, text); }},
      {"--xlsx", [&] { ChooseOutput(arguments, ReportArguments::Output::Workbook, text); }}};
  const auto found = options.find(option);
  if (found == options.end()) throw BadArgument{"Unknown option " + option + "."};
  if (Trim(text).empty()) throw BadArgument{option + " needs a value."};
  found->second();
}

void RequireLabels(const ReportArguments& arguments) {
  using Output = ReportArguments::Output;
  if (*arguments.output != Output::Pdf && *arguments.output != Output::Printer)
    throw BadArgument{"Labels go to --pdf FILE or --print."};
  if (arguments.labels->firstPlace > arguments.labels->sheet->Labels())
    throw BadArgument{"The sheet has no place " + Str(arguments.labels->firstPlace) + "."};
}

void RequireWhole(const ReportArguments& arguments) {
  if (arguments.folder.empty()) throw BadArgument{"The folder is missing."};
  if (arguments.kind == nullptr && !arguments.labels)
    throw BadArgument{"The report is missing; --help lists them."};
  if (!arguments.output)
    throw BadArgument{"One of --pdf FILE, --xlsx FILE, --print and --text is missing."};
  if (arguments.labels) return RequireLabels(arguments);
  if (arguments.kind->byVendor && arguments.with.vendor.empty())
    throw BadArgument{"This report needs --vendor NAME."};
}

}  // namespace

ReportArguments ReadReportArguments(int argc, char** argv) {
  ReportArguments arguments;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument.starts_with("-")) {
      if (TakeFlag(arguments, argument)) continue;
      TakeOption(arguments, argument, i + 1 < argc ? argv[i + 1] : "");
      ++i;
    } else if (arguments.folder.empty()) {
      arguments.folder = argument;
    } else if (arguments.kind == nullptr && !arguments.labels) {
      TakeReport(arguments, argument);
    } else {
      throw BadArgument{"Only one report can be made, and \"" + argument + "\" is one too many."};
    }
  }
  RequireWhole(arguments);
  return arguments;
}

}  // namespace kvi
