#include "VemraQt/accessibility/ObjectActions.hpp"

#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <iterator>
#include <vector>

namespace vemra::qt {

void focus(AccessibleTree& tree, AccessibleRow* row, ui::NodeID node) {
  Page& page = tree.page();
  if (row && !page.tree().find(node)) page.bringRow(row->list, row->index);
  if (!page.focusElement(node, Qt::OtherFocusReason)) scrollIn(tree, row, node);
}

void scrollIn(AccessibleTree& tree, AccessibleRow* row, ui::NodeID node) {
  Page& page = tree.page();
  if (row && !page.tree().find(node)) page.bringRow(row->list, row->index);
  if (const page::Node* leaf = page.tree().find(node)) page.reveal(*leaf);
}

void press(AccessibleTree& tree, AccessibleRow* row, ui::NodeID pressed) {
  Page& page = tree.page();
  if (!row || page.tree().find(pressed)) {
    page.deliver(pressed, ui::Press{});
    return;
  }
  struct Place {
    ui::NodeID within, after;
  };
  std::vector<Place> places;
  for (const ui::Node* node = tree.find(pressed); node && !node->isRow; node = node->parent) {
    const auto& siblings = node->parent->children;
    const auto self = std::ranges::find(siblings, node);
    const ui::NodeID before =
        self == siblings.begin() || self == siblings.end() ? ui::NodeID{} : (*std::prev(self))->id;
    places.push_back({node->parent->id, before});
  }
  const QAccessible::Id id = row->id();
  page.deliver(pressed, ui::Press{});
  // The action may have run the event loop and deleted the row's object, so find it again.
  row = dynamic_cast<AccessibleRow*>(AccessibleObject::living(id));
  if (!row || tree.find(pressed)) return;
  tree.refreshList(row->list);
  if (row->isLeaving()) return;
  for (const Place& place : places) {
    if (!tree.find(place.within)) continue;
    page.bringRow(row->list, row->index);
    page.focusInPlace(place.within, place.after);
    return;
  }
}

}  // namespace vemra::qt
