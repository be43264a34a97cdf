#include "grids/WrapText.h"

#include <sstream>

#include "base/Text.h"

namespace kvi {

namespace {

// As many characters of a word as fit, up to its last hyphen among them; one at least.
std::string Fitting(const Surface& page, const std::string& word, double width) {
  std::size_t count = Len(word);
  while (count > 1 && page.TextWidth(Left(word, count)) > width) --count;
  const std::string fitting = Left(word, count);
  const std::size_t hyphen = fitting.rfind('-');
  return hyphen == std::string::npos ? fitting : fitting.substr(0, hyphen + 1);
}

class Wrapper {
 public:
  Wrapper(const Surface& page, double width) : page_(page), width_(width) {}

  void Add(const std::string& paragraph) {
    std::istringstream words(paragraph);
    std::string line;
    for (std::string word; std::getline(words, word, ' ');) {
      std::string longer = line;
      if (!line.empty()) longer += ' ';
      longer += word;
      if (page_.TextWidth(longer) <= width_) {
        line = longer;
      } else {
        if (!line.empty()) lines.push_back(line);
        line = LastPiece(word);
      }
    }
    lines.push_back(line);
  }

  std::vector<std::string> lines;

 private:
  // Breaks a word as long as it is too wide, and leaves its end.
  std::string LastPiece(std::string word) {
    while (page_.TextWidth(word) > width_ && Len(word) > 1) {
      lines.push_back(Fitting(page_, word, width_));
      word.erase(0, lines.back().size());
    }
    return word;
  }

  const Surface& page_;
  const double width_;
};

}  // namespace

std::vector<std::string> WrapText(const Surface& page, const std::string& text, double width) {
  Wrapper wrapper(page, width);
  std::istringstream paragraphs(Replace(text, "\r\n", "\n"));
  for (std::string paragraph; std::getline(paragraphs, paragraph);) wrapper.Add(paragraph);
  if (wrapper.lines.empty()) wrapper.lines.emplace_back();
  return std::move(wrapper.lines);
}

}  // namespace kvi
