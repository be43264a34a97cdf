#include "platform/Surface.h"

namespace kvi {

void Surface::PrintLine(const std::string& text) {
  if (!text.empty()) DrawText(text);
  CurrentX = 0;
  CurrentY += TextHeight();
}

void Surface::Print(const std::string& text) {
  if (text.empty()) return;
  DrawText(text);
  CurrentX += TextWidth(text);
}

void Surface::PrintAt(double x, double y, const std::string& text) {
  CurrentX = x;
  CurrentY = y;
  Print(text);
}

}  // namespace kvi
