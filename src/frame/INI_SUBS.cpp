#include "frame/INI_SUBS.h"

#include <filesystem>
#include <optional>
#include <vector>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/Application.h"
#include "frame/GENERAL.h"
#include "frame/Wording.h"
#include "platform/Hourglass.h"
#include "platform/IniFile.h"

namespace kvi {

namespace {

using Read = void (*)(Application&, const std::string&);
using Write = std::string (*)(const Application&);
using Default = std::string (*)(const std::string& programFolder);

// One key of KVI.INI: how its text goes into the state, how it comes back, and what a new file
// gets. A key without `read` is not read back, one without `initial` is not in a new file.
struct Setting {
  const char* key;
  Read read;
  Write write;
  Default initial;
};

std::string TrueOrFalse(bool value) {
  return value ? "True" : "False";
}

void ReadValuation(Application& app, const std::string& text) {
  if (text == "FIFO" || text.empty()) app.settings.Valuation = ValuationMethod::FIFO;
  if (text == "WEIGHTED") app.settings.Valuation = ValuationMethod::Weighted;
  if (text == "LASTPRICE") app.settings.Valuation = ValuationMethod::LastPrice;
}

// Empty when no method is on: the key is then left out.
std::string ValuationText(const Application& app) {
  if (!app.settings.Valuation) return "";
  switch (*app.settings.Valuation) {
    case ValuationMethod::Weighted:
      return "WEIGHTED";
    case ValuationMethod::LastPrice:
      return "LASTPRICE";
    case ValuationMethod::FIFO:
      break;
  }
  return "FIFO";
}

// In the order of the file. (A lambda that captures nothing keeps each key's three sides together.)
const Setting kSettings[] = {
    {"SectionActive", nullptr, [](const Application&) { return std::string("True"); },
     [](const std::string&) { return std::string("True"); }},
    {"CompanyName",
     [](Application& app, const std::string& text) { app.settings.CompanyName = text; },
     [](const Application& app) { return app.settings.CompanyName; },
     [](const std::string&) { return std::string("ABC Facility"); }},
    {"AcceptableVariance",
     [](Application& app, const std::string& text) { app.settings.AcceptableVariance = Val(text); },
     [](const Application& app) { return Str(app.settings.AcceptableVariance); },
     [](const std::string&) { return std::string("2"); }},
    // The default is worked out from a text that is not "ON", and so reads as 0.
    {"SecurityFlag",
     [](Application& app, const std::string& text) { app.settings.UseSecurity = Val(text) != 0; },
     [](const Application& app) { return Str(app.settings.UseSecurity); },
     [](const std::string&) { return std::string("False"); }},
    {"UseOldStyleInventoryDetail",
     [](Application& app, const std::string& text) {
       app.settings.UseOldStyleInventoryDetail = Val(text) != 0;
     },
     [](const Application& app) { return Str(app.settings.UseOldStyleInventoryDetail); }, nullptr},
    // Whatever stands here, the database is opened shared.
    {"NetworkFlag",
     [](Application& app, const std::string&) { app.settings.NetworkVisible = true; },
     [](const Application& app) { return TrueOrFalse(app.settings.NetworkVisible); },
     [](const std::string&) { return TrueOrFalse(Settings{}.NetworkVisible); }},
    {"DatabasePath", nullptr, [](const Application& app) { return app.settings.DatabasePath; },
     [](const std::string& programFolder) { return programFolder; }},
    {"TakeAwayAdjustments",
     [](Application& app, const std::string& text) {
       app.settings.TakeAwayAdjustments = Val(text);
     },
     [](const Application& app) { return Str(app.settings.TakeAwayAdjustments); },
     [](const std::string&) { return std::string("1"); }},
    {"FontSize",
     [](Application& app, const std::string& text) {
       app.settings.FontSize = static_cast<int>(CLng(Val(text)));
     },
     [](const Application& app) { return Str(app.settings.FontSize); },
     [](const std::string&) { return std::string("2"); }},
    {"ColorFlag",
     [](Application& app, const std::string& text) { app.UseColors = Value(text).Boolean(); },
     [](const Application& app) { return TrueOrFalse(app.UseColors); },
     [](const std::string&) { return std::string("True"); }},
    {"ProfitCenterNo",
     [](Application& app, const std::string& text) {
       app.CurrentProfitCenter = static_cast<int>(CLng(Val(text)));
     },
     [](const Application& app) { return Str(app.CurrentProfitCenter); },
     [](const std::string&) { return std::string("0"); }},
    {"CurrentInventoryCategory",
     [](Application& app, const std::string& text) {
       app.CurrentCategory = text.empty() ? kAllCategories : text;
     },
     [](const Application& app) { return app.CurrentCategory; },
     [](const std::string&) { return kAllCategories; }},
    {"CurrentPsoVendor",
     [](Application& app, const std::string& text) {
       app.CurrentOrderVendor = text.empty() ? kAllVendors : text;
     },
     [](const Application& app) { return app.CurrentOrderVendor; },
     [](const std::string&) { return kAllVendors; }},
    {"SpreadsheetExePath",
     [](Application& app, const std::string& text) { app.SpreadsheetPath = text; },
     [](const Application& app) { return app.SpreadsheetPath; },
     [](const std::string&) { return std::string("C:\\Office\\Excel.exe"); }},
    {"VALUATION", ReadValuation, ValuationText, nullptr},
    {"OwnColorScheme",
     [](Application& app, const std::string& text) {
       app.settings.OwnColorScheme = text;
       if (!text.empty()) app.settings.ColorScheme = text;
     },
     [](const Application& app) { return app.settings.OwnColorScheme; }, nullptr},
};

std::string ReadKey(const IniFile& file, const char* section, const char* key) {
  return ClipToNul(file.Read(section, key, " "));
}

[[noreturn]] void SayInvalidAndEnd(Application& app) {
  app.desktop.MsgBox({.text = "Invalid KVI.INI file. KVI must close down."});
  throw EndOfProcess{};
}

void WriteKeys(Application& app, const std::vector<std::pair<std::string, std::string>>& keys) {
  try {
    IniFile(app.InProgramFolder("KVI.INI")).Write(kOwnSection, keys);
  } catch (const RunTimeError&) {
    SayInvalidAndEnd(app);
  }
}

// A file with content but without a section of ours is somebody's, or damaged: it is set aside
// under a free name before the defaults take its place. One that cannot be is not touched.
void KeepForeignFile(Application& app) {
  const std::string path = app.InProgramFolder("KVI.INI");
  if (!FileHasContent(path) || IniFile(path).HasSection(kOwnSection)) return;
  std::string aside = path + ".old";
  std::error_code failure;
  for (int n = 2; std::filesystem::exists(aside, failure); ++n) aside = path + ".old" + Str(n);
  std::filesystem::rename(path, aside, failure);
  if (failure) SayInvalidAndEnd(app);
}

void CreateDefaultSettings(Application& app) {
  const Hourglass busy(app.desktop);
  KeepForeignFile(app);
  const auto keys = DefaultSettings(app.ProgramFolder);
  for (const auto& [key, text] : keys)
    for (const Setting& setting : kSettings)
      if (key == setting.key && setting.read != nullptr) setting.read(app, text);
  app.settings.DatabasePath = app.ProgramFolder;
  WriteKeys(app, keys);
}

// A number that is too large reads as a key that is missing.
void ReadSetting(Application& app, const Setting& setting, const std::string& text) {
  try {
    setting.read(app, text);
  } catch (const RunTimeError&) {
    setting.read(app, "");
  }
}

void ReadSuiteSettings(Application& app) {
  const IniFile suite(app.InProgramFolder("TARNWK.INI"));
  if (!suite.HasSection(kSuiteSection)) {
    app.desktop.MsgBox({.text = "There is a problem with your config file. (TARNWK.INI). "
                                "TarnwickManager must be shut down."});
    throw EndOfProcess{};
  }
  app.DatabaseDirectory = ReadKey(suite, kSuiteSection, "DatabasePath");
  app.settings.DatabasePath = app.DatabaseDirectory;
  app.settings.BrowserPath = ReadKey(suite, kSuiteSection, "BrowserPath");
  app.settings.ColorScheme = ReadKey(suite, kSuiteSection, "ColorScheme");
}

}  // namespace

std::string ClipToNul(const std::string& text) {
  return Trim(text.substr(0, text.find('\0')));
}

std::vector<std::pair<std::string, std::string>> DefaultSettings(const std::string& programFolder) {
  std::vector<std::pair<std::string, std::string>> keys;
  for (const Setting& setting : kSettings)
    if (setting.initial != nullptr) keys.emplace_back(setting.key, setting.initial(programFolder));
  return keys;
}

void ReadSettings(Application& app) {
  ReadSuiteSettings(app);
  const IniFile own(app.InProgramFolder("KVI.INI"));
  if (!own.HasSection(kOwnSection) || UCase(ReadKey(own, kOwnSection, "SectionActive")) != "TRUE") {
    CreateDefaultSettings(app);
    return;
  }
  for (const Setting& setting : kSettings)
    if (setting.read != nullptr) ReadSetting(app, setting, ReadKey(own, kOwnSection, setting.key));
}

void WriteSettings(Application& app) {
  const Hourglass busy(app.desktop);
  std::vector<std::pair<std::string, std::string>> keys;
  for (const Setting& setting : kSettings) {
    const std::string text = setting.write(app);
    if (setting.write == ValuationText && text.empty()) continue;
    keys.emplace_back(setting.key, text);
  }
  WriteKeys(app, keys);
}

}  // namespace kvi
