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
  Search(AccessibleTree& tree, const atspi::RoleTest& isSought, const atspi::FoundObject& take)
      : tree_(tree), isSought_(isSought), take_(take), seeksRows_(isSought(QAccessible::ListItem)) {
    for (const QAccessible::Role role :
         {QAccessible::Heading, QAccessible::StaticText, QAccessible::Button, QAccessible::ComboBox,
          QAccessible::EditableText}) {
      if (isSought(role)) seeksElements_ = true;
    }
  }

  bool isOver() const { return isOver_; }

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
    if (isFound) take(object->id());
    for (int i = 0; hasChoices && !isOver_ && i < object->childCount(); ++i) {
      take(QAccessible::uniqueId(object->child(i)));
    }
  }

  void addRow(ui::NodeID list, std::size_t index) {
    AccessibleRow* row = seeksRows_ ? tree_.rowAt(list, index) : nullptr;
    if (row) take(row->id());
    // A picker in a row has choices, which are list items.
    if (isOver_ || (!seeksElements_ && !seeksRows_)) return;
    for (const ElementSlot& slot :
         elementsUnder(peekRow(list, index, tree_.page()), tree_.page())) {
      if (isOver_) return;
      const ui::Node* node = tree_.find(slot.node);
      const bool hasChoices = seeksRows_ && slot.kind == ui::ElementKind::picker;
      if (!node || (!hasChoices && !isSought_(roleOf(slot, *node)))) continue;
      if (!row) row = tree_.rowAt(list, index);
      if (row) add(row, slot);
    }
  }

 private:
  void take(QAccessible::Id found) { isOver_ = !take_(found); }

  AccessibleTree& tree_;
  const atspi::RoleTest& isSought_;
  const atspi::FoundObject& take_;
  bool isOver_ = false;
  bool seeksRows_;
  bool seeksElements_ = false;
};

}  // namespace

void findElementsByRole(AccessibleTree& tree, const atspi::RoleTest& isSought,
                        const atspi::FoundObject& take) {
  if (tree.area().isHidden()) return;
  Search search(tree, isSought, take);
  const std::vector<ElementSlot> elements = tree.elementsOf(nullptr);  // a copy: it may change
  for (const ElementSlot& slot : elements) {
    if (search.isOver()) return;
    search.add(nullptr, slot);
    const ui::Node* list = slot.kind == ui::ElementKind::forEach ? tree.find(slot.node) : nullptr;
    const std::size_t rows = list ? list->element.rowCount() : 0;
    for (std::size_t index = 0; index < rows && !search.isOver(); ++index) {
      search.addRow(slot.node, index);
    }
  }
}

}  // namespace vemra::qt
