#pragma once

#include <vector>

#include "platform/MarkingSurface.h"

namespace kvi {

// Documents as plain text on the standard output: each text in the column that its place on paper
// comes to, figures up to their right end, a form feed between two documents.
class TextPages : public PrintRun {
 public:
  explicit TextPages(TextMeasure& measure) : paper_(measure) {}
  Surface& Paper() override { return paper_; }
  void Finish() override {}

 private:
  class Sheets : public MarkingSurface {
   public:
    explicit Sheets(TextMeasure& measure) : MarkingSurface(measure), measure_(measure) {}
    double PageWidth() const override { return 8.5; }
    double PageHeight() const override { return 11; }
    void NewPage() override { EndDoc(); }
    void EndDoc() override;
    void KillDoc() override { marks_.clear(); }

   protected:
    void Draw(const PageMark& mark) override;

   private:
    std::size_t ColumnOf(const PageMark& mark) const;

    TextMeasure& measure_;
    std::vector<PageMark> marks_;
    bool first_ = true;
  };
  Sheets paper_;
};

}  // namespace kvi
