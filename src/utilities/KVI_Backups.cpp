#include "utilities/KVI_Backups.h"

#include <algorithm>

#include "base/Format.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "grids/PaintingOff.h"
#include "grids/SprdSubs.h"
#include "platform/Progress.h"
#include "store/BackUp.h"
#include "store/Restore.h"
#include "utilities/FullAccess.h"

namespace kvi {

namespace {

constexpr const char* kTitle = "Restore";
constexpr int kDateColumn = 1, kReasonColumn = 2, kPartsColumn = 3, kSizeColumn = 4;
constexpr double kHeadingHeight = 400;  // twips
constexpr double kKilobyte = 1024;

struct BackUpColumn {
  const char* heading;
  double width;  // twips
};
constexpr BackUpColumn kColumns[] = {
    {"Date", 2200}, {"Reason", 5600}, {"Parts", 1600}, {"Size (KB)", 1400}};

std::string TimeText(const Date& made) {
  const std::string day = Format(made, "mm/dd/yyyy");
  return made.HasTime() ? day + " " + Format(made, "HH:MM AM/PM") : day;
}

// (A copy that cannot be read stays in the list, so that it is seen.)
std::string PartsText(const std::filesystem::path& copy) {
  try {
    jet::Database database = jet::Database::Open(copy.string(), false);
    auto counted = database.OpenRecordset("SELECT Count(*) AS parts FROM I_Master;");
    return Format(counted["parts"], "###,##0");
  } catch (const RunTimeError&) {
    return "cannot be read";
  }
}

std::string SizeText(const std::filesystem::path& copy) {
  std::error_code error;
  const auto bytes = std::filesystem::file_size(copy, error);
  return error ? "" : Format(static_cast<double>(bytes) / kKilobyte, "###,##0");
}

}  // namespace

KVI_Backups::KVI_Backups(Application& app)
    : KviScreen(app, "KVI_Backups", kTitle, "Inventory - Copies of the Database") {
  Spread1.SpokenName = "Copies of the database";
  back_up.Click = [this] {
    BackUpNow();
    FillList();
  };
  restore.Click = [this] { RestoreRow(); };
  browse.Click = [this] { RestoreFile(); };
  exit_lab.Click = [this] { Exit(); };
  exit_lab.Cancel = true;
  Spread1.DblClick = [this](int row, int) {
    if (row > 0) RestoreRow();
  };
  Spread1.ActiveCellChanged = [this] { ShowPosition(); };
  Spread1.RowActions = {&restore};
  Spread1.EmptyText = "No copies yet. Press Back up now.";
}

void KVI_Backups::Prepare() {
  Spread1.SetRowHeight(0, kHeadingHeight);
  int col = 0;
  for (const BackUpColumn& column : kColumns) {
    Spread1.SetHeading(++col, column.heading);
    Spread1.SetColWidth(col, column.width);
  }
  LockGrid(Spread1);
  for (const int number : {kPartsColumn, kSizeColumn})
    Spread1.SetAlign(Block::Column(number), CellAlign::Right);
}

void KVI_Backups::Activate() {
  FillList();
}

void KVI_Backups::FillList() {
  const Hourglass busy(app_.desktop);
  const auto progress = app_.desktop.NewProgress("Copies of the database", false);
  const auto folder = BackUpFolder(app_.CurrentDatabase.Path());
  Label1.Caption = "They lie in " + folder.string();
  files_ = BackUpsIn(folder);
  const int count = static_cast<int>(files_.size());
  progress->Begin("Reading the copies", count);
  const PaintingOff hidden(Spread1);
  ClearGrid(Spread1);
  Spread1.SetMaxRows(count);
  int row = 0;
  for (const BackUpFile& file : files_) {
    Spread1.SetText(++row, kDateColumn, TimeText(file.Made));
    Spread1.SetText(row, kReasonColumn, file.Reason);
    Spread1.SetText(row, kPartsColumn, PartsText(file.Path));
    Spread1.SetText(row, kSizeColumn, SizeText(file.Path));
    progress->Done(row);
  }
  GoToFirstCell(Spread1);
  ShowPosition();
}

void KVI_Backups::ShowPosition() {
  ShowGridRow(Spread1, StatusBar1, {kDateColumn, kReasonColumn});
}

void KVI_Backups::BackUpNow() {
  const auto reason = app_.desktop.InputBox("What is the copy for?  The list of copies shows it.",
                                            "Back Up", "by hand");
  if (!reason) return;
  std::string path;
  try {
    const Hourglass busy(app_.desktop);
    const auto progress = app_.desktop.NewProgress(Caption(), false);
    path = MakeBackUp(app_.CurrentDatabase, app_.clock.Now(), *reason, progress.get()).string();
  } catch (const RunTimeError& error) {
    return Inform(
        "The database could not be copied.\n\n" + Str(error.Number) + " " + error.Description,
        "Back Up");
  }
  Inform("The database was copied to \"" + path + "\".", "Back Up");
}

void KVI_Backups::RestoreRow() {
  const int row = Spread1.ActiveRow();
  if (row < 1 || row > static_cast<int>(files_.size())) return Say("No copy is chosen.");
  // (A restore fills the list anew.)
  const std::string path = files_[static_cast<std::size_t>(row) - 1].Path.string();
  AskToRestore(path, "the copy of " + Spread1.Text(row, kDateColumn) + " (" +
                         Spread1.Text(row, kReasonColumn) + ")");
}

void KVI_Backups::RestoreFile() {
  const auto file =
      app_.desktop.OpenFileDialog({.title = "Select the copy to restore",
                                   .filters = {{"Inventory Databases (*.mdb)", "*.mdb"}},
                                   .start = BackUpFolder(app_.CurrentDatabase.Path()).string()});
  if (file) AskToRestore(*file, "\"" + *file + "\"");
}

void KVI_Backups::AskToRestore(const std::string& path, const std::string& what) {
  if (!HasFullAccess(app_)) return;
  if (!AskToRemove("The whole database, of all profit centers, will be as in " + what +
                       ".\nWhat was entered since then is not in it.\n\nThe database as it stands "
                       "is copied first.  Do you want to restore this copy?",
                   kTitle))
    return;
  const bool restored = RestoreDatabase(app_, path);
  FillList();
  if (restored) Inform("The database is as in " + what + ".", kTitle);
}

Layout KVI_Backups::Arrange() {
  return Column({BannerLayout(), Actions({&back_up, &restore, &browse, &exit_lab}), Of(Label1),
                 Fill(Of(Spread1))});
}

}  // namespace kvi
