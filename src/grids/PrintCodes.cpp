#include "grids/PrintCodes.h"

#include "base/Number.h"
#include "base/Text.h"

namespace kvi {
namespace {

class PrintCodeReader {
 public:
  PrintCodeReader(const std::string& codes, int page) : codes_(codes), page_(page) {}

  std::vector<PrintedLine> Read() {
    while (at_ < codes_.size()) {
      const char character = codes_[at_++];
      if (character != '/' || !ReadCode()) current_.text += character;
    }
    EndLine();
    return std::move(lines_);
  }

 private:
  // What stands behind a slash. False when it is no code.
  bool ReadCode() {
    if (at_ == codes_.size()) return false;
    const char code = codes_[at_];
    switch (code) {
      case '/':
        current_.text += '/';
        break;
      case 'p':
        current_.text += Str(page_);
        break;
      case 'n':
        EndLine();
        break;
      case 'l':
        Align(CellAlign::Left);
        break;
      case 'c':
        Align(CellAlign::Center);
        break;
      case 'r':
        Align(CellAlign::Right);
        break;
      case 'f':
        return ReadFontCode();
      default:
        return false;
    }
    ++at_;
    return true;
  }

  bool ReadFontCode() {
    if (at_ + 1 == codes_.size()) return false;
    const char what = codes_[at_ + 1];
    at_ += 2;
    const std::string argument = ReadArgument();
    if (what == 'n') current_.fontName = argument;
    if (what == 'z' && Val(argument) > 0) current_.fontSize = Val(argument);
    return true;
  }

  // A quoted argument, or the digit of an on/off code.
  std::string ReadArgument() {
    if (at_ < codes_.size() && (codes_[at_] == '0' || codes_[at_] == '1'))
      return std::string(1, codes_[at_++]);
    if (at_ == codes_.size() || codes_[at_] != '"') return "";
    const std::size_t end = std::min(codes_.find('"', at_ + 1), codes_.size());
    const std::string argument = codes_.substr(at_ + 1, end - at_ - 1);
    at_ = std::min(end + 1, codes_.size());
    return argument;
  }

  void Align(CellAlign align) {
    EndStretch();
    current_.align = align;
  }

  void EndStretch() {
    if (current_.text.empty()) return;
    line_.push_back(current_);
    current_.text.clear();
  }

  void EndLine() {
    line_.push_back(current_);
    lines_.push_back(std::move(line_));
    line_.clear();
    current_ = {};
  }

  const std::string& codes_;
  int page_;
  std::size_t at_ = 0;
  PrintedText current_;
  PrintedLine line_;
  std::vector<PrintedLine> lines_;
};

}  // namespace

std::vector<PrintedLine> ReadPrintCodes(const std::string& codes, int page) {
  if (codes.empty()) return {};
  return PrintCodeReader(codes, page).Read();
}

std::string PlainPrintText(const std::string& text) {
  return Replace(text, "/", "//");
}

}  // namespace kvi
