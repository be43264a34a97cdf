#pragma once

#include <string>

#include "frame/KviScreen.h"
#include "platform/Spread.h"

namespace kvi {

// What a screen hands over to have its grid searched; the finder knows nothing else of it.
struct FindRequest {
  std::string caller;        // the calling screen's name
  Spread* grid = nullptr;    // without one nothing is searched
  Spread* hidden = nullptr;  // out of sight while the rows are walked
  int column = 0;            // of the sort choice; 0 leaves the column where the grid has it
  bool anywhere = true;      // "Search entire text" may be asked for
  std::string nothingFound = "No more found - starting back at the top.";
  std::string prompt;    // empty: the caller's name decides
  bool sortNote = true;  // the search follows a sort field
};

// Moves the active cell of its caller's grid to the next row whose column holds the text given. It
// reads the cells that are there, searches once and closes; nothing of it is kept. However it is
// left, ReturnedFromFind is set, by which the caller's activation leaves the grid alone.
class KVI_Find : public KviScreen {
 public:
  explicit KVI_Find(Application& app);

  // Opens the screen for a grid; comes back when it is closed.
  void FindIn(const FindRequest& request);

  void Unload() override;
  Layout Arrange() override;

  Label Label1{*this, "Label1"};
  TextBox Text1{*this, "Text1"};
  CheckBox searchCB{*this, "searchCB", "Search entire &text"};
  CheckBox casecheck{*this, "casecheck", "&Case sensitive"};
  Label SortLabel{*this, "SortLabel", "(Search is performed on currently selected sort field)"};
  ActionLabel Label12{*this, "Label12", "&Find"};
  ActionLabel Label11{*this, "Label11", "E&xit"};

 protected:
  void Prepare() override;

 private:
  std::string Prompt() const;
  void SearchAndClose();
  void SearchGrid();
  // The next row that fits, behind the one where the grid stands; 0 when there is none.
  int NextMatch(int column) const;
  bool Fits(const std::string& text) const;

  FindRequest request_;
};

}  // namespace kvi
