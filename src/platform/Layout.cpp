#include "platform/Layout.h"

#include "platform/Controls.h"

namespace kvi {

namespace {

Layout Node(Layout::Kind kind, std::vector<Layout> children = {}) {
  Layout node;
  node.kind = kind;
  node.children = std::move(children);
  return node;
}

std::vector<Layout> EachOf(const std::vector<Control*>& controls) {
  std::vector<Layout> nodes;
  for (Control* control : controls) nodes.push_back(Of(*control));
  return nodes;
}

}  // namespace

Layout Of(Control& control, double width, double height) {
  Layout node = Node(Layout::Kind::Control);
  node.control = &control;
  node.width = width;
  node.height = height;
  return node;
}

Layout Text(std::string text) {
  Layout node = Node(Layout::Kind::Text);
  node.text = std::move(text);
  return node;
}

Layout Field(std::string label, Control& control, double width, double height) {
  return Node(Layout::Kind::Field, {Text(std::move(label)), Of(control, width, height)});
}

Layout Field(Control& label, Control& control, double width, double height) {
  return Node(Layout::Kind::Field, {Of(label), Of(control, width, height)});
}

Layout Column(std::vector<Layout> children) {
  return Node(Layout::Kind::Column, std::move(children));
}

Layout Row(std::vector<Layout> children) {
  return Node(Layout::Kind::Row, std::move(children));
}

Layout Form(std::vector<Layout> fields) {
  return Node(Layout::Kind::Form, std::move(fields));
}

Layout Frame(std::string title, Layout child) {
  Layout node = Node(Layout::Kind::Frame, {std::move(child)});
  node.text = std::move(title);
  return node;
}

Layout Tabs(TabStrip& strip, std::vector<Layout> panels) {
  Layout node = Node(Layout::Kind::Tabs, std::move(panels));
  node.control = &strip;
  return node;
}

Layout Banner(std::vector<Control*> productLines, Control* heading) {
  Layout node = Node(Layout::Kind::Banner, EachOf(productLines));
  node.control = heading;
  return node;
}

Layout Actions(std::vector<Control*> labels) {
  return Node(Layout::Kind::Actions, EachOf(labels));
}

Layout Tiles(int columns, std::vector<Control*> tiles) {
  Layout node = Node(Layout::Kind::Tiles, EachOf(tiles));
  node.columns = columns;
  return node;
}

Layout GridOf(int columns, std::vector<Layout> children) {
  Layout node = Node(Layout::Kind::Grid, std::move(children));
  node.columns = columns;
  return node;
}

Layout Gap() {
  return Node(Layout::Kind::Gap);
}

Layout Fill(Layout child) {
  child.fills = true;
  return child;
}

}  // namespace kvi
