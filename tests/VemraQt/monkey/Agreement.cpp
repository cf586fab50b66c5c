#include "tests/VemraQt/monkey/Agreement.hpp"

#include "VemraPlatform/text/Trim.hpp"
#include "VemraQt/accessibility/AccessibleObject.hpp"
#include "VemraQt/widgets/ChoiceBox.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/monkey/SameTrees.hpp"

#include <algorithm>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

namespace vemra::monkey {

namespace {

using Element = Twins::Element;
using ui::ElementKind;

// Rows near the viewport of the largest window the monkey makes, sixteen open editors elsewhere and
// the row with the keyboard; each of up to nine elements. Measured: below 330.
constexpr std::size_t mostWidgets = 500;
constexpr std::size_t mostPinnedRows = 16 + 1;

std::string chosenLabel(const page::Node& picker) {
  for (const qt::Choice& choice : qt::choicesOf(picker)) {
    if (choice.tag == *picker.element.selection()) return choice.label.toStdString();
  }
  return "";
}

void expectShows(QWidget& widget, const page::Node& leaf) {
  std::string shown;
  std::string wanted(leaf.element.shownLabel());
  switch (leaf.element.kind()) {
    case ElementKind::button:
      shown = dynamic_cast<QAbstractButton&>(widget).text().replace("&&", "&").toStdString();
      break;
    case ElementKind::textField:
      shown = dynamic_cast<QLineEdit&>(widget).text().toStdString();
      wanted = leaf.element.text();
      break;
    case ElementKind::picker:
      shown = dynamic_cast<QComboBox&>(widget).currentText().toStdString();
      wanted = chosenLabel(leaf);
      break;
    default:
      shown = dynamic_cast<QLabel&>(widget).text().toStdString();
  }
  if (shown != wanted) {
    fail("the widget shows \"" + shown + "\" for" + described(leaf.element));
  }
  if (widget.isEnabled() != leaf.element.style().enabled) {
    fail("the widget is enabled or not, other than" + described(leaf.element));
  }
  if (widget.objectName().toStdString() != leaf.element.accessibilityIdentifier()) {
    fail("the widget is named \"" + widget.objectName().toStdString() + "\" for" +
         described(leaf.element));
  }
}

/// Every widget shows its element at the element's frame, and every element in view has a widget.
void expectWidgets(Twins& twins, const std::vector<const page::Node*>& leaves) {
  const qt::Page& page = qttest::pageOf(twins.widget);
  const QRect viewport(QPoint(0, 0), twins.widget.viewport()->size());
  for (const page::Node* leaf : leaves) {
    const QRect frame = page.frameOnPage(*leaf).translated(0, -page.scrollPosition());
    const bool isBlank = leaf->element.shownLabel().empty();
    if (frame.height() <= 0 || (frame.width() <= 0 && !isBlank))
      fail("no room for" + described(leaf->element));
    if (frame.left() < 0 || frame.right() >= viewport.right() + 1) {
      fail("reaches out of the page sideways:" + described(leaf->element));
    }
    const qt::ShownLeaf& shown = page.shown(*leaf);
    if (!shown.widget) {
      if (frame.intersects(viewport))
        fail("in view and without a widget:" + described(leaf->element));
      continue;
    }
    QWidget& widget = shown.widget->widget();
    if (shown.widget->node() != leaf->id) fail("another's widget for" + described(leaf->element));
    if (shown.stale) fail("not shown yet:" + described(leaf->element));
    if (widget.isHidden()) fail("hidden:" + described(leaf->element));
    if (widget.geometry() != frame.marginsAdded(qt::overhang(leaf->element, shown.shape))) {
      const QRect at = widget.geometry();
      fail("its widget is at " + std::to_string(at.x()) + ", " + std::to_string(at.y()) +
           ", not at " + std::to_string(frame.x()) + ", " + std::to_string(frame.y()) + ":" +
           described(leaf->element));
    }
    expectShows(widget, *leaf);
  }
  std::size_t shown = 0;
  for (QObject* child : twins.widget.viewport()->children()) {
    auto* widget = qobject_cast<QWidget*>(child);
    auto* element = dynamic_cast<qt::ElementWidget*>(child);
    if (!widget || !element || widget->isHidden()) continue;
    ++shown;
    const page::Node* node = element->node() ? page.tree().find(element->node()) : nullptr;
    if (!node || twins.widgetOf(*node) != element) fail("a widget of nothing is seen");
  }
  if (twins.widget.widgetCount() > mostWidgets) {
    fail("there are " + std::to_string(twins.widget.widgetCount()) + " widgets, " +
         std::to_string(shown) + " of them shown");
  }
}

/// No element covers another, and they are in reading order: each below the previous one, or after
/// it on the line.
void expectReadingOrder(Twins& twins, const std::vector<const page::Node*>& leaves) {
  const qt::Page& page = qttest::pageOf(twins.widget);
  const bool mirrored = twins.widget.layoutDirection() == Qt::RightToLeft;
  for (std::size_t i = 1; i < leaves.size(); ++i) {
    const QRect before = page.frameOnPage(*leaves[i - 1]), after = page.frameOnPage(*leaves[i]);
    const bool below = after.top() > before.bottom();
    const bool behind = mirrored ? after.right() < before.left() : after.left() > before.right();
    if (!below && !behind) {
      fail("not in reading order:" + described(leaves[i - 1]->element) +
           described(leaves[i]->element));
    }
  }
}

/// The rows in view have nodes, and of the others no more than may be kept.
void expectRows(Twins& twins) {
  const qt::Page& page = qttest::pageOf(twins.widget);
  const int height = twins.widget.viewport()->height();
  for (const page::Node* list : page.tree().lists()) {
    const page::RowHeights& heights = *list->rows;
    if (heights.count() != list->element.rowCount()) fail("the page knows another number of rows");
    const int top = list->frame.y - page.scrollPosition();
    std::size_t pinned = 0;
    std::vector<std::size_t> there;
    for (const page::Node& row : list->children()) {
      there.push_back(row.rowIndex);
      const std::int64_t rowTop = top + heights.top(row.rowIndex);
      const bool far = rowTop > height + 3 * 96 || rowTop + heights.height(row.rowIndex) < -3 * 96;
      if (far) ++pinned;
    }
    if (!std::ranges::is_sorted(there)) fail("the rows are not in order");
    if (pinned > mostPinnedRows) fail(std::to_string(pinned) + " rows are kept far away");
    for (std::size_t row = heights.rowAt(-top); row < heights.count(); ++row) {
      if (top + heights.top(row) >= height) break;
      if (top + heights.top(row) + heights.height(row) < 0) continue;
      if (!std::ranges::binary_search(there, row)) {
        fail("row " + std::to_string(row) + " is in view and not there");
      }
    }
  }
  const QScrollBar& bar = *twins.widget.verticalScrollBar();
  if (bar.value() != page.scrollPosition() ||
      bar.maximum() != std::max(0, page.contentHeight() - height)) {
    fail("the scroll bar is not where the page is");
  }
}

void expectFocus(Twins& twins) {
  QWidget* focused = twins.widget.focusWidget();
  if (!focused || focused == &twins.widget) return;
  auto* element = dynamic_cast<qt::ElementWidget*>(focused);
  const page::Node* node = element && element->node()
                               ? qttest::pageOf(twins.widget).tree().find(element->node())
                               : nullptr;
  if (!node || twins.widgetOf(*node) != element) fail("the keyboard is with a dead widget");
  if (!focused->isEnabled()) fail("the keyboard is with a disabled widget");
  if (!focused->isVisible()) fail("the keyboard is with a hidden widget");
}

void expectSameLogs(Twins& twins) {
  if (twins.windowHost.log == twins.screenHost.log) return;
  std::string text = "the hosts were asked different things\nthe window's:";
  for (const std::string& entry : twins.windowHost.log) text += "\n  " + entry;
  text += "\nthe screen's:";
  for (const std::string& entry : twins.screenHost.log) text += "\n  " + entry;
  fail(text);
}

void expectHeard(QAccessibleInterface* object, const Element& element) {
  auto* known = dynamic_cast<qt::AccessibleObject*>(object);
  if (!known) fail("assistive technology misses" + described(element.element));
  const auto complain = [&](const std::string& what) {
    fail("assistive technology gets another " + what + " of" + described(element.element));
  };
  const ui::TextStyle style = element.element.style().font.style;
  const bool isHeading = style == ui::TextStyle::title2 || style == ui::TextStyle::headline;
  QAccessible::Role role = isHeading ? QAccessible::Heading : QAccessible::StaticText;
  if (element.element.kind() == ElementKind::button) role = QAccessible::Button;
  if (element.element.kind() == ElementKind::picker) role = QAccessible::ComboBox;
  if (element.element.kind() == ElementKind::textField) role = QAccessible::EditableText;
  if (object->role() != role) complain("role");
  if (object->text(QAccessible::Name).toStdString() != element.element.shownLabel()) {
    complain("name");
  }
  if (known->identifier().toStdString() != element.element.accessibilityIdentifier()) {
    complain("identifier");
  }
  if (object->state().disabled == element.element.style().enabled) complain("state");
  if (element.element.kind() == ElementKind::textField &&
      object->text(QAccessible::Value).toStdString() != element.element.text()) {
    complain("value");
  }
}

void expectHeardRow(Twins& twins, QAccessibleInterface& list, std::size_t row) {
  QAccessibleInterface* group = list.child(static_cast<int>(row));
  const auto elements = twins.elementsOf(row);
  if (!group || group->role() != QAccessible::ListItem) fail("no list item for a row");
  if (list.indexOfChild(group) != static_cast<int>(row)) fail("a row is elsewhere");
  if (group->childCount() != static_cast<int>(elements.size())) {
    fail("a list item of " + std::to_string(group->childCount()) + " for a row of " +
         std::to_string(elements.size()));
  }
  // The person's name; for a blank name, the reason below it.
  const std::string_view title = elements.front()->element.shownLabel();
  const std::string_view called = text::isBlank(title) ? elements[1]->element.shownLabel() : title;
  if (group->text(QAccessible::Name).toStdString() != called) {
    fail("a row has another name than its person");
  }
  for (std::size_t i = 0; i < elements.size(); ++i) {
    expectHeard(group->child(static_cast<int>(i)), *elements[i]);
  }
}

void collectHeard(QAccessibleInterface& holder, HeardPage& heard) {
  for (int i = 0; i < holder.childCount(); ++i) {
    QAccessibleInterface* child = holder.child(i);
    if (!child) fail("a child is missing");
    if (child->role() == QAccessible::List) {
      heard.list = child;
    } else if (child->role() == QAccessible::Grouping) {
      collectHeard(*child, heard);
    } else {
      heard.elements.push_back(child);
    }
  }
}

}  // namespace

HeardPage heardPage(QAccessibleInterface& page) {
  HeardPage heard;
  collectHeard(page, heard);
  return heard;
}

void expectAgreement(Twins& twins) {
  expectSameLogs(twins);
  const ui::Node* mine = twins.widget.graph().root();
  const Element* theirs = twins.screen.tree().root();
  const page::Node* page = qttest::pageOf(twins.widget).tree().root();
  if (!mine || !theirs || !page) fail("nothing is shown");
  expectSame(twins, *mine, *theirs);
  expectSame(*mine, *page);
  const auto leaves = twins.nearElements();
  expectRows(twins);
  expectWidgets(twins, leaves);
  expectReadingOrder(twins, leaves);
  expectFocus(twins);
}

void expectAgreementEverywhere(Twins& twins) {
  expectAgreement(twins);
  QAccessibleInterface& page = *QAccessible::queryAccessibleInterface(&twins.widget);
  const auto outside = twins.elementsOf(std::nullopt);
  const std::size_t rows = twins.rowCount();
  const auto [heard, list] = heardPage(page);
  if (heard.size() != outside.size()) {
    fail("assistive technology counts " + std::to_string(heard.size()) +
         " elements outside the list, not " + std::to_string(outside.size()));
  }
  for (std::size_t i = 0; i < outside.size(); ++i) expectHeard(heard[i], *outside[i]);
  if (rows != (list ? static_cast<std::size_t>(list->childCount()) : 0)) {
    fail("assistive technology counts other rows than " + std::to_string(rows));
  }
  const auto& lists = qttest::pageOf(twins.widget).tree().lists();
  const std::size_t step = 1 + rows / 500;
  for (std::size_t row = 0; row < rows; row += step) {
    const ui::NodeID looked = twins.widget.graph().peekRow(lists.front()->id, row);
    const ui::Node* node = twins.widget.graph().find(looked);
    if (!node) fail("row " + std::to_string(row) + " cannot be looked at");
    expectSame(twins, *node, childAt(*twins.people(), row));
    expectHeardRow(twins, *list, row);
  }
}

}  // namespace vemra::monkey
