#include "desktop/layout/LayoutBuilder.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QTabWidget>
#include <algorithm>

#include "desktop/controls/AccessKeys.h"
#include "desktop/controls/ControlAdapter.h"
#include "desktop/controls/LabelAdapters.h"
#include "desktop/layout/FlowLayout.h"
#include "desktop/layout/LayoutGrowth.h"
#include "desktop/look/Look.h"
#include "desktop/look/Panel.h"
#include "desktop/look/PlainLabel.h"
#include "desktop/look/QtText.h"
#include "platform/Controls.h"

namespace kvi {

namespace {

// Choices that belong together stand closer than fields.
bool AreChoices(const std::vector<Layout>& nodes) {
  return std::all_of(nodes.begin(), nodes.end(), [](const Layout& node) {
    return node.kind == Layout::Kind::Control &&
           (node.control->Kind() == ControlKind::OptionButton ||
            node.control->Kind() == ControlKind::CheckBox);
  });
}

}  // namespace

LayoutBuilder::LayoutBuilder(QWidget& window, AccessKeys& keys,
                             std::function<ControlAdapter*(Control&)> place,
                             std::function<void()> mouseOver)
    : window_(window), keys_(keys), place_(std::move(place)), mouseOver_(std::move(mouseOver)) {}

Panel* LayoutBuilder::NewPanel() {
  auto* panel = new Panel(&window_);
  panel->MouseOver = mouseOver_;
  return panel;
}

LayoutBuilder::Built LayoutBuilder::Build(const Layout& root) {
  std::vector<const Layout*> nodes{&root};
  if (root.kind == Layout::Kind::Column) {
    nodes.clear();
    for (const Layout& child : root.children) nodes.push_back(&child);
  }
  const auto staysInSight = [](const Layout* node) {
    return node->kind == Layout::Kind::Banner || node->kind == Layout::Kind::Actions;
  };
  const auto content = std::find_if_not(nodes.begin(), nodes.end(), staysInSight);
  return {BuildBands({nodes.begin(), content}), BuildBands({content, nodes.end()})};
}

Panel* LayoutBuilder::BuildBands(const std::vector<const Layout*>& nodes) {
  Panel* panel = NewPanel();
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  bool grows = false;
  std::vector<const Layout*> body;
  const auto endBody = [&] {
    if (body.empty()) return;
    bool bodyGrows = false;
    for (const Layout* node : body) bodyGrows = bodyGrows || GrowsDown(*node);
    column->addWidget(BuildBody(body), bodyGrows ? 1 : 0);
    grows = grows || bodyGrows;
    body.clear();
  };
  for (const Layout* node : nodes) {
    if (!IsBand(*node)) {
      body.push_back(node);
      continue;
    }
    endBody();
    column->addWidget(BuildNode(*node), GrowsDown(*node) ? 1 : 0);
    grows = grows || GrowsDown(*node);
  }
  endBody();
  if (!grows) column->addStretch(1);
  return panel;
}

Panel* LayoutBuilder::BuildBody(const std::vector<const Layout*>& children) {
  Panel* panel = NewPanel();
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(kMargin, kMargin - 4, kMargin, kMargin - 4);
  column->setSpacing(kSpacing);
  FillColumn(*column, children);
  return panel;
}

void LayoutBuilder::FillColumn(QBoxLayout& column, const std::vector<const Layout*>& children) {
  bool grows = false;
  for (const Layout* child : children) {
    const bool childGrows = GrowsDown(*child);
    grows = grows || childGrows;
    if (child->kind == Layout::Kind::Gap) {
      column.addStretch(1);
    } else if (QWidget* widget = BuildNode(*child)) {
      column.addWidget(widget, childGrows ? 1 : 0);
    }
  }
  if (!grows) column.addStretch(0);
}

QWidget* LayoutBuilder::BuildNode(const Layout& node) {
  switch (node.kind) {
    case Layout::Kind::Control:
      return BuildControl(node);
    case Layout::Kind::Text:
      return BuildText(node);
    case Layout::Kind::Field:
      return BuildField(node);
    case Layout::Kind::Column:
      return BuildColumn(node);
    case Layout::Kind::Row:
      return BuildRow(node);
    case Layout::Kind::Form:
      return BuildForm(node);
    case Layout::Kind::Frame:
      return BuildFrame(node);
    case Layout::Kind::Tabs:
      return BuildTabs(node);
    case Layout::Kind::Grid:
      return BuildGrid(node);
    case Layout::Kind::Banner:
      return BuildBanner(node);
    case Layout::Kind::Actions:
      return BuildActions(node);
    case Layout::Kind::Tiles:
      return BuildTiles(node);
    case Layout::Kind::Gap:
      break;
  }
  return NewPanel();
}

void LayoutBuilder::SetSize(QWidget& widget, const Layout& node) const {
  if (node.width > 0) widget.setFixedWidth(qRound(node.width * window_.logicalDpiX()));
  if (node.height > 0) widget.setFixedHeight(qRound(node.height * window_.logicalDpiY()));
}

QWidget* LayoutBuilder::BuildControl(const Layout& node) {
  ControlAdapter* adapter = place_(*node.control);
  if (adapter == nullptr) return nullptr;
  SetSize(*adapter->Widget(), node);
  return adapter->Widget();
}

QWidget* LayoutBuilder::BuildText(const Layout& node) {
  auto* label = new PlainLabel(PlainCaption(ToQt(node.text)), &window_);
  SetSize(*label, node);
  return label;
}

// A fixed text follows its field's visibility; a label control has one of its own.
LayoutBuilder::FieldParts LayoutBuilder::BuildFieldParts(const Layout& node) {
  const Layout& label = node.children[0];
  const Layout& field = node.children[1];
  if (label.kind == Layout::Kind::Text) {
    auto* text = new PlainLabel(ToQt(label.text), &window_);
    ControlAdapter* adapter = place_(*field.control);
    SetSize(*adapter->Widget(), field);
    text->setText(keys_.Claim(text, ToQt(label.text)));
    // A field with a name of its own is not spoken of by its label as well.
    if (field.control->SpokenName.empty() || text->text().contains('&'))
      text->setBuddy(adapter->Widget());
    adapter->AddCompanion(*text);
    adapter->SetLabel(ToQt(label.text));
    return {text, adapter->Widget()};
  }
  ControlAdapter* caption = place_(*label.control);
  ControlAdapter* adapter = place_(*field.control);
  SetSize(*adapter->Widget(), field);
  if (auto* plain = dynamic_cast<LabelAdapter*>(caption)) plain->SetBuddy(*adapter);
  return {caption->Widget(), adapter->Widget()};
}

QWidget* LayoutBuilder::BuildField(const Layout& node) {
  const Layout& field = node.children[1];
  Panel* panel = NewPanel();
  auto* row = new QHBoxLayout(panel);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kLabelGap);
  const FieldParts parts = BuildFieldParts(node);
  const bool fills = node.fills || field.fills;
  row->addWidget(parts.label, 0, IsTall(field) ? Qt::AlignTop : Qt::AlignVCenter);
  row->addWidget(parts.field, fills ? 1 : 0, field.height > 0 ? Qt::AlignTop : Qt::Alignment());
  if (!fills) row->addStretch(0);
  return panel;
}

QWidget* LayoutBuilder::BuildColumn(const Layout& node) {
  Panel* panel = NewPanel();
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(AreChoices(node.children) ? kSpacing / 2 : kSpacing);
  std::vector<const Layout*> children;
  for (const Layout& child : node.children) children.push_back(&child);
  FillColumn(*column, children);
  return panel;
}

// Fields are packed at the left and go on in a further line where the window is narrow. Whole
// blocks share the width unless one of them is to fill it, or stand below each other.
QWidget* LayoutBuilder::BuildRow(const Layout& node) {
  const auto& children = node.children;
  const auto isBlock = [](const Layout& child) {
    return child.kind != Layout::Kind::Control && IsTall(child);
  };
  const auto fills = [](const Layout& child) {
    return child.kind != Layout::Kind::Gap && GrowsAcross(child);
  };
  const bool shares = std::ranges::any_of(children, isBlock) && !GrowsAcross(node);
  if (!shares && std::ranges::none_of(children, fills)) return FillFlow(*NewFlow(), children);

  Panel* panel = NewPanel();
  auto* row = new FoldingRow(panel);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kSpacing + kLabelGap);
  for (const Layout& child : children) {
    if (child.kind == Layout::Kind::Gap) {
      row->addStretch(1);
    } else if (QWidget* widget = BuildNode(child)) {
      row->addWidget(widget, GrowsAcross(child) || (shares && isBlock(child)) ? 1 : 0,
                     IsTall(child) ? Qt::Alignment() : Qt::AlignVCenter);
    }
  }
  return panel;
}

FlowLayout* LayoutBuilder::NewFlow() {
  auto* flow = new FlowLayout(NewPanel(), kSpacing - 2);
  flow->setContentsMargins(0, 0, 0, 0);
  flow->setSpacing(kSpacing + kLabelGap);
  return flow;
}

QWidget* LayoutBuilder::FillFlow(FlowLayout& flow, std::span<const Layout> children) {
  for (const Layout& child : children) {
    if (child.kind == Layout::Kind::Gap) {
      flow.AddGap();
    } else if (QWidget* widget = BuildNode(child)) {
      flow.addWidget(widget);
      if (IsTall(child)) flow.setAlignment(widget, Qt::AlignTop);
    }
  }
  return flow.parentWidget();
}

QWidget* LayoutBuilder::BuildForm(const Layout& node) {
  Panel* panel = NewPanel();
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(kLabelGap);
  grid->setVerticalSpacing(kSpacing - 2);
  grid->setColumnStretch(1, 1);
  int row = 0;
  for (const Layout& child : node.children) AddFormRow(*grid, row++, child);
  if (!GrowsDown(node)) grid->setRowStretch(row, 1);
  return panel;
}

// One line of a form: a field; a row that begins with a field, whose label stands with the other
// labels; a control of its own below the fields; anything else across both columns.
void LayoutBuilder::AddFormRow(QGridLayout& grid, int row, const Layout& node) {
  if (GrowsDown(node)) grid.setRowStretch(row, 1);
  const bool ledByField = node.kind == Layout::Kind::Row && !node.children.empty() &&
                          node.children[0].kind == Layout::Kind::Field;
  if (node.kind != Layout::Kind::Field && !ledByField) {
    QWidget* widget = node.kind == Layout::Kind::Gap ? nullptr : BuildNode(node);
    if (widget == nullptr) return;
    if (node.kind == Layout::Kind::Control && !IsTall(node))
      grid.addWidget(widget, row, 1, Qt::AlignLeft);
    else
      grid.addWidget(widget, row, 0, 1, 2);
    return;
  }
  const Layout& first = ledByField ? node.children[0] : node;
  const Layout& field = first.children[1];
  const FieldParts parts = BuildFieldParts(first);
  grid.addWidget(parts.label, row, 0,
                 Qt::AlignRight | (IsTall(field) ? Qt::AlignTop : Qt::AlignVCenter));
  if (!ledByField) {
    const bool fixed = field.width > 0 && !field.fills;
    grid.addWidget(parts.field, row, 1, fixed ? Qt::AlignLeft : Qt::Alignment());
    return;
  }
  grid.addWidget(BuildFormLine(*parts.field, node), row, 1);
}

// The field whose label stands with the others, and what comes behind it.
QWidget* LayoutBuilder::BuildFormLine(QWidget& first, const Layout& node) {
  const auto others = std::span(node.children).subspan(1);
  if (!GrowsAcross(node)) {
    FlowLayout* flow = NewFlow();
    flow->setSpacing(kSpacing);
    flow->addWidget(&first);
    return FillFlow(*flow, others);
  }
  Panel* panel = NewPanel();
  auto* line = new QHBoxLayout(panel);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(kSpacing);
  line->addWidget(&first);
  for (const Layout& child : others) {
    if (child.kind == Layout::Kind::Gap)
      line->addStretch(1);
    else if (QWidget* widget = BuildNode(child))
      line->addWidget(widget);
  }
  return panel;
}

QWidget* LayoutBuilder::BuildFrame(const Layout& node) {
  auto* frame = new TitledPanel(PlainCaption(ToQt(node.text)), &window_);
  frame->MouseOver = mouseOver_;
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(kMargin, frame->TitleHeight() + kMargin, kMargin, kMargin);
  std::vector<const Layout*> child{&node.children[0]};
  FillColumn(*column, child);
  return frame;
}

QWidget* LayoutBuilder::BuildTabs(const Layout& node) {
  const auto& captions = static_cast<const TabStrip&>(*node.control).Captions();
  auto* tabs = static_cast<QTabWidget*>(place_(*node.control)->Widget());
  for (std::size_t i = 0; i < node.children.size() && i < captions.size(); ++i) {
    Panel* page = BuildBody({&node.children[i]});
    page->SetColor(kPanelColor);
    tabs->addTab(page, ToQt(captions[i]));
  }
  return tabs;
}

QWidget* LayoutBuilder::BuildGrid(const Layout& node) {
  Panel* panel = NewPanel();
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(kSpacing);
  const int columns = std::max(1, node.columns);
  for (int i = 0; i < columns; ++i) grid->setColumnStretch(i, 1);
  int at = 0;
  for (const Layout& child : node.children) {
    QWidget* widget = child.kind == Layout::Kind::Gap ? nullptr : BuildNode(child);
    if (widget != nullptr) grid->addWidget(widget, at / columns, at % columns);
    ++at;
  }
  return panel;
}

}  // namespace kvi
