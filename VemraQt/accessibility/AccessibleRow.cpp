#include "VemraQt/accessibility/AccessibleRow.hpp"

#include "VemraPlatform/text/Trim.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>

#include <QAbstractScrollArea>

namespace vemra::qt {

QAccessibleInterface* AccessibleRow::parent() const {
  return isLeaving() ? tree().pageObject() : tree().listObject(list);
}

QMap<QString, QString> AccessibleRow::objectAttributes() const {
  tree().refreshList(list);
  const ui::Node* node = isLeaving() ? nullptr : tree().find(list);
  if (!node) return {};
  return {{QStringLiteral("posinset"), QString::number(index + 1)},
          {QStringLiteral("setsize"), QString::number(node->element.rowCount())}};
}

int AccessibleRow::childCount() const {
  return static_cast<int>(tree().elementsOf(const_cast<AccessibleRow*>(this)).size());
}

QAccessibleInterface* AccessibleRow::child(int place) const {
  auto* self = const_cast<AccessibleRow*>(this);
  auto& elements = tree().elementsOf(self);
  if (place < 0 || place >= static_cast<int>(elements.size())) return nullptr;
  return tree().object(self, elements[static_cast<std::size_t>(place)]);
}

int AccessibleRow::indexOfChild(const QAccessibleInterface* object) const {
  const auto& elements = tree().elementsOf(const_cast<AccessibleRow*>(this));
  auto found = std::ranges::find_if(elements,
                                    [&](const ElementSlot& slot) { return slot.object == object; });
  return found == elements.end() ? -1 : static_cast<int>(found - elements.begin());
}

QString AccessibleRow::textOf(QAccessible::Text kind) const {
  if (kind != QAccessible::Name) return {};
  QString name = shownName();
  reportedName_ = qHash(name);
  return name;
}

bool AccessibleRow::updateReportedName() {
  if (!reportedName_) return false;
  const std::size_t name = qHash(shownName());
  return std::exchange(*reportedName_, name) != name;
}

QString AccessibleRow::shownName() const {
  for (const ElementSlot& slot : tree().elementsOf(const_cast<AccessibleRow*>(this))) {
    if (slot.kind != ui::ElementKind::text && slot.kind != ui::ElementKind::button) continue;
    const ui::Node* node = tree().find(slot.node);
    if (!node) return {};
    // A group without a name would sound like its neighbours, so skip blank texts.
    const std::string_view shown = node->element.shownLabel();
    if (!text::isBlank(shown)) return toQString(shown);
  }
  return {};
}

QRect AccessibleRow::rect() const {
  tree().refreshList(list);
  const Page& page = tree().page();
  const page::Node* shownList = page.tree().find(list);
  if (!shownList) return {};
  if (!shownList->rows) {  // a list that is not windowed has no frames for its rows
    const ui::Node* node = tree().nodeOf(*const_cast<AccessibleRow*>(this));
    const page::Node* shown = node ? page.tree().find(node->id) : nullptr;
    QRect whole;
    if (shown) {
      forEachLeaf(*shown, [&](const page::Node& leaf) { whole |= page.frameOnPage(leaf); });
    }
    return tree().onScreen(whole);
  }
  if (index >= shownList->rows->count()) return {};
  return tree().onScreen(page.rowFrameOnPage(*shownList, index));
}

QAccessible::State AccessibleRow::state() const {
  QAccessible::State state;
  state.offscreen = !tree().isInViewport(rect());
  state.invisible = !tree().area().isVisible();
  tree().noteShowing(*const_cast<AccessibleRow*>(this), !state.offscreen);
  return state;
}

QString AccessibleRow::identifier() const {
  const ui::Node* node = tree().nodeOf(*const_cast<AccessibleRow*>(this));
  return node ? toQString(node->element.accessibilityIdentifier()) + QStringLiteral("")
              : QStringLiteral("");
}

void AccessibleRow::scrollIn() {
  const auto& elements = tree().elementsOf(this);
  if (!elements.empty()) qt::scrollIn(tree().page(), place(), elements.front().node);
}

}  // namespace vemra::qt
