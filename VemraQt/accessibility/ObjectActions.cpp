#include "VemraQt/accessibility/ObjectActions.hpp"

#include "VemraQt/page/Page.hpp"

namespace vemra::qt {

bool focus(Page& page, RowPlace row, ui::NodeID node) {
  if (row.list && !page.tree().find(node)) page.bringRow(row.list, row.index);
  if (page.focusElement(node, Qt::OtherFocusReason)) return true;
  scrollIn(page, row, node);
  return false;
}

void scrollIn(Page& page, RowPlace row, ui::NodeID node) {
  if (row.list && !page.tree().find(node)) page.bringRow(row.list, row.index);
  if (const page::Node* leaf = page.tree().find(node)) page.reveal(*leaf);
}

}  // namespace vemra::qt
