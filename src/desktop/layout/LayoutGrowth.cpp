#include "desktop/layout/LayoutGrowth.h"

#include <algorithm>

#include "platform/Canvas.h"
#include "platform/Controls.h"

namespace kvi {

namespace {

bool IsTallControl(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::Spread:
    case ControlKind::ListBox:
    case ControlKind::PictureBox:
    case ControlKind::TabStrip:
    case ControlKind::Canvas:
      return true;
    case ControlKind::ScrollBar:
      return static_cast<const ScrollBar&>(control).GetDirection() == ScrollBar::Direction::Down;
    case ControlKind::TextBox:
      return static_cast<const TextBox&>(control).Multiline;
    default:
      return false;
  }
}

bool AnyChild(const Layout& node, bool (*rule)(const Layout&)) {
  return std::any_of(node.children.begin(), node.children.end(), rule);
}

}  // namespace

bool IsBand(const Layout& node) {
  return node.kind == Layout::Kind::Banner || node.kind == Layout::Kind::Actions ||
         node.kind == Layout::Kind::Tiles;
}

bool IsTall(const Layout& node) {
  switch (node.kind) {
    case Layout::Kind::Control:
      return IsTallControl(*node.control);
    case Layout::Kind::Text:
    case Layout::Kind::Gap:
      return false;
    case Layout::Kind::Field:
    case Layout::Kind::Row:
      return AnyChild(node, IsTall);
    default:
      return true;
  }
}

bool GrowsDown(const Layout& node) {
  switch (node.kind) {
    case Layout::Kind::Control:
      return node.fills && IsTallControl(*node.control);
    case Layout::Kind::Text:
    case Layout::Kind::Banner:
    case Layout::Kind::Actions:
      return false;
    case Layout::Kind::Gap:
      return true;
    case Layout::Kind::Row:
      // A gap in a row is free room across.
      return (node.fills && AnyChild(node, IsTall)) ||
             std::any_of(node.children.begin(), node.children.end(), [](const Layout& child) {
               return child.kind != Layout::Kind::Gap && GrowsDown(child);
             });
    default:
      return node.fills || AnyChild(node, GrowsDown);
  }
}

bool GrowsAcross(const Layout& node) {
  switch (node.kind) {
    case Layout::Kind::Control:
    case Layout::Kind::Text:
      return node.fills;
    case Layout::Kind::Gap:
      return true;
    case Layout::Kind::Column:
      return node.fills ||
             std::any_of(node.children.begin(), node.children.end(), [](const Layout& child) {
               return child.kind != Layout::Kind::Gap && GrowsAcross(child);
             });
    default:
      return node.fills || IsBand(node) || AnyChild(node, GrowsAcross);
  }
}

}  // namespace kvi
