#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <string>

#include "base/Format.h"
#include "items/KVI_ChooseVendors.h"
#include "reports/KVI_ReportPages.h"
#include "reports/KVI_ReportsAnalysis.h"
#include "reports/preview.h"
#include "support/TestStockroom.h"

namespace kvi::test {

inline constexpr const char* kLevelsQuestion =
    "Do you want to include system levels in this report?";

// A foreman at the reports. "Nut" is just at its re-order level and 5 above par, "Bolt" below, and
// "Tape" far above both. The group "Kit" has two lines, "Bare" none.
class ReportStory : public ::testing::Test {
 protected:
  ReportStory() {
    stockroom.Fill(
        "I_Master",
        "inv_id | pcenter | name | category | location | desc | how_purchased | how_inv | how_used "
        "| hi_qty | hu_qty | cost_per | qty_on_hand | re_order | optimal | valuation | where1 | "
        "w1_id | where2 | w2_id | active | notes\n"
        "1 | 0 | Bolt of thirty letters, at last | Iron | Bin 1 | short | case | box | each | 12 | "
        "100 | 24 | 2 | 3 | 8 | 48 | Acme | A-1 | Bolt & Co | B-9 | YES | \n"
        "2 | 0 | Nut | IRON | Bin 2 | | bag | bag | each | 0 | 50 | 6 | 10 | 10 | 5 | 60 | Bolt & "
        "Co | B-2 | Acme | A-2 | yes | \n"
        "3 | 0 | Tape | | Bin 0 | | roll | roll | foot | 1 | 90 | 3 | 9 | 1 | 4 | | Acme | A-3 | | "
        "| YES | \n"
        "4 | 0 | Old | Iron | Bin 3 | | roll | roll | foot | 1 | 90 | 3 | 0 | 1 | 4 | 7 | Acme | "
        "A-4 | | | NO | \n"
        "5 | 4 | Far | Iron | Bin 3 | | roll | roll | foot | 1 | 90 | 3 | 0 | 1 | 4 | 7 | Acme | "
        "A-5 | | | YES | ");
    stockroom.Fill("Vendor_Info", "Name\n Acme\n Bolt & Co");
    stockroom.Fill("R_Master",
                   "rec_id | pcenter | name | category | cost | notes\n"
                   "G1 | 0 | Kit | Sets | 12.5 | for the van\n G2 | 0 | Bare | Odd | | ");
    stockroom.Fill("Inv_Recipe",
                   "rec_id | pcenter | inv_id | iname | qty | desc\n"
                   "G1 | 0 | 2 | Nut | 4 | hex\n G1 | 0 | 1 | Bolt | 2.5 | \n"
                   "G1 | 4 | 3 | Tape | 1 | ");
  }

  KVI_ReportsAnalysis& Screen() { return stockroom.App().Get<KVI_ReportsAnalysis>(); }
  preview& Preview() { return stockroom.App().Get<preview>(); }

  // Opens the screen by its tile, runs the user's acts and leaves it.
  void AtReports(const std::function<void()>& user) {
    stockroom.desktop.ExpectScreen("KVI_ReportsAnalysis", [&] {
      user();
      Click(Screen().exit_lab);
    });
    stockroom.user().Click(stockroom.MainScreen().Label3);
    stockroom.desktop.AllCame();
  }
  template <class Clickable>
  void Click(Clickable& control) {
    EXPECT_TRUE(stockroom.user().Click(control)) << control.Name();
  }
  void ExpectLevels(Answer answer) {
    stockroom.desktop.ExpectBox(kLevelsQuestion, answer, "Count Sheet");
  }
  void ExpectVendor(OptionButton& slot, const std::string& vendor) {
    stockroom.desktop.ExpectScreen("KVI_ChooseVendors", [this, &slot, vendor] {
      auto& choice = stockroom.App().Get<KVI_ChooseVendors>();
      stockroom.user().Choose(slot);
      stockroom.user().Choose(choice.where1, choice.where1.IndexOf(vendor));
      Click(choice.exit_lab);
    });
  }
  // Prints one report alone; its pages are the documents that came.
  void Print(CheckBox& box) {
    stockroom.desktop.documents.clear();
    Click(Screen().Command2);
    stockroom.user().Tick(box);
    Click(Screen().print_lab);
  }
  int Pages() { return static_cast<int>(stockroom.desktop.documents.size()); }
  std::string Page(int page) {
    const RecordedDocument& document =
        *stockroom.desktop.documents.at(static_cast<std::size_t>(page) - 1);
    EXPECT_TRUE(document.ended) << page;
    EXPECT_EQ(document.PageCount(), 1) << "each page is a document of its own";
    return document.Page(1);
  }
  // What stands below the last rule of the header, a line of the page a line: "x text|x text".
  std::string Rows(int page) { return Lines(page, true); }
  std::string Header(int page) { return Lines(page, false); }
  std::string Lines(int page, bool below) {
    Page(page);
    const RecordedDocument& document =
        *stockroom.desktop.documents.at(static_cast<std::size_t>(page) - 1);
    const std::string shapes = document.Shapes(1);
    const double rule = std::stod(shapes.substr(shapes.find(' ', 5)));
    std::map<long, std::map<double, std::string>> lines;
    for (const auto& text : document.pages[0].texts)
      if ((text.y >= rule - 0.001) == below)
        lines[std::lround(text.y * 100)][text.x] = Format(text.x, "0.00") + " " + text.text;
    std::string all;
    for (const auto& [y, texts] : lines) {
      std::string line;
      for (const auto& [x, text] : texts) line += (line.empty() ? "" : "|") + text;
      all += line + "\n";
    }
    return all;
  }

  TestStockroom stockroom;
};

}  // namespace kvi::test
