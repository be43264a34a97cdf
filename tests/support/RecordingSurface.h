#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/MarkingSurface.h"

namespace kvi::test {

// What was printed, in a form that a test compares as text. It outlives the surface it came by.
struct RecordedDocument {
  std::string jobName;
  bool ended = false;
  bool killed = false;

  int PageCount() const { return static_cast<int>(pages.size()); }
  // The texts of a page (from 1) as lines, from the top down and from the left to the right:
  // "0.30 0.30 bold 12 | Company title" is x, y, the weight if bold, the size, the text; "8 into
  // 0.75" is a size and what the text is condensed to.
  std::string Page(int page) const;
  // The lines and boxes of a page in the order of their drawing: "line 0.50 1.00 8.00 1.00", "box
  // 0.50 1.00 7.50 0.25 colour 7" (x, y, width, height).
  std::string Shapes(int page) const;

  struct Text {
    double x, y, size;
    bool bold;
    std::string text;
    double room = 0;
  };
  struct OnePage {
    std::vector<Text> texts;
    std::string shapes;
  };
  std::vector<OnePage> pages{1};
};

// Every character is 0.6 of the font size wide and a line 1.2 of it high.
class EvenMeasure : public TextMeasure {
 public:
  double Width(const MarkFont& font, const std::string& text) override;
  double Height(const MarkFont& font) override { return 1.2 * font.points / 72; }
};

// A run of recorded documents: each goes to the desktop's list when it is opened.
class RecordingRun : public PrintRun {
 public:
  RecordingRun(std::string title, std::vector<std::shared_ptr<RecordedDocument>>& documents)
      : paper_(std::move(title), documents) {}
  Surface& Paper() override { return paper_; }
  void Finish() override {}

 private:
  class Sheets : public MarkingSurface {
   public:
    Sheets(std::string title, std::vector<std::shared_ptr<RecordedDocument>>& documents)
        : MarkingSurface(even_), title_(std::move(title)), documents_(documents) {}
    double PageWidth() const override { return 8.5; }
    double PageHeight() const override { return 11; }
    void NewPage() override {}
    void EndDoc() override;
    void KillDoc() override {}

   protected:
    void Draw(const PageMark& mark) override;

   private:
    EvenMeasure even_;
    const std::string title_;
    std::vector<std::shared_ptr<RecordedDocument>>& documents_;
    bool open_ = false;
  };
  Sheets paper_;
};

// A letter page on which every character is 0.6 of the font size wide and a line 1.2 of it high.
class RecordingSurface : public Surface {
 public:
  explicit RecordingSurface(std::shared_ptr<RecordedDocument> document)
      : document_(std::move(document)) {}

  double PageWidth() const override { return 8.5; }
  double PageHeight() const override { return 11; }
  double TextWidth(const std::string& text) const override;
  double TextHeight() const override { return 1.2 * FontSize / 72; }
  void Line(double x1, double y1, double x2, double y2) override;
  void FillBox(double x, double y, double width, double height, int color) override;
  void NewPage() override;
  void EndDoc() override;
  void KillDoc() override;

 protected:
  void DrawText(const std::string& text, double room) override;

 private:
  RecordedDocument::OnePage& OpenPage();

  std::shared_ptr<RecordedDocument> document_;
};

}  // namespace kvi::test
