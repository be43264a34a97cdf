#pragma once

#include <QApplication>
#include <QFont>
#include <QString>
#include <optional>
#include <vector>

#include "desktop/printing/MarkPainter.h"

namespace kvi::bench {

inline constexpr const char* kPdf = "bench-print.pdf";

// A mark as a painter takes it.
struct RawMark {
  PageMark mark;
  QFont font;
  QString text;
  double ascent;
};

// Pages as marks, with a null one between two pages.
class MarkRecord : public MarkingSurface {
 public:
  explicit MarkRecord(TextMeasure& measure) : MarkingSurface(measure) {}
  double PageWidth() const override { return 8.5; }
  double PageHeight() const override { return 11; }
  void NewPage() override { marks.emplace_back(); }
  void EndDoc() override { NewPage(); }
  void KillDoc() override {}

  std::vector<std::optional<RawMark>> marks;

 protected:
  void Draw(const PageMark& mark) override;

 private:
  FontInUse inUse_;
};

// What a program does that knows nothing but what to draw where: the marks as a PDF. Tells how
// many pages it had.
double PrintRaw(const std::vector<std::optional<RawMark>>& marks);

class QtOffScreen {
 public:
  QtOffScreen() : platform_(qputenv("QT_QPA_PLATFORM", "offscreen")), app_(count_, arguments_) {}

 private:
  char name_[6] = "bench";
  char* arguments_[2] = {name_, nullptr};
  int count_ = 1;
  bool platform_;
  QApplication app_;
};

}  // namespace kvi::bench
