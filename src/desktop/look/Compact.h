#pragma once

#include <QAbstractScrollArea>

namespace kvi {

// A widget of several lines that asks for a few of them only, so that its form fits into a small
// display; it grows where its place does.
template <class Lines>
class Compact : public Lines {
 public:
  using Lines::Lines;
  QSize sizeHint() const override {
    constexpr int kLines = 4;
    const int frame = 2 * this->frameWidth() + 8;
    return {Lines::sizeHint().width(), kLines * this->fontMetrics().lineSpacing() + frame};
  }
};

}  // namespace kvi
