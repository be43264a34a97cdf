#include "platform/Surface.h"

#include <utility>

namespace kvi {

void Surface::PrintLine(const std::string& text) {
  if (!text.empty()) DrawText(text, 0);
  CurrentX = 0;
  CurrentY += TextHeight();
}

void Surface::Print(const std::string& text) {
  if (text.empty()) return;
  DrawText(text, 0);
  CurrentX += TextWidth(text);
}

void Surface::Put(double x, double y, const std::string& text, double room) {
  if (text.empty()) return;
  const double beforeX = std::exchange(CurrentX, x), beforeY = std::exchange(CurrentY, y);
  DrawText(text, room);
  CurrentX = beforeX;
  CurrentY = beforeY;
}

void Surface::PrintAt(double x, double y, const std::string& text) {
  CurrentX = x;
  CurrentY = y;
  Print(text);
}

}  // namespace kvi
