#include "labels/BinLabels.h"

#include <algorithm>
#include <map>

#include "base/Number.h"
#include "base/Text.h"
#include "grids/TextRuler.h"
#include "labels/BarCode.h"
#include "platform/Desktop.h"
#include "platform/Progress.h"

namespace kvi {

namespace {

// Inches.
constexpr double kMargin = 0.1;
constexpr double kGap = 0.03;
// What scanners of ordinary make read, and what looks right: the width of a narrow bar.
constexpr double kLeastModule = 0.0067, kMostModule = 0.02, kMostSquare = 0.03;
constexpr double kCodeTextSize = 7;  // points
constexpr const char* kTitle = "Bin labels";

struct Area {
  double x, y, width, height;
  double Right() const { return x + width; }
  double Bottom() const { return y + height; }
};

// By the height of the label: 8 points on one of an inch, 10 on one and a half.
double TextSize(const LabelSheet& sheet) {
  return 4 + 4 * sheet.height;
}

Area RoomOf(const LabelSheet& sheet, int place) {
  return {sheet.left + place % sheet.across * sheet.stepX + kMargin,
          sheet.top + place / sheet.across * sheet.stepY + kMargin, sheet.width - 2 * kMargin,
          sheet.height - 2 * kMargin};
}

// How wide a module comes out in the room; 0 where it is too fine to be read.
double ModuleIn(const BarCode& code, double room, double most) {
  const double module = std::min(most, room / code.width);
  return module < kLeastModule ? 0 : module;
}

void Fill(Surface& paper, const BarCode& code, double x, double y, double module, double tall) {
  for (const BarCode::Bar& bar : code.bars)
    paper.FillBox(x + bar.x * module, y + bar.y * tall, bar.width * module, bar.height * tall,
                  kBlack);
}

// Text lines from the top, shortened to the room.
class LabelText {
 public:
  LabelText(Surface& paper, const Area& area, double size)
      : paper_(paper), area_(area), plain_(paper, size, false), bold_(paper, size, true) {
    plain_.Apply();
    height_ = paper.TextHeight();
  }
  double LineHeight() const { return height_; }
  // A text at the left, and one up to the right edge, which keeps its room.
  void Put(int line, bool bold, const std::string& left, const std::string& right) {
    const TextRuler& ruler = bold ? bold_ : plain_;
    ruler.Apply();
    const double y = area_.y + line * height_;
    const std::string ending = ruler.Shortened(right, area_.width / 2);
    const double taken = ending.empty() ? 0 : ruler.Width(ending) + 2 * kGap;
    paper_.Put(area_.x, y, ruler.Shortened(left, area_.width - taken));
    if (!ending.empty()) paper_.Put(area_.Right() - ruler.Width(ending), y, ending);
  }

 private:
  Surface& paper_;
  const Area area_;
  TextRuler plain_, bold_;
  double height_ = 0;
};

// Below `top`, as wide as the label, its text under it.
void DrawBars(Surface& paper, const Area& area, double top, const std::string& text) {
  const auto code = MakeBarCode(text, BarCodeKind::Code128);
  const double module = code ? ModuleIn(*code, area.width, kMostModule) : 0;
  const TextRuler ruler(paper, kCodeTextSize, false);
  ruler.Apply();
  const double textTop = area.Bottom() - paper.TextHeight();
  paper.Put(area.x, textTop, ruler.Shortened(text, area.width));
  if (module > 0)
    Fill(paper, *code, area.x, top + kGap, module, (textTop - top - 2 * kGap) / code->height);
}

void DrawLabel(Surface& paper, const BinLabel& label, Area area, const LabelChoice& choice) {
  const Area whole = area;
  if (choice.withQR) {
    const auto code = MakeBarCode(label.code, BarCodeKind::QR);
    const double side = 3 * TextSize(*choice.sheet) * 1.15 / 72;
    const double module = code ? ModuleIn(*code, side, kMostSquare) : 0;
    if (module > 0) {
      Fill(paper, *code, area.Right() - code->width * module, area.y, module, module);
      area.width -= code->width * module + 3 * kGap;
    }
  }
  LabelText text(paper, area, TextSize(*choice.sheet));
  text.Put(0, true, label.name, "");
  text.Put(1, true, label.number, label.location);
  text.Put(2, false, "Par " + Str(label.par) + "   Re-order " + Str(label.reOrder), label.unit);
  DrawBars(paper, whole, area.y + 3 * text.LineHeight(), label.code);
}

}  // namespace

std::vector<BinLabel> ReadBinLabels(jet::Database& database, const std::string& partsQuery) {
  std::vector<BinLabel> labels;
  jet::Recordset parts = database.OpenSnapshot(
      partsQuery,
      {"name", "inv_id", "location", "how_purchased", "optimal", "re_order", "BarCodeScan"});
  for (; !parts.Eof(); parts.MoveNext()) {
    BinLabel label{Trim(parts.Text("name")),       Trim(parts.Text("inv_id")),
                   Trim(parts.Text("location")),   Trim(parts.Text("how_purchased")),
                   parts.Number("optimal"),        parts.Number("re_order"),
                   Trim(parts.Text("BarCodeScan"))};
    if (label.code.empty()) label.code = label.number;
    labels.push_back(std::move(label));
  }
  return labels;
}

std::vector<BinLabel> InOrderOf(std::vector<BinLabel> labels,
                                const std::vector<std::string>& numbers) {
  std::map<std::string, BinLabel*> byNumber;
  for (BinLabel& label : labels) byNumber.emplace(label.number, &label);
  std::vector<BinLabel> ordered;
  for (const std::string& number : numbers)
    if (const auto found = byNumber.find(Trim(number)); found != byNumber.end())
      ordered.push_back(std::move(*found->second));
  return ordered;
}

int SheetsFor(std::size_t labels, const LabelChoice& choice) {
  const auto places = static_cast<std::size_t>(choice.sheet->Labels());
  return static_cast<int>((labels + static_cast<std::size_t>(choice.firstPlace) - 1 + places - 1) /
                          places);
}

void DrawLabelSheet(Surface& paper, const std::vector<BinLabel>& labels, const LabelChoice& choice,
                    int sheet) {
  for (int place = 0; place < choice.sheet->Labels(); ++place) {
    const int at = sheet * choice.sheet->Labels() + place - (choice.firstPlace - 1);
    if (at >= 0 && at < static_cast<int>(labels.size()))
      DrawLabel(paper, labels[static_cast<std::size_t>(at)], RoomOf(*choice.sheet, place), choice);
  }
}

std::vector<std::string> UnreadableCodes(const std::vector<BinLabel>& labels,
                                         const LabelChoice& choice) {
  std::vector<std::string> unreadable;
  for (const BinLabel& label : labels) {
    const auto code = MakeBarCode(label.code, BarCodeKind::Code128);
    if (!code || ModuleIn(*code, RoomOf(*choice.sheet, 0).width, kMostModule) == 0)
      unreadable.push_back(label.code);
  }
  return unreadable;
}

bool PrintBinLabels(Desktop& desktop, const std::vector<BinLabel>& labels,
                    const LabelChoice& choice) {
  auto progress = desktop.NewProgress(kTitle, true);
  const auto run = desktop.NewPrintRunOn(kTitle, choice.sheet->paper);
  const int sheets = SheetsFor(labels.size(), choice);
  progress->Begin("Printing the labels", sheets);
  for (int sheet = 0; sheet < sheets; ++sheet) {
    if (progress->Cancelled()) return false;
    DrawLabelSheet(run->Paper(), labels, choice, sheet);
    run->Paper().EndDoc();
    progress->Done(sheet + 1);
  }
  progress.reset();
  run->Finish();
  return true;
}

}  // namespace kvi
