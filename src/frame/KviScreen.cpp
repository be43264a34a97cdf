#include "frame/KviScreen.h"

#include "frame/ApplyColorScheme.h"

namespace kvi {

ProductBanner::ProductBanner(Screen& screen)
    : Label21(screen, "Label21", "Kestvar"),
      Maintenance(screen, "Maintenance", "Maintenance"),
      Label17(screen, "Label17", "Inventory") {
  for (Label* line : {&Label21, &Maintenance, &Label17}) {
    line->BackColor = kBlack;
    line->ForeColor = kWhite;
  }
}

KviScreen::KviScreen(Application& app, std::string name, std::string caption,
                     const std::string& heading)
    : Screen(std::move(name), std::move(caption)),
      app_(app),
      banner_(*this),
      heading_(*this, "heading", heading) {
  heading_.BackColor = kBlack;
  heading_.ForeColor = kWhite;
}

void KviScreen::Load() {
  CenterForm();
  Prepare();
  ApplyColorScheme(app_, *this);
}

Layout KviScreen::BannerLayout() {
  return Banner({&banner_.Label21, &banner_.Maintenance, &banner_.Label17}, &heading_);
}

void KviScreen::Inform(const std::string& text, const std::string& title) {
  app_.desktop.MsgBox({.text = text, .title = title});
}

bool KviScreen::AskYesNo(const std::string& text, const std::string& title) {
  return app_.desktop.MsgBox(
             {.text = text, .title = title, .buttons = Buttons::YesNo, .icon = Icon::Question}) ==
         Answer::Yes;
}

bool KviScreen::AskToRemove(const std::string& text, const std::string& title) {
  return app_.desktop.MsgBox({.text = text,
                              .title = title,
                              .buttons = Buttons::YesNo,
                              .icon = Icon::Question,
                              .defaultAnswer = Answer::No}) == Answer::Yes;
}

bool KviScreen::AskOkCancel(const std::string& text, const std::string& title) {
  return app_.desktop.MsgBox({.text = text,
                              .title = title,
                              .buttons = Buttons::OkCancel,
                              .icon = Icon::Question}) == Answer::Ok;
}

void KviScreen::SayReadOnly(const std::string& title, const std::string& secondLine) {
  const std::string refusal = "Current security clearance is READ ONLY.";
  Inform(secondLine.empty() ? refusal : refusal + "\n\n" + secondLine, title);
}

bool KviScreen::AskToPrint(const std::string& warning) {
  return AskYesNo(warning + "\n\nAre you sure you want to print this report?", "Print");
}

void KviScreen::PrintImage() {
  if (!AskToPrint()) return;
  const Hourglass busy(app_.desktop);
  app_.desktop.PrintScreenImage(*this);
}

}  // namespace kvi
