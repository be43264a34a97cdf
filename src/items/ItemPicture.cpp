#include "items/ItemPicture.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>

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

// By the first bytes that the picture formats begin with.
bool IsPicture(const std::string& path) {
  using namespace std::string_view_literals;
  constexpr std::string_view kBeginnings[] = {"BM"sv,   "\0\0\1\0"sv, "II*\0"sv,  "MM\0*"sv,
                                              "GIF8"sv, "\xFF\xD8"sv, "\x89PNG"sv};
  std::ifstream file(path, std::ios::binary);
  char start[4] = {};
  file.read(start, sizeof start);
  const std::string_view read(start, static_cast<std::size_t>(file.gcount()));
  return std::ranges::any_of(
      kBeginnings, [&](std::string_view beginning) { return read.starts_with(beginning); });
}

}  // namespace

void ShowPicture(WorkingItem& item, const std::string& path) {
  item.picpath.Text = Trim(path);
  item.Imageman1.Path = IsFile(item.picpath.Text) ? item.picpath.Text() : "";
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
  if (!IsPicture(*name)) throw RunTimeError(kInvalidPicture);
  return true;
}

}  // namespace kvi
