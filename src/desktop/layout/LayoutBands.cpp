#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>

#include "desktop/controls/ActionButton.h"
#include "desktop/controls/ControlAdapter.h"
#include "desktop/layout/FlowLayout.h"
#include "desktop/layout/LayoutBuilder.h"
#include "desktop/look/Look.h"
#include "desktop/look/Panel.h"
#include "platform/Controls.h"

// The bands of a window: what is white on black by design and takes the colours of a scheme.
namespace kvi {

namespace {

void SetFace(QWidget& widget, double points, bool bold) {
  QFont face = widget.font();
  face.setPointSizeF(points);
  face.setBold(bold);
  widget.setFont(face);
}

void SetLook(QWidget& widget, ActionButton::Look look) {
  if (auto* button = dynamic_cast<ActionButton*>(&widget)) button->SetLook(look);
}

}  // namespace

Panel* LayoutBuilder::NewBand(const Control* lead) {
  Panel* band = NewPanel();
  bands_.push_back({band, lead});
  return band;
}

// The product name in its lines at the left, the last one bold; the heading beside it.
QWidget* LayoutBuilder::BuildBanner(const Layout& node) {
  const Control* lead = node.children.empty() ? node.control : node.children[0].control;
  Panel* band = NewBand(lead);
  auto* row = new QHBoxLayout(band);
  row->setContentsMargins(kMargin + 4, 6, kMargin + 4, 6);
  row->setSpacing(18);
  if (!node.children.empty()) {
    auto* lines = new QVBoxLayout;
    lines->setSpacing(0);
    for (const Layout& child : node.children) {
      QWidget* line = BuildControl(child);
      SetFace(*line, &child == &node.children.back() ? 12 : 8.5, &child == &node.children.back());
      lines->addWidget(line);
    }
    row->addLayout(lines);
    auto* rule = new QFrame(band);
    rule->setFixedWidth(1);
    rule->setAutoFillBackground(true);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x80, 0x80, 0x80));
    rule->setPalette(palette);
    row->addWidget(rule);
  }
  if (node.control == nullptr) {
    row->addStretch(1);
    return band;
  }
  QWidget* heading = place_(*node.control)->Widget();
  SetFace(*heading, 16, false);
  row->addWidget(heading, 1);
  return band;
}

QWidget* LayoutBuilder::BuildActions(const Layout& node) {
  Panel* band = NewBand(node.children.empty() ? nullptr : node.children[0].control);
  auto* row = new FlowLayout(band, 0);
  row->setContentsMargins(kMargin - 8, 0, kMargin - 8, 4);
  row->setSpacing(2);
  for (const Layout& child : node.children) {
    QWidget* label = BuildControl(child);
    SetLook(*label, ActionButton::Look::Action);
    row->addWidget(label);
  }
  return band;
}

QWidget* LayoutBuilder::BuildTiles(const Layout& node) {
  Panel* band = NewBand(node.children.empty() ? nullptr : node.children[0].control);
  auto* grid = new QGridLayout(band);
  grid->setContentsMargins(kMargin + 4, kMargin + 4, kMargin + 4, kMargin + 4);
  grid->setSpacing(kMargin);
  const int columns = std::max(1, node.columns);
  int at = 0;
  for (const Layout& child : node.children) {
    QWidget* tile = BuildControl(child);
    SetLook(*tile, ActionButton::Look::Tile);
    if (auto* button = dynamic_cast<ActionButton*>(tile)) {
      tiles_.push_back(button);
      if (tiles_.size() <= 9) button->SetNumber(static_cast<int>(tiles_.size()));
    }
    grid->addWidget(tile, at / columns, at % columns);
    grid->setColumnStretch(at % columns, 1);
    grid->setRowStretch(at / columns, 1);
    ++at;
  }
  return band;
}

}  // namespace kvi
