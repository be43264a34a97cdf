#include "items/ItemPicture.h"

#include <filesystem>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi {

namespace {

constexpr int kFileNotFound = 53;
constexpr int kInvalidPicture = 481;

bool IsFile(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(path, ignored);
}

}  // namespace

void ShowPicture(WorkingItem& item, const std::string& path) {
  item.picpath.Text = Trim(path);
  // Emptied first: the same file may hold another picture by now.
  item.Imageman1.Path = "";
  if (IsFile(item.picpath.Text)) item.Imageman1.Path = item.picpath.Text();
}

bool SelectPicture(WorkingItem& item, Desktop& desktop) {
  const std::string& present = item.picpath.Text;
  const auto name = desktop.OpenFileDialog({.title = "Select Image",
                                            .filters = {{"Bitmap Files (*.bmp)", "*.bmp"},
                                                        {"Icon Files (*.ico)", "*.ico"},
                                                        {"TIF Files (*.tif)", "*.tif"},
                                                        {"GIF Files (*.gif)", "*.gif"},
                                                        {"JPEG Files (*.jpg)", "*.jpg"},
                                                        {"All Files (*.*)", "*.*"}},
                                            .start = present.empty() ? "*.bmp" : present});
  if (!name) return false;
  // A pattern is no file: the dialog was left as it opened.
  if (name->starts_with("*.")) return true;
  ShowPicture(item, *name);
  if (!IsFile(*name)) throw RunTimeError(kFileNotFound);
  if (!desktop.CanShowPicture(*name)) throw RunTimeError(kInvalidPicture);
  return true;
}

}  // namespace kvi
