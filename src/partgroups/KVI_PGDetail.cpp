#include "partgroups/KVI_PGDetail.h"

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "frame/Wording.h"
#include "grids/KVI_Find.h"
#include "grids/SprdSubs.h"
#include "partgroups/PartGroupReport.h"
#include "security/CheckAccess.h"
#include "store/SaveRecord.h"

namespace kvi {

namespace {

constexpr int kLongestText = 255;
constexpr int kRowIsGone = 3167;
const std::string kStoredCaption = kPartGroup + " Detail";
const std::string kNewCaption = kStoredCaption + " - Add New " + kPartGroup;

}  // namespace

KVI_PGDetail::KVI_PGDetail(Application& app)
    : KviScreen(app, "KVI_PGDetail", "Build " + kPartGroup, "Build " + kPartGroup) {
  notes.Multiline = true;
  rec_id.MaxLength = rname.MaxLength = kLongestText;
  m_s_name.Checked = true;
  Label1.Names = &Spread1;
  Label2.Names = &Spread2;
  AddToRecipe.Tip = "Add currently selected item to " + kPartGroupLower;
  Command2.Tip = "Delete current item in " + kPartGroupLower;
  app_.DropListCombos.push_back({&rec_cat, "DD_rg_cat"});
  HandleEvents();
  HandleRows();
  WatchChanges();
}

void KVI_PGDetail::HandleEvents() {
  save.Click = [this] { SavePartGroup(); };
  print_lab.Click = m_f_print.Click = [this] { print_report(); };
  sprint_lab.Click = [this] { PrintImage(); };
  find_lab.Click = [this] { FindAvailable(); };
  exit_lab.Click = m_f_exit.Click = [this] { Exit(); };
  AddToRecipe.Click = [this] { AddSelected(); };
  Command2.Click = [this] { RemoveLines(); };
  Spread2.DblClick = [this](int row, int col) {
    if (row < 1) return;
    Spread2.SetActiveCell(row, col);
    AddSelected();
  };
  Spread2.HeadingClick = [this](int col) {
    for (const MenuItem* entry : {&m_s_id, &m_s_name, &m_s_cat})
      if (col == SortColumn(*entry)) SortBy(*entry);
  };
  Spread2.KeyPress = [this](int, int, const std::string& key) {
    GoToFirstLetter(Spread2, kNameColumn, key);
  };
  CatCombo.Click = [this] {
    if (!settingUp_) FillAvailable();
  };
  for (MenuItem* entry : {&m_s_name, &m_s_id, &m_s_cat})
    entry->Click = [this, entry] { SortBy(*entry); };
}

void KVI_PGDetail::HandleRows() {
  for (Spread* grid : {&Spread1, &Spread2}) {
    grid->KeptCols = {kNumberColumn, kNameColumn};
    grid->ActiveCellChanged = [this, grid] { ShowRow(*grid); };
  }
  Spread1.SpokenName = "Lines of the " + kPartGroupLower;
  Spread2.SpokenName = "Available parts";
  Spread1.EntryCol = kQuantityColumn;
  Spread2.EmptyText = "No parts in this category. Choose another one.";
}

void KVI_PGDetail::ShowRow(const Spread& grid) {
  const int description = &grid == &Spread1 ? kDescriptionColumn : kNameColumn + 1;
  ShowGridRow(grid, StatusBar1, {kNumberColumn, kNameColumn, description}, "line");
  StatusBar1.SetPanelText(1, CountOf(static_cast<int>(Entries().size()), "line"));
}

void KVI_PGDetail::WatchChanges() {
  const auto changed = [this] { lineChanged_ = true; };
  for (TextBox* box : {&rec_id, &rname, &notes}) box->Change = changed;
  rec_cat.Change = rec_cat.Click = changed;
  Spread1.CellEdited = [this](int, int) { LinesChanged(); };
}

void KVI_PGDetail::OpenNew() {
  ShowHeader({});
  SetCaption(kNewCaption);
  app_.screens.ShowModal(*this);
}

void KVI_PGDetail::OpenGroup(const std::string& number) {
  ShowHeader({.number = number});
  SetCaption(kStoredCaption);
  app_.screens.ShowModal(*this);
}

bool KVI_PGDetail::IsNew() const {
  return UCase(Caption()).find("ADD NEW") != std::string::npos;
}

void KVI_PGDetail::EndVisit() {
  lineChanged_ = false;
  scan.Clear();
  StandUnder(Listed::Parts, "Available parts:");
  Spread2.BlankRows();
}

void KVI_PGDetail::Prepare() {
  SetUpLines();
  StandUnder(Listed::Parts, "Available parts:");
}

void KVI_PGDetail::Activate() {
  // The part that the quick find chose stays, and so does what was typed.
  if (app_.ReturnedFromFind) {
    app_.ReturnedFromFind = false;
    return;
  }
  load_data();
  if (IsNew())
    rec_id.SetFocus();
  else
    Spread1.SetFocus();
}

// The caption changes behind the write: a new group whose save failed is still a new one.
void KVI_PGDetail::SavePartGroup() {
  if (!CheckAccess(app_.AccessString, kPartGroupModule, kWriteAccess)) {
    SayReadOnly();
    load_data();
    return;
  }
  const Hourglass busy(app_.desktop);
  const PartGroupHeader header{Trim(rec_id.Text()), rname.Text, rec_cat.Text, notes.Text};
  if (header.number.empty())
    return Inform("You must enter an " + kPartGroupLower + " number before saving.",
                  "Save changes to " + kPartGroupsLower);
  if (missing_)
    return Inform(kPartGroup + " " + header.number + " could not be loaded.\n\nChanges NOT Saved");
  const bool isNew = Caption() != kStoredCaption;
  // A new group takes the place of the lines that a removed one of its number left.
  const std::string replaced = isNew ? LinesOfGroup(header.number) : stored_;
  if (!Write({isNew, app_.CurrentProfitCenter, header, Entries(), replaced})) return;
  SetCaption(kStoredCaption);
  stored_ = isNew ? replaced : LinesOfGroup(header.number, app_.CurrentProfitCenter);
  lineChanged_ = false;
  Spread1.ForgetTyping();
  ShowRow(Spread1);
  Say(kPartGroup + " " + header.number + " saved.");
}

// A group that another desk removed meanwhile is a new one from then on: what stands here is not
// lost.
bool KVI_PGDetail::Write(const PartGroupSave& group) {
  const auto write = [&] {
    try {
      WriteGroup(app_.CurrentDatabase, app_.PartGroupSet, group);
    } catch (const RunTimeError& error) {
      if (error.Number == kRowIsGone) SetCaption(kNewCaption);
      throw;
    }
  };
  return SaveOnce(app_.desktop, write) == SaveEnd::Saved;
}

// What was typed is not lost by a save that failed; a refusal for want of the right is none.
void KVI_PGDetail::Exit() {
  if (lineChanged_ && AskOkCancel("Changes have been made.  Save before exiting?")) {
    SavePartGroup();
    if (lineChanged_) return;
  }
  HideScreen();
}

int KVI_PGDetail::SortColumn(const MenuItem& entry) const {
  constexpr int kCategoryColumn = 7;
  return &entry == &m_s_id ? kNumberColumn : &entry == &m_s_name ? kNameColumn : kCategoryColumn;
}

void KVI_PGDetail::FindAvailable() {
  FindRequest request{
      .caller = Name(), .grid = &Spread2, .hidden = &Spread1, .anywhere = false, .sortNote = false};
  for (const MenuItem* entry : {&m_s_id, &m_s_name, &m_s_cat})
    if (entry->Checked) request.column = SortColumn(*entry);
  if (m_s_id.Checked) request.prompt = "What 'ID #' would you like to find?";
  if (m_s_cat.Checked) request.prompt = "What 'category' would you like to find?";
  app_.Get<KVI_Find>().FindIn(request);
}

void KVI_PGDetail::print_report() {
  const Hourglass busy(app_.desktop);
  PartGroupReport report{.companyTitle = app_.settings.CompanyName,
                         .today = app_.clock.Now().WithoutTime(),
                         .groupName = rname.Text};
  for (int row = 1; row <= Spread1.MaxRows(); ++row) {
    if (!HasLine(row)) continue;
    const auto cell = [&](int col) { return Spread1.Text(row, col); };
    report.lines.push_back({cell(kNumberColumn), cell(kNameColumn), cell(kHowUsedColumn),
                            cell(kQuantityColumn), cell(kCostColumn), cell(kPercentColumn)});
  }
  const auto page = app_.desktop.NewDocument(Caption());
  PrintPartGroup(*page, report);
}

Layout KVI_PGDetail::Arrange() {
  return Column({BannerLayout(), Actions({&save, &print_lab, &sprint_lab, &find_lab, &exit_lab}),
                 Row({Form({Field(Label12, rec_id, 2), Field(Label6, rname, 3.5),
                            Field(Label3, rec_cat, 2.5)}),
                      Field(Label10, notes, 2.6, 0.8), Gap()}),
                 Of(Label1), Fill(Of(Spread1)),
                 Row({Of(Label2), Gap(), Of(AddToRecipe), Of(Command2), Gap(),
                      Field(CatLabel, CatCombo, 2.5), Field("S&can:", scan.Scan, 1.6)}),
                 Fill(Of(Spread2))});
}

}  // namespace kvi
