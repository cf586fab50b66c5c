// What clients are told when something has changed.

#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>

#include <QAbstractScrollArea>
#include <QScopedValueRollback>

namespace vemra::qt {

using ui::ElementKind;
using ui::NodeID;

namespace {

constexpr std::size_t mostComparedATurn = 32;

}  // namespace

void AccessibleTree::patched(const std::vector<ui::Patch>& patches) {
  if (!isWatched()) return;
  for (const ui::Patch& patch : patches) {
    const page::Node* node = page_.tree().find(patch.node);
    if (!node) continue;  // `removing` reported it, while it was there
    if (patch.kind == ui::Patch::Kind::update && node->isLeaf()) updated_.push_back(node->id);
    if (node->parent) childrenChanged(*node->parent);
  }
}

void AccessibleTree::removing(const page::Node& node) {
  if (node.parent && isWatched()) childrenChanged(*node.parent);
}

void AccessibleTree::childrenChanged(const page::Node& parent) {
  if (const ui::Node* row = rowHolding(parent.id)) changedRows_.push_back(row->id);
}

/// Runs what notifies clients. What they change meanwhile is announced after it, so that they hear of
/// all changes in their order.
template <class Tell>
void AccessibleTree::notify(Tell tell) {
  if (notifying_) return tell();
  const QScopedValueRollback<bool> notifying(notifying_, true);
  tell();
  while (std::exchange(hasNews_, false)) announceNews();
}

void AccessibleTree::settled() {
  if (!isWatched()) return;
  hasNews_ = true;
  notify([] {});
}

void AccessibleTree::announceNews() {
  refreshPage();
  std::ranges::sort(changedRows_);
  const auto same = std::ranges::unique(changedRows_);
  changedRows_.erase(same.begin(), same.end());
  for (const NodeID changed : std::exchange(changedRows_, {})) {
    if (AccessibleRow* row = knownRow(changed)) elementsOf(row);
  }
  tell(std::exchange(childChanges_, {}));
  std::vector<Change> changes;
  for (const NodeID updated : std::exchange(updated_, {})) {
    ElementSlot* slot = nullptr;
    const AccessibleElement* object = knownObject(updated, &slot);
    if (!object) continue;
    compare(*slot, changes);
    if (object->row()) compareName(*object->row(), changes);
  }
  compareShowing(changes);
  tell(changes);
}

void AccessibleTree::rowsReplaced() {
  if (isWatched()) comparing_.start();
}

/// Of rows without nodes nobody is told by patches: those that clients know are described and held
/// against what they have heard, a few in a turn of the event loop.
void AccessibleTree::compareSomeRows() {
  refreshPage();
  std::vector<NodeID> known;
  known.reserve(lists_.size());
  for (const auto& [node, list] : lists_) known.push_back(node);
  for (const NodeID list : known) refreshList(list);
  // Taken out first: to describe a row that holds a list of its own may change what lists there are.
  std::vector<QAccessible::Id> some;
  for (auto& [node, list] : lists_) {
    while (!list.uncompared.empty() && some.size() < mostComparedATurn) {
      some.push_back(list.uncompared.back());
      list.uncompared.pop_back();
    }
  }
  if (some.size() < mostComparedATurn) comparing_.stop();
  std::vector<Change> changes;
  for (const QAccessible::Id id : some) {
    auto* row = dynamic_cast<AccessibleRow*>(AccessibleObject::living(id));
    if (!row) continue;
    for (ElementSlot& slot : elementsOf(row)) compare(slot, changes);
    compareName(*row, changes);
  }
  notify([&] {
    tell(std::exchange(childChanges_, {}));
    tell(changes);
  });
}

void AccessibleTree::compare(ElementSlot& slot, std::vector<Change>& changes) const {
  const ui::Node* node = find(slot.node);
  if (!slot.object || !node) return;
  const ui::Element& element = node->element;
  const bool isEnabled = element.style().enabled;
  if (std::exchange(slot.enabled, isEnabled) != isEnabled) {
    changes.push_back({slot.object->id(), Change::What::enabled});
  }
  const std::size_t shown = hashOfShown(element);
  // What is typed into a field is told by its widget, or by what sets it.
  if (std::exchange(slot.shown, shown) == shown || slot.kind == ElementKind::textField) return;
  changes.push_back({slot.object->id(),
                     slot.kind == ElementKind::picker ? Change::What::value : Change::What::name});
}

void AccessibleTree::compareName(AccessibleRow& row, std::vector<Change>& changes) const {
  if (row.hearName()) changes.push_back({row.id(), Change::What::name});
}

void AccessibleTree::noteShowing(AccessibleObject& object, bool isShowing) {
  using Heard = AccessibleObject::Heard;
  if (isShowing && object.showing != Heard::yes) showing_.push_back(object.id());
  object.showing = isShowing ? Heard::yes : Heard::no;
}

bool AccessibleTree::isShowing(AccessibleObject& object) {
  auto* element = dynamic_cast<AccessibleElement*>(&object);
  // The elements of a row that is out of sight need not be asked for, and may have no nodes.
  if (element && element->row() && !isInViewport(rectOf(*element->row()))) return false;
  return isInViewport(object.rect());
}

/// The objects that somebody has asked for, of what is in the viewport.
std::vector<AccessibleObject*> AccessibleTree::knownInViewport() {
  std::vector<AccessibleObject*> objects;
  const auto addKnown = [&](const std::vector<ElementSlot>& elements) {
    for (const ElementSlot& slot : elements) {
      if (slot.object) objects.push_back(slot.object);
    }
  };
  addKnown(slots_);
  std::vector<AccessibleRow*> rows;
  for (auto& [node, list] : lists_) {
    const page::Node* shown = page_.tree().find(node);
    if (!shown) continue;
    for (const page::Node& rendered : shown->children()) {
      const auto row = list.rows.find(rendered.rowIndex);
      if (row != list.rows.end()) rows.push_back(row->second);
    }
  }
  for (AccessibleRow* row : rows) {
    objects.push_back(row);
    addKnown(elementsOf(row));
  }
  return objects;
}

/// What has been heard to be showing, or not to be, and now is the other.
void AccessibleTree::compareShowing(std::vector<Change>& changes) {
  using Heard = AccessibleObject::Heard;
  std::erase_if(showing_, [&](QAccessible::Id id) {
    AccessibleObject* object = AccessibleObject::living(id);
    if (!object) return true;
    if (isShowing(*object)) return false;
    object->showing = Heard::no;
    changes.push_back({id, Change::What::hidden});
    return true;
  });
  for (AccessibleObject* object : knownInViewport()) {
    if (object->showing != Heard::no || !isShowing(*object)) continue;
    noteShowing(*object, true);
    changes.push_back({object->id(), Change::What::shown});
  }
}

/// A client may change anything while it handles an event: no event is sent for an element that has gone.
void AccessibleTree::tell(const std::vector<Change>& changes) {
  for (const auto& [id, what] : changes) {
    refreshPage();
    AccessibleObject* object = AccessibleObject::living(id);
    auto* element = dynamic_cast<AccessibleElement*>(object);
    if (!object || (element && !element->node())) continue;
    if (what == Change::What::enabled) {
      QAccessible::State changed;
      changed.disabled = true;
      QAccessibleStateChangeEvent event(object, changed);
      QAccessible::updateAccessibility(&event);
    } else if (what == Change::What::value) {
      QAccessibleValueChangeEvent event(object, object->text(QAccessible::Value));
      QAccessible::updateAccessibility(&event);
    } else {
      QAccessibleEvent event(object, what == Change::What::name    ? QAccessible::NameChanged
                                     : what == Change::What::shown ? QAccessible::ObjectShow
                                                                   : QAccessible::ObjectHide);
      QAccessible::updateAccessibility(&event);
    }
  }
}

void AccessibleTree::tell(const std::vector<atspi::ChildChange>& changes) {
  for (const atspi::ChildChange& change : changes) {
    refreshPage();
    tell(change);
  }
}

/// Whoever was told of what was before may have made any of them go.
void AccessibleTree::tell(const atspi::ChildChange& change) const {
  using Kind = atspi::ChildChange::Kind;
  QAccessibleInterface* parent =
      change.parent ? AccessibleObject::living(change.parent) : pageObject();
  if (!parent) return;
  const QAccessible::Id parentID = QAccessible::uniqueId(parent);
  atspi::ChildChange told = change;
  if (change.kind != Kind::removed && !AccessibleObject::living(change.child)) told.child = 0;
  if (atspi::sendsChildSignals()) atspi::sendChildSignal(parentID, told);
  // Of an unlisted change there is no event: Qt 6.4 would make one of every child there is.
  if (!told.child || change.kind == Kind::unlisted) return;
  QAccessibleInterface* child = QAccessible::accessibleInterface(told.child);
  if (!child) return;
  QAccessibleEvent event(child, change.kind == Kind::added ? QAccessible::ObjectCreated
                                                           : QAccessible::ObjectDestroyed);
  QAccessible::updateAccessibility(&event);
}

AccessibleElement* AccessibleTree::knownObject(NodeID node, ElementSlot** its) {
  const ui::Node* rowNode = rowHolding(node);
  AccessibleRow* row = rowNode ? knownRow(rowNode->id) : nullptr;
  if (rowNode && !row) return nullptr;
  for (ElementSlot& slot : elementsOf(row)) {
    if (slot.node != node) continue;
    if (its) *its = &slot;
    return slot.object;
  }
  return nullptr;
}

void AccessibleTree::focusMoved(NodeID node) {
  const page::Node* leaf = page_.tree().find(node);
  AccessibleElement* object = leaf ? objectOf(*leaf) : nullptr;
  if (!object) return;
  QAccessibleEvent event(object, QAccessible::Focus);
  notify([&] { QAccessible::updateAccessibility(&event); });
}

}  // namespace vemra::qt
