#pragma once

#include <functional>
#include <span>
#include <vector>

#include "platform/Layout.h"

class QBoxLayout;
class QGridLayout;
class QWidget;

namespace kvi {

class AccessKeys;
class ActionButton;
class Control;
class ControlAdapter;
class FlowLayout;
class Panel;

// Builds a window's content from a screen's layout tree. Bands (banner, actions, tiles) run from
// edge to edge in the colour of their controls; everything else stands in panels with even margins.
// A control that is not placed is not shown; menus and status bars are passed over, the window has
// its own place for them.
class LayoutBuilder {
 public:
  // A band and the control that gives it its colour.
  struct Band {
    Panel* panel;
    const Control* lead;
  };
  // `place` makes a control's widget; `mouseOver` is told of the mouse over a free area.
  LayoutBuilder(QWidget& window, AccessKeys& keys, std::function<ControlAdapter*(Control&)> place,
                std::function<void()> mouseOver);

  // The banner and the actions at the top, which stay in sight, and the content below, which
  // scrolls where the display is small.
  struct Built {
    Panel *head, *content;
  };
  Built Build(const Layout& root);
  const std::vector<Band>& Bands() const { return bands_; }
  const std::vector<ActionButton*>& Tiles() const { return tiles_; }

 private:
  Panel* NewPanel();
  FlowLayout* NewFlow();
  QWidget* FillFlow(FlowLayout& flow, std::span<const Layout> children);
  Panel* BuildBands(const std::vector<const Layout*>& nodes);
  QWidget* BuildNode(const Layout& node);
  QWidget* BuildControl(const Layout& node);
  QWidget* BuildText(const Layout& node);
  QWidget* BuildField(const Layout& node);
  QWidget* BuildColumn(const Layout& node);
  QWidget* BuildRow(const Layout& node);
  QWidget* BuildForm(const Layout& node);
  QWidget* BuildFrame(const Layout& node);
  QWidget* BuildTabs(const Layout& node);
  QWidget* BuildGrid(const Layout& node);
  QWidget* BuildBanner(const Layout& node);
  QWidget* BuildActions(const Layout& node);
  QWidget* BuildTiles(const Layout& node);

  struct FieldParts {
    QWidget* label;
    QWidget* field;
  };
  FieldParts BuildFieldParts(const Layout& node);
  QWidget* BuildFormLine(QWidget& first, const Layout& node);
  void AddFormRow(QGridLayout& grid, int row, const Layout& node);
  void FillColumn(QBoxLayout& column, const std::vector<const Layout*>& children);
  Panel* BuildBody(const std::vector<const Layout*>& children);
  Panel* NewBand(const Control* lead);
  void SetSize(QWidget& widget, const Layout& node) const;

  QWidget& window_;
  AccessKeys& keys_;
  std::function<ControlAdapter*(Control&)> place_;
  std::function<void()> mouseOver_;
  std::vector<Band> bands_;
  std::vector<ActionButton*> tiles_;
};

}  // namespace kvi
