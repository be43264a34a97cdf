#include "utilities/KVI_ImportPBI.h"

#include <filesystem>
#include <fstream>

#include "base/HiddenFolder.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "store/BackUp.h"
#include "store/OpenInventoryDatabase.h"
#include "store/SaveRecord.h"
#include "utilities/FullAccess.h"
#include "utilities/ImportPlainbook.h"
#include "utilities/MillraceStock.h"

namespace kvi {

namespace {

namespace fs = std::filesystem;

constexpr const char* kMillraceFile = "MILLRACE.MDB";
constexpr const char* kPlainbookFile = "PBI_DATA.MDB";
constexpr const char* kFromMillrace = "Import from Millrace Works/Inventory";
constexpr const char* kFromPlainbook = "Import from Plainbook Inventory";
constexpr const char* kSecondWarning = "2nd WARNING! Are you SURE you want to do this?";
constexpr int kWrongPassword = 3031;
constexpr std::size_t kOffendersTold = 5;

// The first of the lines, and how many there are besides.
std::string FirstOf(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t line = 0; line < lines.size() && line < kOffendersTold; ++line)
    text += "\n" + lines[line];
  if (lines.size() > kOffendersTold)
    text += "\nand " + Str(static_cast<int>(lines.size() - kOffendersTold)) + " more";
  return text;
}

}  // namespace

KVI_ImportPBI::KVI_ImportPBI(Application& app)
    : KviScreen(app, "KVI_ImportPBI", "Import Plainbook Inventory", "Inventory - Import") {
  i_pbi.Click = [this] { ChoosePlainbook(); };
  i_mrw.Click = [this] { ChooseMillrace(); };
  save.Click = [this] { Browse(); };
  Label12.Click = [this] { Import(); };
  Label11.Click = [this] { Exit(); };
  Label11.Cancel = true;
  Label1.Names = &MDBLabel;
  MDBLabel.Locked = true;
}

void KVI_ImportPBI::Prepare() {
  MDBLabel.Text = "";
  i_mrw.Value = false;
  i_pbi.Value = true;
  ChoosePlainbook();
}

void KVI_ImportPBI::ChoosePlainbook() {
  Label9.Caption = "Import Plainbook Inventory";
  SetCaption(kFromPlainbook);
  Label1.Caption = "Location of PBI_DATA.MDB (click 'browse' to locate)";
}

void KVI_ImportPBI::ChooseMillrace() {
  Label9.Caption = kFromMillrace;
  SetCaption(kFromMillrace);
  Label1.Caption = "Location of MILLRACE.MDB (click 'browse' to locate)";
}

// Either product's file is taken, whichever is chosen; the import looks into
// it.
void KVI_ImportPBI::Browse() {
  const std::string wanted = i_mrw.Value ? kMillraceFile : kPlainbookFile;
  const auto chosen = app_.desktop.OpenFileDialog(
      {.title = "Browse", .filters = {{wanted, "*" + wanted}}, .start = app_.ProgramFolder});
  const std::string name = UCase(fs::path(chosen.value_or("")).filename().string());
  if (name.starts_with("*")) return;
  if (name.ends_with(kMillraceFile) || name.ends_with(kPlainbookFile)) MDBLabel.Text = *chosen;
}

void KVI_ImportPBI::Import() {
  std::error_code ignored;
  if (!fs::is_regular_file(MDBLabel.Text(), ignored))
    return Inform(
        "Please make sure you 'browse' and locate the inventory "
        "data.\n\nLocate the database then "
        "click on 'import' again.");
  if (!HasFullAccess(app_)) return;
  const std::string what = i_mrw.Value
                               ? "import the Millrace Works/Inventory data you have selected into "
                                 "Kestvar - Inventory."
                               : "copy the PBI_DATA.MDB you have selected into Kestvar - "
                                 "Inventory.";
  if (!AskToRemove("WARNING! This option will " + what +
                       "  Any inventory data you have in KV will be "
                       "lost!\n\nAre you SURE you want "
                       "to do this?",
                   "Import") ||
      !AskToRemove(kSecondWarning, "Import"))
    return;
  try {
    if (!(i_mrw.Value ? ImportMillrace() : ImportPlainbook())) return;
  } catch (const RunTimeError& error) {
    return Inform("The data could not be imported.  Nothing was changed.\n\n" + Str(error.Number) +
                      " " + error.Description,
                  Caption());
  }
  ReopenInventoryDatabase(app_);
  Inform(i_mrw.Value ? "Import complete.\n\nNOTE:  The inventory in Kestvar is "
                       "more powerful than the older "
                       "Millrace Works inventory.  Please make sure you visit "
                       "each item in inventory and "
                       "verify your data."
                     : "Import complete.",
         i_mrw.Value ? kFromMillrace : kFromPlainbook);
}

bool KVI_ImportPBI::WithPassword(const std::function<void(const std::string& password)>& read) {
  for (std::string password;;) try {
      read(password);
      return true;
    } catch (const RunTimeError& error) {
      if (error.Number != kWrongPassword) throw;
      const auto answer = app_.desktop.InputBox(
          error.Description + "\n\nPassword of the database:", Caption(), password);
      if (!answer) return false;
      password = *answer;
    }
}

bool KVI_ImportPBI::ImportMillrace() {
  const Hourglass busy(app_.desktop);
  jet::Database& database = app_.CurrentDatabase;
  std::unique_ptr<MillraceStock> stock;
  const bool isRead = WithPassword([&](const std::string& password) {
    const auto progress = app_.desktop.NewProgress(kFromMillrace, false);
    jet::ForeignDatabase source = jet::Database::OpenForeign(MDBLabel.Text(), password);
    try {
      stock = std::make_unique<MillraceStock>(source.Content, database, *progress);
    } catch (const RunTimeError& error) {
      // (A damaged table is none of the content.)
      throw RunTimeError(error.Number,
                         error.Description + "\n" + FirstOf(source.Protocol.AllLosses()));
    }
  });
  if (!isRead) return false;
  if (!stock->Offenders().empty()) {
    Inform(
        "Nothing was changed: this data cannot be taken as it is.\n" + FirstOf(stock->Offenders()),
        kFromMillrace);
    return false;
  }
  if (!BackUpBefore(app_, "importing from Millrace Works")) return false;
  const auto progress = app_.desktop.NewProgress(kFromMillrace, false);
  return WriteUnderLocks(app_.desktop, database, [&] {
    database.WriteAtOnce([&] { stock->Write(database, app_.CurrentProfitCenter, *progress); });
  });
}

bool KVI_ImportPBI::ImportPlainbook() {
  const Hourglass busy(app_.desktop);
  jet::Database& database = app_.CurrentDatabase;
  const HiddenFolder folder;
  const std::string made = folder / "made.mdb";
  jet::Conversion protocol;
  const bool isRead = WithPassword([&](const std::string& password) {
    const auto progress = app_.desktop.NewProgress(kFromPlainbook, false);
    protocol = ConvertPlainbook(MDBLabel.Text(), password, made, *progress);
  });
  if (!isRead) return false;
  const auto losses = protocol.AllLosses();
  if (!losses.empty() && !AskToRemove("Not all of the file can be read:\n" + FirstOf(losses) +
                                          "\n\nDo you want to import what can be read?",
                                      kFromPlainbook))
    return false;
  if (!BackUpBefore(app_, "importing from Plainbook")) return false;
  BackUpForPlainbook(database);
  if (!WriteUnderLocks(app_.desktop, database, [&] { database.ReplaceContentWith(made); }))
    return false;
  app_.CurrentProfitCenter = 0;
  KeepProtocol(protocol);
  return true;
}

// What is not as it was is to be read beside the database.
void KVI_ImportPBI::KeepProtocol(const jet::Conversion& protocol) {
  if (protocol.IsWhole() && protocol.Notes.empty()) return;
  const std::string path =
      fs::path(app_.CurrentDatabase.Path()).replace_filename("KV_Inventory_Import.txt").string();
  std::ofstream file(path);
  for (const std::string& line : protocol.AllLosses()) file << "MISSING  " << line << "\n";
  for (const std::string& line : protocol.Notes) file << "Note: " << line << "\n";
  Inform("What is not as it was in the file stands in \"" + path + "\".", kFromPlainbook);
}

Layout KVI_ImportPBI::Arrange() {
  constexpr double kPathWidth = 5;
  return Column({BannerLayout(), Actions({&save, &Label12, &Label11}), Of(Label9), Of(i_pbi),
                 Of(i_mrw), Of(Label1), Of(MDBLabel, kPathWidth), Of(Label2), Gap()});
}

}  // namespace kvi
