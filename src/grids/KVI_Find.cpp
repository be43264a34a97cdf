#include "grids/KVI_Find.h"

#include "base/Counter16.h"
#include "base/Text.h"
#include "grids/SprdSubs.h"

namespace kvi {

namespace {

constexpr const char* kDefaultPrompt = "What 'name' would you like to find?";

// Compared with the caller's name exactly. Screens bear mixed-case names, so that these are not met
// and their callers keep the default prompt.
struct CallerPrompt {
  const char *caller, *prompt;
};
constexpr CallerPrompt kCallerPrompts[] = {
    {"KVI_PGSUMMARY", "Enter search item to locate:"},
    {"KVI_UPDATEINVENTORY", "Enter search item to locate:"},
};

// Takes a grid out of sight, since each move on a visible one repaints it.
class OutOfSight {
 public:
  explicit OutOfSight(Spread* grid) : grid_(grid) {
    if (grid_ != nullptr) grid_->Visible = false;
  }
  ~OutOfSight() {
    if (grid_ != nullptr) grid_->Visible = true;
  }
  OutOfSight(const OutOfSight&) = delete;
  OutOfSight& operator=(const OutOfSight&) = delete;

 private:
  Spread* grid_;
};

}  // namespace

KVI_Find::KVI_Find(Application& app)
    : KviScreen(app, "KVI_Find", "Quick Find", "Inventory - Quick Find") {
  Label12.Default = true;
  Label11.Cancel = true;
  Label1.Names = &Text1;
  Label12.Click = [this] { SearchAndClose(); };
  Label11.Click = [this] { Exit(); };
}

void KVI_Find::FindIn(const FindRequest& request) {
  request_ = request;
  app_.screens.ShowModal(*this);
}

void KVI_Find::Prepare() {
  Label1.Caption = Prompt();
  SortLabel.Visible = request_.sortNote;
  Text1.Text = "";
  searchCB.Value = false;
  casecheck.Value = false;
}

std::string KVI_Find::Prompt() const {
  if (!request_.prompt.empty()) return request_.prompt;
  for (const CallerPrompt& entry : kCallerPrompts)
    if (request_.caller == entry.caller) return entry.prompt;
  return kDefaultPrompt;
}

void KVI_Find::SearchAndClose() {
  if (!Text1.Text().empty() && request_.grid != nullptr) SearchGrid();
  CloseScreen();
}

// (The message stands over a list that shows again.)
void KVI_Find::SearchGrid() {
  Spread& grid = *request_.grid;
  const int column = request_.column > 0 ? request_.column : grid.Col;
  {
    const OutOfSight away(request_.hidden);
    if (const int row = NextMatch(column); row > 0) return GoToCell(grid, row, column);
  }
  Inform(request_.nothingFound);
  // The next search begins behind the first row: the top one is not found again.
  grid.Row = 1;
}

int KVI_Find::NextMatch(int column) const {
  const Spread& grid = *request_.grid;
  for (Counter16 row(grid.Row); row < grid.MaxRows();) {
    ++row;
    if (Fits(grid.Text(row, column))) return row;
  }
  return 0;
}

// The cell alone is put in capitals: a text typed in small letters finds nothing, and "Case
// sensitive" has no say in it.
bool KVI_Find::Fits(const std::string& text) const {
  const std::string cell = UCase(Trim(text));
  const std::string& wanted = Text1.Text;
  if (request_.anywhere && searchCB.Value) return cell.find(wanted) != std::string::npos;
  return cell.starts_with(wanted);
}

void KVI_Find::Unload() {
  app_.ReturnedFromFind = true;
}

Layout KVI_Find::Arrange() {
  return Column({BannerLayout(), Actions({&Label12, &Label11}), Of(Label1), Of(Text1, 3.5),
                 Of(searchCB), Of(casecheck), Of(SortLabel), Gap()});
}

}  // namespace kvi
