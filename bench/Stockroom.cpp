#include "bench/Stockroom.h"

#include <filesystem>

#include "bench/RawFile.h"
#include "items/KVI_ChooseVendors.h"
#include "store/OpenInventoryDatabase.h"
#include "utilities/KVI_Utilities.h"

namespace kvi::bench {

namespace fs = std::filesystem;

bool MakeDatabase() {
  if (fs::exists(kDatabase)) return true;
  const std::string source = "KV_Inventory.mdb", unfinished = "one-center.new";
  if (!fs::exists(source)) return false;
  fs::create_directory(kFolder);
  fs::copy_file(source, unfinished, fs::copy_options::overwrite_existing);
  {
    RawFile file(unfinished);
    file.Run("DELETE FROM HI_Header WHERE pcenter<>0");
    for (const char* table : {"I_Master", "R_Master", "Hist_Purchases", "[Historical Inventory]"})
      file.Run(std::string("UPDATE ") + table + " SET pcenter=0");
    file.Run("VACUUM");
  }
  fs::rename(unfinished, kDatabase);
  fs::remove(unfinished + "-journal");
  // The first start fills the holes that the sample has; the starts measured find none.
  Desk desk;
  OpenInventoryDatabase(desk.App());
  return true;
}

ScratchCopy::ScratchCopy(std::string path) : path_(std::move(path)) {
  fs::remove(path_ + "-journal");  // of a run that was killed: it would be played back
  fs::copy_file(kDatabase, path_, fs::copy_options::overwrite_existing);
}

ScratchCopy::~ScratchCopy() {
  std::error_code ignored;
  fs::remove(path_, ignored);
  fs::remove(path_ + "-journal", ignored);
}

FilledCopy::FilledCopy(const std::string& path, const std::string& filled, FillFile fill)
    : ScratchCopy(path) {
  if (!fs::exists(filled)) {
    fill(path);
    fs::copy_file(path, filled);
  }
  fs::copy_file(filled, path, fs::copy_options::overwrite_existing);
}

Desk::Desk() {
  app_ = std::make_unique<Application>(Surroundings{desktop_, clock_, chance_, kFolder, ""});
  // The screens that are there before the database is opened: they show what it holds.
  app_->Get<KVI_Utilities>();
  app_->Get<KVI_ChooseVendors>();
}

}  // namespace kvi::bench
