#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kvi {

class Control;
class TabStrip;

// Where a screen's controls stand, as a small tree. Built with the functions below:
//
//   return Column({Banner({&Label21, &Maintenance, &Label17}, &heading),
//                  Actions({&new_lab, &print_lab, &exit_lab}),
//                  Row({Field("Category filter:", CatCombo), Field("Sort by:", SortCombo)}),
//                  Fill(Of(Spread1)), Of(StatusBar1)});
//
// Menus and status bars need not be placed: the view puts them where they belong.
struct Layout {
  enum class Kind {
    Control,  // one control
    Text,     // a fixed text without a control of its own
    Field,    // a label text beside a control
    Column,   // children one below the other
    Row,      // children side by side
    Form,     // fields with their labels and controls aligned in two columns
    Frame,    // a titled box around one child
    Tabs,     // a tab strip and one child a tab
    Banner,   // product name lines at the left, heading beside them: white on black
    Actions,  // a row of action labels: white on black
    Tiles,    // large action labels in a grid of `columns`, white on black
    Grid,     // children row by row in `columns` equal columns
    Gap,      // a stretch of free room
  };

  Kind kind = Kind::Column;
  Control* control = nullptr;
  std::string text;
  std::vector<Layout> children;
  int columns = 0;
  bool fills = false;    // takes the room that is left
  double width = 0;      // inches; 0 is the control's own
  double height = 0;     // inches; 0 is the control's own
};

Layout Of(Control& control, double width = 0, double height = 0);
Layout Text(std::string text);
Layout Field(std::string label, Control& control, double width = 0, double height = 0);
// A field whose label is a control of its own (its caption changes).
Layout Field(Control& label, Control& control, double width = 0, double height = 0);
Layout Column(std::vector<Layout> children);
Layout Row(std::vector<Layout> children);
Layout Form(std::vector<Layout> fields);
Layout Frame(std::string title, Layout child);
Layout Tabs(TabStrip& strip, std::vector<Layout> panels);
Layout Banner(std::vector<Control*> productLines, Control* heading);
Layout Actions(std::vector<Control*> labels);
Layout Tiles(int columns, std::vector<Control*> tiles);
Layout GridOf(int columns, std::vector<Layout> children);
Layout Gap();
Layout Fill(Layout child);

}  // namespace kvi
