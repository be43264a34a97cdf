#pragma once

#include <string>

#include "frame/Application.h"
#include "platform/Controls.h"
#include "platform/Hourglass.h"
#include "platform/Screen.h"

namespace kvi {

// The product name in three lines, as every screen's banner shows it.
struct ProductBanner {
  explicit ProductBanner(Screen& screen);
  Label Label21, Maintenance, Label17;
};

// What the screens behind Main have in common: the banner with the screen's heading, the load that
// centres first and colours last, the hover rule in the HighlightColor, and the usual boxes.
class KviScreen : public Screen {
 public:
  KviScreen(Application& app, std::string name, std::string caption, const std::string& heading);

  void Load() final;
  int RestingColor() const override { return app_.HighlightColor; }
  bool IsSettingUp() const { return settingUp_; }

 protected:
  // The screen's own part of its load.
  virtual void Prepare() {}

  Layout BannerLayout();
  // Takes the window away without an Unload: the next showing brings no load.
  void HideScreen() { app_.screens.Hide(*this); }
  // Shows a box with one button.
  void Inform(const std::string& text, const std::string& title = "Kestvar Inventory");
  bool AskYesNo(const std::string& text, const std::string& title = "Kestvar Inventory");
  // The same of what takes something away for good: Enter is No.
  bool AskToRemove(const std::string& text, const std::string& title = "Kestvar Inventory");
  bool AskOkCancel(const std::string& text, const std::string& title = "Kestvar Inventory");
  // The refusal of a write. Most screens say in a second line what became of the changes; which do,
  // and under which title, is as their users know them.
  void SayReadOnly(const std::string& title = "Kestvar Inventory",
                   const std::string& secondLine = "Changes NOT Saved");
  // The question that stands before every draft print; a few screens warn in other words.
  bool AskToPrint(const std::string& warning =
                      "This is a draft/screen print only. Use the 'print system' for better "
                      "quality.");
  // Asks, and prints the screen as it stands.
  void PrintImage();

  Application& app_;
  ProductBanner banner_;
  Label heading_;
  // Options and lists are being set, not chosen: their handlers ask it. Raised by a Flag.
  bool settingUp_ = false;
};

}  // namespace kvi
