#include "platform/MarkingSurface.h"

namespace kvi {

void MarkingSurface::DrawText(const std::string& text, double room) {
  PageMark mark;
  mark.x = CurrentX;
  mark.y = CurrentY;
  mark.text = text;
  mark.font = Font();
  mark.room = room;
  Draw(mark);
}

void MarkingSurface::Line(double x1, double y1, double x2, double y2) {
  PageMark mark;
  mark.kind = PageMark::Kind::Line;
  mark.x = x1;
  mark.y = y1;
  mark.x2 = x2;
  mark.y2 = y2;
  Draw(mark);
}

void MarkingSurface::FillBox(double x, double y, double width, double height, int color) {
  PageMark mark;
  mark.kind = PageMark::Kind::Box;
  mark.x = x;
  mark.y = y;
  mark.x2 = width;
  mark.y2 = height;
  mark.color = color;
  Draw(mark);
}

}  // namespace kvi
