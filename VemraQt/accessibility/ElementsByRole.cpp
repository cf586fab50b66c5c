#include "VemraQt/accessibility/ElementsByRole.hpp"

#include "VemraQt/accessibility/AccessibleRow.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <vector>

#include <QAbstractScrollArea>

namespace vemra::qt {

namespace {

/// The role of the object that an element has, or would have.
QAccessible::Role roleOf(const ElementSlot& slot, const ui::Node& node) {
  switch (slot.kind) {
    case ui::ElementKind::text:
      return headingLevel(node.element) > 0 ? QAccessible::Heading : QAccessible::StaticText;
    case ui::ElementKind::button:
      return QAccessible::Button;
    case ui::ElementKind::picker:
      return QAccessible::ComboBox;
    case ui::ElementKind::textField:
      return QAccessible::EditableText;
    case ui::ElementKind::forEach:
      return QAccessible::List;
    default:
      return QAccessible::Grouping;
  }
}

class Search {
 public:
  Search(AccessibleTree& tree, const atspi::RoleTest& isSought)
      : tree_(tree), isSought_(isSought), seeksRows_(isSought(QAccessible::ListItem)) {
    for (const QAccessible::Role role :
         {QAccessible::Heading, QAccessible::StaticText, QAccessible::Button, QAccessible::ComboBox,
          QAccessible::EditableText}) {
      if (isSought(role)) seeksElements_ = true;
    }
  }

  QList<QAccessible::Id> found;

  void add(AccessibleRow* row, const ElementSlot& slot) {
    const ui::Node* node = tree_.find(slot.node);
    if (!node) return;
    const bool hasChoices = seeksRows_ && slot.kind == ui::ElementKind::picker;
    const bool isFound = isSought_(roleOf(slot, *node));
    if (!isFound && !hasChoices) return;
    std::vector<ElementSlot>& now = tree_.elementsOf(row);  // they may have changed meanwhile
    const auto still = std::ranges::find(now, slot.node, &ElementSlot::node);
    if (still == now.end()) return;
    AccessibleObject* object = tree_.object(row, *still);
    if (isFound) found.push_back(object->id());
    for (int i = 0; hasChoices && i < object->childCount(); ++i) {
      found.push_back(QAccessible::uniqueId(object->child(i)));
    }
  }

  void addRow(ui::NodeID list, std::size_t index) {
    AccessibleRow* row = seeksRows_ ? tree_.rowAt(list, index) : nullptr;
    if (row) found.push_back(row->id());
    // A picker in a row has choices, which are list items.
    if (!seeksElements_ && !seeksRows_) return;
    for (const ElementSlot& slot :
         elementsUnder(peekRow(list, index, tree_.page()), tree_.page())) {
      const ui::Node* node = tree_.find(slot.node);
      const bool hasChoices = seeksRows_ && slot.kind == ui::ElementKind::picker;
      if (!node || (!hasChoices && !isSought_(roleOf(slot, *node)))) continue;
      if (!row) row = tree_.rowAt(list, index);
      if (row) add(row, slot);
    }
  }

 private:
  AccessibleTree& tree_;
  const atspi::RoleTest& isSought_;
  bool seeksRows_;
  bool seeksElements_ = false;
};

}  // namespace

QList<QAccessible::Id> elementsByRole(AccessibleTree& tree, const atspi::RoleTest& isSought) {
  if (tree.area().isHidden()) return {};
  Search search(tree, isSought);
  const std::vector<ElementSlot> elements = tree.elementsOf(nullptr);  // a copy: it may change
  for (const ElementSlot& slot : elements) {
    search.add(nullptr, slot);
    const ui::Node* list = slot.kind == ui::ElementKind::forEach ? tree.find(slot.node) : nullptr;
    const std::size_t rows = list ? list->element.rowCount() : 0;
    for (std::size_t index = 0; index < rows; ++index) search.addRow(slot.node, index);
  }
  return search.found;
}

}  // namespace vemra::qt
