#include "platform/Canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <tuple>
#include <utility>

namespace kvi {

ScrollBar::ScrollBar(Screen& screen, std::string name, Direction direction)
    : Control(screen, ControlKind::ScrollBar, std::move(name)), direction_(direction) {}

void ScrollBar::OnChanged(Property property) {
  if (property == Property::Value && Change) Change();
}

Canvas::Canvas(Screen& screen, std::string name)
    : Control(screen, ControlKind::Canvas, std::move(name)) {}

void Canvas::SetInside(int width, int height) {
  if (std::exchange(insideWidth_, width) == width && insideHeight_ == height) return;
  insideHeight_ = height;
  if (Resized) Resized();
}

void Canvas::Show(std::vector<PageMark> marks, int width, int height) {
  marks_ = std::move(marks);
  width_ = width;
  height_ = height;
  TellView(Property::Picture);
}

std::string Canvas::Spoken() const {
  std::vector<const PageMark*> texts;
  for (const PageMark& mark : marks_)
    if (mark.kind == PageMark::Kind::Text) texts.push_back(&mark);
  const auto line = [](const PageMark* mark) { return std::lround(mark->y * 100); };
  std::ranges::stable_sort(texts, {},
                           [&](const PageMark* mark) { return std::tuple(line(mark), mark->x); });
  std::string spoken;
  const PageMark* before = nullptr;
  for (const PageMark* mark : texts) {
    if (before != nullptr) spoken += line(before) == line(mark) ? ", " : "\n";
    spoken += mark->text;
    before = mark;
  }
  return spoken;
}

ScrolledSheet::ScrolledSheet(Screen& screen)
    : canvas(screen, "canvas"),
      HScroll1(screen, "HScroll1", ScrollBar::Direction::Across),
      VScroll1(screen, "VScroll1", ScrollBar::Direction::Down) {
  canvas.SpokenName = "The sheet";
  HScroll1.SpokenName = "Across the sheet";
  VScroll1.SpokenName = "Down the sheet";
  canvas.Across = &HScroll1;
  canvas.Down = &VScroll1;
  canvas.Resized = [this] { SetBars(); };
  HScroll1.Change = [this] { canvas.Left = -HScroll1.Value; };
  VScroll1.Change = [this] { canvas.Top = -VScroll1.Value; };
}

void ScrolledSheet::SetBars() {
  const auto set = [](ScrollBar& bar, int sheet, int inside) {
    const int most = std::max(0, sheet - inside);
    bar.Value = std::min<int>(bar.Value, most);
    bar.Max = most;
    bar.SmallChange = std::abs(most / 16) + 1;
    bar.LargeChange = std::abs(most / 4) + 1;
  };
  set(HScroll1, canvas.Width(), canvas.InsideWidth());
  set(VScroll1, canvas.Height(), canvas.InsideHeight());
}

void ScrolledSheet::GoToCorner() {
  SetBars();
  HScroll1.Value = 0;
  VScroll1.Value = 0;
}

Layout ScrolledSheet::Arrange() {
  return Column({Fill(Row({Fill(Of(canvas)), Of(VScroll1)})), Of(HScroll1)});
}

}  // namespace kvi
