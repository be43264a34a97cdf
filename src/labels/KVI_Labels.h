#pragma once

#include <string>
#include <vector>

#include "frame/KviScreen.h"
#include "labels/BinLabels.h"
#include "platform/Canvas.h"

namespace kvi {

// Prints bin labels of some parts: picks the sheet, the first free place on one that was begun, and
// shows the first sheet as it will come out.
class KVI_Labels : public KviScreen {
 public:
  explicit KVI_Labels(Application& app);

  // Of the parts of these numbers, in their order, until the user leaves.
  void ShowLabels(const std::vector<std::string>& numbers);
  // What the next showing is about.
  void Take(const std::vector<std::string>& numbers);

  void Activate() override { ShowSheet(); }
  void EndVisit() override;
  Layout Arrange() override;
  bool TakesWholeDisplay() const override { return true; }

  ComboBox SheetCombo{*this, "SheetCombo", ComboBox::Style::ListOnly};
  TextBox first_place{*this, "first_place"};
  CheckBox with_qr{*this, "with_qr", "&QR code as well"};
  ScrolledSheet sheet{*this};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};

 protected:
  void Prepare() override;

 private:
  // A place that the sheet has not counts as the first.
  void TakePlace();
  LabelChoice Choice() const;
  void ShowSheet();
  void SayUnreadable(const std::vector<std::string>& codes);
  void Print();

  std::vector<BinLabel> labels_;
};

}  // namespace kvi
