#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <tuple>

#include "base/Number.h"
#include "base/Text.h"

namespace kvi::test {

namespace {

std::string Inches(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  return std::string(text) == "-0.00" ? "0.00" : text;
}

std::string Corners(double a, double b, double c, double d) {
  return Inches(a) + " " + Inches(b) + " " + Inches(c) + " " + Inches(d);
}

}  // namespace

std::string RecordedDocument::Page(int page) const {
  if (page < 1 || page > PageCount()) return "";
  std::vector<Text> texts = pages[static_cast<std::size_t>(page) - 1].texts;
  // To the hundredth that is shown, so that a sum's last digit does not tear a line apart.
  std::ranges::stable_sort(texts, {}, [](const Text& text) {
    return std::tuple(std::lround(text.y * 100), std::lround(text.x * 100));
  });
  std::string lines;
  for (const Text& text : texts)
    lines += Inches(text.x) + " " + Inches(text.y) + (text.bold ? " bold " : " ") + Str(text.size) +
             (text.room > 0 ? " into " + Inches(text.room) : "") + " | " + text.text + "\n";
  return lines;
}

std::string RecordedDocument::Shapes(int page) const {
  if (page < 1 || page > PageCount()) return "";
  return pages[static_cast<std::size_t>(page) - 1].shapes;
}

double EvenMeasure::Width(const MarkFont& font, const std::string& text) {
  return 0.6 * font.points / 72 * static_cast<double>(Len(text));
}

void RecordingRun::Sheets::Draw(const PageMark& mark) {
  if (!std::exchange(open_, true)) {
    documents_.push_back(std::make_shared<RecordedDocument>());
    documents_.back()->jobName = title_;
  }
  RecordedDocument::OnePage& page = documents_.back()->pages.back();
  if (mark.kind == PageMark::Kind::Text)
    page.texts.push_back({mark.x, mark.y, mark.font.points, mark.font.bold, mark.text, mark.room});
  else
    page.shapes += "line " + Corners(mark.x, mark.y, mark.x2, mark.y2) + "\n";
}

void RecordingRun::Sheets::EndDoc() {
  if (std::exchange(open_, false)) documents_.back()->ended = true;
}

double RecordingSurface::TextWidth(const std::string& text) const {
  return 0.6 * FontSize / 72 * static_cast<double>(Len(text));
}

void RecordingSurface::Line(double x1, double y1, double x2, double y2) {
  OpenPage().shapes += "line " + Corners(x1, y1, x2, y2) + "\n";
}

void RecordingSurface::FillBox(double x, double y, double width, double height, int color) {
  OpenPage().shapes += "box " + Corners(x, y, width, height) + " colour " + Str(color) + "\n";
}

void RecordingSurface::NewPage() {
  OpenPage();
  document_->pages.emplace_back();
  CurrentX = CurrentY = 0;
}

void RecordingSurface::EndDoc() {
  OpenPage();
  document_->ended = true;
}

void RecordingSurface::KillDoc() {
  document_->killed = true;
}

void RecordingSurface::DrawText(const std::string& text, double room) {
  OpenPage().texts.push_back({CurrentX, CurrentY, FontSize, FontBold, text, room});
}

RecordedDocument::OnePage& RecordingSurface::OpenPage() {
  if (document_->ended || document_->killed) ADD_FAILURE() << "the document is closed";
  return document_->pages.back();
}

}  // namespace kvi::test
