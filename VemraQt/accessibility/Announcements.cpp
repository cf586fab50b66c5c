#include "VemraQt/accessibility/Announcements.hpp"

#include "VemraQt/accessibility/AccessibleElement.hpp"
#include "VemraQt/accessibility/AccessibleSection.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <QAbstractScrollArea>
#include <QScopedValueRollback>

namespace vemra::qt {

using ui::ElementKind;
using ui::NodeID;

namespace {

constexpr std::size_t mostComparedATurn = 32;

}  // namespace

Announcements::Announcements(AccessibleTree& tree) : tree_(tree) {
  comparing_.setInterval(0);
  QObject::connect(&comparing_, &QTimer::timeout, &comparing_, [this] { compareSomeRows(); });
  tree_.page().setObserver(this);
}

Announcements::~Announcements() {
  if (notifying_) {
    std::fputs(
        "vemra::qt: a ViewWidget was destroyed while it notified assistive technology; "
        "use deleteLater\n",
        stderr);
    std::abort();
  }
  tree_.page().setObserver(nullptr);
}

void Announcements::patched(const ui::Changes& changes) {
  if (!tree_.isWatched()) return;
  for (const ui::ListRows& rows : changes.lists) {
    if (tree_.hasNewRows(rows)) comparing_.start();
  }
  for (const ui::Patch& patch : changes.patches) {
    const page::Node* node = tree_.page().tree().find(patch.node);
    if (!node) continue;  // the node is gone: `removing` has noted its row
    if (patch.kind == ui::Patch::Kind::update && node->isLeaf()) updated_.push_back(node->id);
    if (node->parent) childrenChanged(*node->parent);
  }
}

void Announcements::removing(const page::Node& node) {
  if (node.parent && tree_.isWatched()) childrenChanged(*node.parent);
}

void Announcements::childrenChanged(const page::Node& parent) {
  if (const ui::Node* row = rowHolding(parent.id, tree_.page())) changedRows_.push_back(row->id);
}

/// Calls `send`, which notifies clients. When a client changes something meanwhile, announces that
/// change afterwards, so that clients get all changes in order.
template <class Send>
void Announcements::notify(Send send) {
  if (notifying_) return send();
  const QScopedValueRollback<bool> notifying(notifying_, true);
  send();
  while (std::exchange(hasNews_, false)) announceNews();
}

void Announcements::settled() {
  if (!tree_.isWatched()) return;
  hasNews_ = true;
  notify([] {});
}

void Announcements::announceNews() {
  tree_.refresh();
  std::ranges::sort(changedRows_);
  const auto same = std::ranges::unique(changedRows_);
  changedRows_.erase(same.begin(), same.end());
  const std::vector<NodeID> changedRows = std::exchange(changedRows_, {});
  for (const NodeID changed : changedRows) {
    if (AccessibleRow* row = tree_.knownRow(changed)) tree_.elementsOf(row);
  }
  send(tree_.takeChildChanges());
  std::vector<Change> changes;
  compareDescriptions(tree_.elementsOf(nullptr), changes);
  for (const NodeID changed : changedRows) {
    AccessibleRow* row = tree_.knownRow(changed);
    if (row) compareDescriptions(tree_.elementsOf(row), changes);
  }
  for (const NodeID updated : std::exchange(updated_, {})) {
    ElementSlot* slot = knownSlot(updated);
    if (!slot) continue;
    compare(*slot, changes);
    compareNameAround(*slot->object, changes);
  }
  compareShowing(changes);
  send(changes);
  announceTitle();
}

/// The title names a page without a name of its own.
void Announcements::announceTitle() {
  const QString title = tree_.title();
  const std::optional<QString> before = std::exchange(title_, title);
  const QAccessibleInterface* page = tree_.pageObject();
  const bool isName = page && page->text(QAccessible::Name) == title;
  if (!isName || !before || *before == title) return;
  QAccessibleEvent event(&tree_.area(), QAccessible::NameChanged);
  QAccessible::updateAccessibility(&event);
}

/// Rows without nodes get no patches. So this describes the rows that clients know, a few in each
/// turn of the event loop, and compares them with the state last reported to clients.
void Announcements::compareSomeRows() {
  // Take the rows first: describing a row with a list inside may change the map of lists.
  const std::vector<QAccessible::Id> some = tree_.takeUncompared(mostComparedATurn);
  if (some.size() < mostComparedATurn) comparing_.stop();
  std::vector<Change> changes;
  for (const QAccessible::Id id : some) {
    auto* row = dynamic_cast<AccessibleRow*>(AccessibleObject::living(id));
    if (!row) continue;
    for (ElementSlot& slot : tree_.elementsOf(row)) compare(slot, changes);
    compareDescriptions(tree_.elementsOf(row), changes);
    compareName(*row, changes);
  }
  notify([&] {
    send(tree_.takeChildChanges());
    send(changes);
  });
}

void Announcements::compare(ElementSlot& slot, std::vector<Change>& changes) const {
  const ui::Node* node = tree_.find(slot.node);
  if (!slot.object || !node) return;
  const ui::Element& element = node->element;
  const bool isEnabled = element.style().enabled;
  if (std::exchange(slot.enabled, isEnabled) != isEnabled) {
    changes.push_back({slot.object->id(), Change::What::enabled});
  }
  const std::size_t shown = hashOfShown(element);
  // For a text field, its widget or `AccessibleField::replaceText` sends the event.
  if (std::exchange(slot.shown, shown) == shown || slot.kind == ElementKind::textField) return;
  changes.push_back({slot.object->id(),
                     slot.kind == ElementKind::picker ? Change::What::value : Change::What::name});
}

/// An element may name the row or the section that holds it.
void Announcements::compareNameAround(const AccessibleObject& element,
                                      std::vector<Change>& changes) const {
  QAccessibleInterface* holder = element.parent();
  if (auto* row = dynamic_cast<AccessibleRow*>(holder)) compareName(*row, changes);
  auto* section = dynamic_cast<AccessibleSection*>(holder);
  if (section && section->updateReportedName()) {
    changes.push_back({section->id(), Change::What::name});
  }
}

void Announcements::compareName(AccessibleRow& row, std::vector<Change>& changes) const {
  if (row.updateReportedName()) changes.push_back({row.id(), Change::What::name});
}

void Announcements::compareDescriptions(const std::vector<ElementSlot>& elements,
                                        std::vector<Change>& changes) {
  std::vector<AccessibleElement*> known;  // describing one may change the elements
  for (const ElementSlot& slot : elements) {
    if (auto* element = dynamic_cast<AccessibleElement*>(slot.object)) known.push_back(element);
  }
  for (AccessibleElement* element : known) {
    if (element->updateReportedDescription()) {
      changes.push_back({element->id(), Change::What::description});
    }
  }
}

/// Adds a change for each object that is now visible but was last reported as hidden, or the other
/// way round.
void Announcements::compareShowing(std::vector<Change>& changes) {
  using Reported = AccessibleObject::Reported;
  std::erase_if(tree_.shownObjects(), [&](QAccessible::Id id) {
    AccessibleObject* object = AccessibleObject::living(id);
    if (!object) return true;
    if (tree_.isInViewport(object->rect())) return false;
    object->showing = Reported::no;
    changes.push_back({id, Change::What::hidden});
    return true;
  });
  for (AccessibleObject* object : tree_.knownNearViewport()) {
    if (object->showing != Reported::no || !tree_.isInViewport(object->rect())) continue;
    tree_.noteShowing(*object, true);
    changes.push_back({object->id(), Change::What::shown});
  }
}

QAccessible::Event Announcements::eventOf(Change::What what) {
  switch (what) {
    case Change::What::name:
      return QAccessible::NameChanged;
    case Change::What::description:
      return QAccessible::DescriptionChanged;
    case Change::What::shown:
      return QAccessible::ObjectShow;
    default:
      return QAccessible::ObjectHide;
  }
}

/// A client may change anything while it handles an event, so skip elements that have gone
/// meanwhile.
void Announcements::send(const std::vector<Change>& changes) {
  for (const auto& [id, what] : changes) {
    tree_.refresh();
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
      QAccessibleEvent event(object, eventOf(what));
      QAccessible::updateAccessibility(&event);
    }
  }
}

void Announcements::send(const std::vector<atspi::ChildChange>& changes) {
  for (const atspi::ChildChange& change : changes) {
    tree_.refresh();
    send(change);
  }
}

/// A client that handled an earlier change may have removed any of these objects.
void Announcements::send(const atspi::ChildChange& change) const {
  using Kind = atspi::ChildChange::Kind;
  QAccessibleInterface* parent =
      change.parent ? AccessibleObject::living(change.parent) : tree_.pageObject();
  if (!parent) return;
  const QAccessible::Id parentID = QAccessible::uniqueId(parent);
  atspi::ChildChange sent = change;
  if (change.kind != Kind::removed && !AccessibleObject::living(change.child)) sent.child = 0;
  if (atspi::sendsChildSignals()) atspi::sendChildSignal(parentID, sent);
  // Send no event for an unlisted change: Qt 6.4 would send one for every child.
  if (!sent.child || change.kind == Kind::unlisted) return;
  QAccessibleInterface* child = QAccessible::accessibleInterface(sent.child);
  if (!child) return;
  QAccessibleEvent event(child, change.kind == Kind::added ? QAccessible::ObjectCreated
                                                           : QAccessible::ObjectDestroyed);
  QAccessible::updateAccessibility(&event);
}

ElementSlot* Announcements::knownSlot(NodeID node) {
  const ui::Node* rowNode = rowHolding(node, tree_.page());
  AccessibleRow* row = rowNode ? tree_.knownRow(rowNode->id) : nullptr;
  if (rowNode && !row) return nullptr;
  auto& elements = tree_.elementsOf(row);
  const auto slot = std::ranges::find(elements, node, &ElementSlot::node);
  return slot != elements.end() && slot->object ? &*slot : nullptr;
}

void Announcements::focusMoved(NodeID node) {
  const page::Node* leaf = tree_.page().tree().find(node);
  AccessibleObject* object = leaf ? tree_.objectOf(*leaf) : nullptr;
  if (!object) return;
  QAccessibleEvent event(object, QAccessible::Focus);
  notify([&] { QAccessible::updateAccessibility(&event); });
}

}  // namespace vemra::qt
