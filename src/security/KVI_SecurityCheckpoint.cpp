#include "security/KVI_SecurityCheckpoint.h"

#include "base/Number.h"
#include "base/Text.h"

namespace kvi {

namespace {
constexpr int kNobody = -999;
constexpr int kLongestCode = 5;
}  // namespace

KVI_SecurityCheckpoint::KVI_SecurityCheckpoint(Application& app)
    : KviScreen(app, "KVI_SecurityCheckpoint", "Security Checkpoint",
                "Inventory - Security Checkpoint") {
  man_in.Masked = true;
  for (int number = 0; number < 10; ++number) {
    auto& button = digit[static_cast<std::size_t>(number)];
    const std::string caption = Str(number);
    button = std::make_unique<Button>(*this, "digit(" + caption + ")", caption);
    button->Click = [this, number] { EnterDigit(number); };
  }
  Command1.Default = true;
  cancel_button.Cancel = true;
  Command1.Click = [this] { Submit(); };
  clear_button.Click = [this] { Clear(); };
  cancel_button.Click = [this] { Cancel(); };
}

void KVI_SecurityCheckpoint::Activate() {
  Clear();
  man_in.SetFocus();
}

void KVI_SecurityCheckpoint::Clear() {
  man_in.Text = "";
  entered_ = Counter16();
}

void KVI_SecurityCheckpoint::EnterDigit(int number) {
  man_in.Text = man_in.Text() + Str(number);
  man_in.SetFocus();
  man_in.SelStart = static_cast<int>(Len(man_in.Text()));
  ++entered_;
  if (entered_ >= kLongestCode) Submit();
}

void KVI_SecurityCheckpoint::Cancel() {
  app_.CurrentEmployeeCode = kNobody;
  CloseScreen();
}

void KVI_SecurityCheckpoint::Submit() {
  if (man_in.Text().empty()) {
    app_.CurrentEmployeeCode = kNobody;
    return;
  }
  // Leading zeros fall away, and everything from the first character on that is no digit.
  man_in.Text = Str(Val(man_in.Text()));
  app_.EmployeeSet = app_.CurrentDatabase.OpenRecordset("SELECT * FROM EmployeeDB");
  app_.EmployeeSet.FindFirst("E_Code = " + Trim(man_in.Text()) + "");
  if (app_.EmployeeSet.NoMatch()) {
    app_.CurrentEmployeeCode = kNobody;
    app_.CurrentEmployeeName = "";
  } else {
    app_.CurrentEmployeeCode = app_.EmployeeSet["E_Code"];
    app_.CurrentEmployeeName = app_.EmployeeSet.Text("E_Name");
  }
  CloseScreen();
}

Layout KVI_SecurityCheckpoint::Arrange() {
  std::vector<Layout> pad;
  for (int number = 1; number <= 9; ++number)
    pad.push_back(Of(*digit[static_cast<std::size_t>(number)]));
  pad.push_back(Of(clear_button));
  pad.push_back(Of(*digit[0]));
  pad.push_back(Of(cancel_button));
  return Column({BannerLayout(), Field("&Employee code:", man_in, 2), GridOf(3, std::move(pad)),
                 Of(Command1)});
}

}  // namespace kvi
