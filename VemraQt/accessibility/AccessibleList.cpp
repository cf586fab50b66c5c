#include "VemraQt/accessibility/AccessibleList.hpp"

#include "VemraQt/accessibility/AccessibleRow.hpp"
#include "VemraQt/page/Page.hpp"

#include <QAbstractScrollArea>

namespace vemra::qt {

int AccessibleList::childCount() const {
  if (isLeaving()) return 0;
  tree().refreshList(list);
  const ui::Node* node = isLeaving() ? nullptr : tree().find(list);
  return node ? static_cast<int>(node->element.rowCount()) : 0;
}

QAccessibleInterface* AccessibleList::child(int index) const {
  if (isLeaving() || index < 0) return nullptr;
  return tree().rowAt(list, static_cast<std::size_t>(index));
}

int AccessibleList::indexOfChild(const QAccessibleInterface* object) const {
  const auto* row = dynamic_cast<const AccessibleRow*>(object);
  if (!row || row->list != list) return -1;
  tree().refreshList(list);
  return row->isLeaving() ? -1 : static_cast<int>(row->index);
}

QAccessibleInterface* AccessibleList::childAt(int x, int y) const {
  // Only rows with nodes can be at a point on the screen.
  const page::Node* shown = isLeaving() ? nullptr : tree().page().tree().find(list);
  if (!shown) return nullptr;
  std::vector<std::size_t> rows;
  for (const page::Node& row : shown->children()) rows.push_back(row.rowIndex);
  for (const std::size_t index : rows) {
    QAccessibleInterface* row = tree().rowAt(list, index);
    if (row && row->rect().contains(x, y)) return row;
  }
  return nullptr;
}

QRect AccessibleList::rect() const {
  const Page& page = tree().page();
  const page::Node* shown = isLeaving() ? nullptr : page.tree().find(list);
  if (!shown) return {};
  QRect whole;
  if (!shown->rows) {  // a list that is not windowed has no frames for its rows
    forEachLeaf(*shown, [&](const page::Node& leaf) { whole |= page.frameOnPage(leaf); });
  } else if (const std::size_t count = shown->rows->count()) {
    whole = page.rowFrameOnPage(*shown, 0) | page.rowFrameOnPage(*shown, count - 1);
  }
  return tree().onScreen(whole);
}

QAccessible::State AccessibleList::state() const {
  QAccessible::State state;
  state.invalid = isLeaving();
  state.offscreen = !tree().isInViewport(rect());
  state.invisible = isLeaving() || !tree().area().isVisible();
  tree().noteShowing(*const_cast<AccessibleList*>(this), !state.offscreen);
  return state;
}

QString AccessibleList::identifier() const {
  return isLeaving() ? QStringLiteral("") : tree().identifierAt(path_);
}

void AccessibleList::scrollIn() {
  if (auto* first = dynamic_cast<AccessibleObject*>(child(0))) first->scrollIn();
}

}  // namespace vemra::qt
