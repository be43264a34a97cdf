#include "labels/KVI_Labels.h"

#include "base/Number.h"
#include "base/Text.h"
#include "platform/Hourglass.h"

namespace kvi {

namespace {

int Twips(double inches) {
  return static_cast<int>(inches * kTwipsPerInch);
}

std::string Count(std::size_t count, const std::string& word) {
  return Str(static_cast<int>(count)) + " " + word + (count == 1 ? "" : "s");
}

}  // namespace

KVI_Labels::KVI_Labels(Application& app)
    : KviScreen(app, "KVI_Labels", "Labels", "Inventory - Bin Labels") {
  for (const LabelSheet& kind : LabelSheets()) SheetCombo.AddItem(kind.caption);
  SheetCombo.SetListIndex(0);
  first_place.Tip = "Where the labels begin on a sheet of which some are used: 1 is the upper left";
  SheetCombo.Click = [this] { TakePlace(); };
  first_place.LostFocus = [this] { TakePlace(); };
  with_qr.Click = [this] { ShowSheet(); };
  print_lab.Click = [this] { Print(); };
  exit_lab.Cancel = true;
  exit_lab.Click = [this] { Exit(); };
}

void KVI_Labels::Prepare() {
  first_place.Text = "1";
}

void KVI_Labels::ShowLabels(const std::vector<std::string>& numbers) {
  Take(numbers);
  app_.screens.ShowModal(*this);
}

void KVI_Labels::Take(const std::vector<std::string>& numbers) {
  const Hourglass busy(app_.desktop);
  labels_ =
      InOrderOf(ReadBinLabels(app_.CurrentDatabase, "SELECT * FROM I_Master WHERE pcenter = " +
                                                        Str(app_.CurrentProfitCenter)),
                numbers);
}

void KVI_Labels::TakePlace() {
  const double typed = Val(first_place.Text());
  const bool isPlace = typed >= 1 && typed <= Choice().sheet->Labels();
  first_place.Text = Str(isPlace ? static_cast<int>(typed) : 1);
  ShowSheet();
}

LabelChoice KVI_Labels::Choice() const {
  return {&LabelSheets()[static_cast<std::size_t>(SheetCombo.ListIndex())],
          static_cast<int>(Val(first_place.Text())), with_qr.Value};
}

void KVI_Labels::ShowSheet() {
  const LabelChoice choice = Choice();
  const PaperSize& paper = choice.sheet->paper;
  SheetSurface surface(app_.desktop.Measure(), paper.width, paper.height);
  DrawLabelSheet(surface, labels_, choice, 0);
  sheet.canvas.Show(surface.TakeMarks(), Twips(paper.width), Twips(paper.height));
  sheet.GoToCorner();
  StatusBar1.SetPanelText(
      1, Count(labels_.size(), "label") + " on " +
             Count(static_cast<std::size_t>(SheetsFor(labels_.size(), choice)), "sheet"));
  SayUnreadable(UnreadableCodes(labels_, choice));
}

void KVI_Labels::SayUnreadable(const std::vector<std::string>& codes) {
  if (codes.empty()) return Say("");
  const int more = static_cast<int>(codes.size()) - 1;
  Say("Without bars, since they would be too fine to be read: " + codes.front() +
      (more > 0 ? " and " + Str(more) + " more" : ""));
}

void KVI_Labels::Print() {
  const Hourglass busy(app_.desktop);
  PrintBinLabels(app_.desktop, labels_, Choice());
}

void KVI_Labels::EndVisit() {
  labels_.clear();
  sheet.canvas.Clear();
}

Layout KVI_Labels::Arrange() {
  return Column({BannerLayout(), Actions({&print_lab, &exit_lab}),
                 Row({Field("&Sheet:", SheetCombo, 4),
                      Field("&First label at place:", first_place, 0.6), Of(with_qr), Gap()}),
                 Fill(sheet.Arrange()), Of(StatusBar1)});
}

}  // namespace kvi
