#pragma once

#include <string>

#include "base/Palette.h"

namespace kvi {

// A drawing surface in inches, from the page's upper left corner: the printer, the preview canvas
// and the recording surface of the tests. Text is placed by its upper left corner at the current
// position.
class Surface {
 public:
  virtual ~Surface() = default;

  std::string FontName = "Arial";
  double FontSize = 10;  // points
  bool FontBold = false;
  double CurrentX = 0;  // inches
  double CurrentY = 0;  // inches

  virtual double PageWidth() const = 0;
  virtual double PageHeight() const = 0;
  virtual double TextWidth(const std::string& text) const = 0;
  virtual double TextHeight() const = 0;

  // Draws at the current position, then goes to the line's left edge (x 0) and one line down.
  void PrintLine(const std::string& text = "");
  // Draws and stays on the line: the position goes to the text's right end.
  void Print(const std::string& text);
  void PrintAt(double x, double y, const std::string& text);
  // Draws at a place and leaves the position as it is, so that nothing is measured: for the cells
  // of a list. With a room (inches) the text is drawn condensed to just that width.
  void Put(double x, double y, const std::string& text, double room = 0);
  virtual void Line(double x1, double y1, double x2, double y2) = 0;
  // A filled rectangle in a palette colour, under the texts that come after.
  virtual void FillBox(double x, double y, double width, double height, int color) = 0;

  virtual void NewPage() = 0;
  // Ends the document and sends it; nothing may be drawn after. A surface that is destroyed without
  // it sends nothing.
  virtual void EndDoc() = 0;
  // Drops the document.
  virtual void KillDoc() = 0;

 protected:
  // `room` is 0 where the text is as wide as it is.
  virtual void DrawText(const std::string& text, double room) = 0;
};

// The printer for documents of one name, one behind the other: after EndDoc the next drawing opens
// the next document. What is destroyed unfinished drops the document that is open; those sent stay
// sent.
class PrintRun {
 public:
  virtual ~PrintRun() = default;
  virtual Surface& Paper() = 0;
  // Behind the last EndDoc. Raises 482 when what was drawn cannot be kept.
  virtual void Finish() = 0;
};

}  // namespace kvi
