#include "grids/Workbook.h"

#include <xlsxwriter.h>

#include <cmath>
#include <filesystem>
#include <map>

#include "base/Date.h"
#include "base/Number.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "base/Utf8.h"

namespace kvi {

namespace {

constexpr int kCannotWrite = 75;
constexpr std::size_t kLongestText = 32767, kLongestSheetName = 31;  // characters, of the format
constexpr double kTwipsPerPixel = 15;
constexpr char32_t kFirstBadByte = 0xDC00, kLastBadByte = 0xDCFF;

// Without what the file's XML has no place for.
std::string Clean(const std::string& text) {
  std::string clean;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = NextCharacter(text, at);
    const bool isBlank = character < ' ' && character != '\n';
    const bool isBad = character >= kFirstBadByte && character <= kLastBadByte;
    AppendCharacter(clean, isBlank ? U' ' : isBad ? U'?' : character);
  }
  return Left(clean, kLongestText);
}

std::string SheetName(const std::string& name) {
  std::string clean = Clean(name);
  for (char& character : clean)
    if (std::string_view("[]:*?/\\'").find(character) != std::string_view::npos) character = ' ';
  return Trim(clean).empty() ? "Sheet1" : Left(clean, kLongestSheetName);
}

// As the number shows; one below 1000 does not tell whether its mask has commas.
std::string MaskOf(const std::string& shown, double value) {
  const bool commas = shown.find(',') != std::string::npos || std::fabs(value) < 1000;
  const auto point = shown.find('.');
  std::string mask = shown.find('$') != std::string::npos ? "$" : "";
  mask += commas ? "#,##0" : "0";
  if (point != std::string::npos) mask += "." + std::string(shown.size() - point - 1, '0');
  return mask;
}

// One file as it is written, under another name until it is whole.
class Writing {
 public:
  Writing(const std::string& path, const std::string& sheet)
      : path_(path),
        book_(workbook_new((path + ".part").c_str())),
        sheet_(workbook_add_worksheet(book_, SheetName(sheet).c_str())) {}
  Writing(const Writing&) = delete;
  Writing& operator=(const Writing&) = delete;
  ~Writing() {
    if (book_ != nullptr) workbook_close(book_);
    std::error_code error;
    std::filesystem::remove(path_ + ".part", error);
  }

  void PutHeadings(const WorkbookTable& table);
  void PutCell(lxw_row_t row, lxw_col_t col, const WorkbookTable::Cell& cell);
  void Finish();

 private:
  lxw_format* FormatOf(const std::string& mask);
  bool PutDate(lxw_row_t row, lxw_col_t col, const std::string& text);

  const std::string path_;
  lxw_workbook* book_;
  lxw_worksheet* sheet_;
  std::map<std::string, lxw_format*> formats_;
};

lxw_format* Writing::FormatOf(const std::string& mask) {
  lxw_format*& format = formats_[mask];
  if (format == nullptr) {
    format = workbook_add_format(book_);
    format_set_num_format(format, mask.c_str());
  }
  return format;
}

void Writing::PutHeadings(const WorkbookTable& table) {
  lxw_format* bold = workbook_add_format(book_);
  format_set_bold(bold);
  format_set_text_wrap(bold);
  format_set_bottom(bold, LXW_BORDER_THIN);
  for (std::size_t at = 0; at < table.columns.size(); ++at) {
    const auto col = static_cast<lxw_col_t>(at);
    const auto pixels = static_cast<std::uint32_t>(table.columns[at].width / kTwipsPerPixel);
    worksheet_set_column_pixels(sheet_, col, col, pixels, nullptr);
    worksheet_write_string(sheet_, 0, col, Clean(table.columns[at].heading).c_str(), bold);
  }
  worksheet_freeze_panes(sheet_, 1, static_cast<lxw_col_t>(table.keptColumns));
  worksheet_repeat_rows(sheet_, 0, 0);
  worksheet_set_landscape(sheet_);
  worksheet_fit_to_pages(sheet_, 1, 0);
}

bool Writing::PutDate(lxw_row_t row, lxw_col_t col, const std::string& text) {
  const auto date = CDate(text);
  if (!date) return false;
  lxw_datetime when{date->year, date->month,  date->day,
                    date->hour, date->minute, static_cast<double>(date->second)};
  worksheet_write_datetime(sheet_, row, col, &when,
                           FormatOf(date->HasTime() ? "m/d/yyyy h:mm" : "m/d/yyyy"));
  return true;
}

void Writing::PutCell(lxw_row_t row, lxw_col_t col, const WorkbookTable::Cell& cell) {
  const std::string text = Trim(cell.text);
  if (text.empty()) return;
  if (cell.kind == WorkbookTable::Kind::Date && PutDate(row, col, text)) return;
  if (cell.kind == WorkbookTable::Kind::Figure) {
    if (const auto number = TypedNumber(text)) {
      worksheet_write_number(sheet_, row, col, *number, FormatOf(MaskOf(text, *number)));
      return;
    }
  }
  worksheet_write_string(sheet_, row, col, Clean(cell.text).c_str(), nullptr);
}

void Writing::Finish() {
  const lxw_error closed = workbook_close(book_);
  book_ = nullptr;
  if (closed != LXW_NO_ERROR)
    throw RunTimeError(kCannotWrite, path_ + " cannot be written: " + lxw_strerror(closed));
  std::error_code error;
  std::filesystem::rename(path_ + ".part", path_, error);
  if (error) throw RunTimeError(kCannotWrite, path_ + " cannot be written: " + error.message());
}

}  // namespace

void WriteWorkbook(const std::string& path, const std::string& sheet, const WorkbookTable& table) {
  Writing writing(path, sheet);
  writing.PutHeadings(table);
  for (int row = 0; row < table.rows; ++row)
    for (std::size_t col = 0; col < table.columns.size(); ++col)
      writing.PutCell(static_cast<lxw_row_t>(row) + 1, static_cast<lxw_col_t>(col),
                      table.cell(row, col));
  writing.Finish();
}

}  // namespace kvi
