#include "VemraPlatform/page/Node.hpp"

namespace vemra::page {

using ui::ElementKind;

bool Node::isLeaf() const {
  switch (element.kind()) {
    case ElementKind::text:
    case ElementKind::button:
    case ElementKind::picker:
    case ElementKind::textField:
      return true;
    default:
      return false;
  }
}

bool Node::isTransparent() const {
  switch (element.kind()) {
    case ElementKind::group:
    case ElementKind::forEach:
    case ElementKind::composite:
      return true;
    default:
      return false;
  }
}

Node* rowOf(Node* node) {
  while (node && !node->isWindowedRow()) node = node->parent;
  return node;
}

const Node* rowOf(const Node* node) {
  return rowOf(const_cast<Node*>(node));
}

}  // namespace vemra::page
