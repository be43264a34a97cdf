#include "SampleScreen.h"

namespace kvi::test {

SampleScreen::SampleScreen() : Screen("Sample", "Sample screen") {
  notes.Multiline = true;
  code.Masked = true;
  code.MaxLength = 4;
  for (const char* entry : {"Bearings", "Belts", "Pumps"}) category.AddItem(entry);
  for (const char* entry : {"each", "foot", "roll"}) unit.AddItem(entry);
  for (const char* entry : {"Pump rebuild", "Line 4"}) groups.AddItem(entry);
  for (int col = 1; col <= 3; ++col) {
    grid.SetHeading(col, std::string(1, static_cast<char>('A' + col - 1)));
    for (int row = 1; row <= 3; ++row)
      grid.SetText(row, col, std::to_string(row) + grid.Text(0, col));
  }
  grid.SetLock(Block::Column(1), true);
  grid.SetTypeEditLen(Block::Column(3), 5);
  LogEvents();
}

void SampleScreen::LogEvents() {
  const auto logs = [this](const std::string& word) { return [=, this] { log.push_back(word); }; };
  save.Click = logs("save");
  second.Click = logs("second");
  remove.Click = logs("remove");
  print.Click = logs("print");
  byName.Click = [this] { byName.Checked = !byName.Checked; };
  name.Change = [this] { log.push_back("name=" + name.Text()); };
  name.GotFocus = logs("enter name");
  name.LostFocus = logs("leave name");
  notes.Change = [this] { log.push_back("notes=" + notes.Text()); };
  code.Change = [this] { log.push_back("code=" + code.Text()); };
  category.Change = [this] { log.push_back("category=" + category.Text()); };
  category.Click = [this] { log.push_back("category:" + category.Text()); };
  unit.Click = [this] { log.push_back("unit:" + unit.Text()); };
  groups.Click = [this] { log.push_back("groups:" + groups.List(groups.ListIndex())); };
  groups.DblClick = logs("groups double");
  active.Click = [this] { log.push_back("active=" + std::to_string(active.Value)); };
  fifo.Click = logs("fifo");
  average.Click = logs("average");
  tabs.Click = [this] { log.push_back("tab " + std::to_string(tabs.Tab)); };
  grid.LostFocus = logs("leave grid");
  grid.CellEdited = [this](int row, int col) { log.push_back("edit " + grid.Text(row, col)); };
  grid.AdvancedPastLastCell = logs("past");
  grid.HeadingClick = [this](int col) { log.push_back("heading " + std::to_string(col)); };
}

Layout SampleScreen::Arrange() {
  return Column(
      {Banner({}, &heading), Actions({&save, &second}),
       Row({Form({Field(nameCaption, name), Field("Notes:", notes, 3, 1), Field("Code:", code),
                  Field("Category:", category), Field("Unit:", unit), Of(active)}),
            Column({Frame("Valuation", Column({Of(fifo), Of(average)})), Of(groups)})}),
       Tabs(tabs, {Row({Of(remove), Of(picture)}), Text("Nothing here")}), Fill(Of(grid))});
}

std::string SampleScreen::TakeLog() {
  std::string words;
  for (const std::string& word : log) words += (words.empty() ? "" : ", ") + word;
  log.clear();
  return words;
}

}  // namespace kvi::test
