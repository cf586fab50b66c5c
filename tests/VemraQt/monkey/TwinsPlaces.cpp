// The places of the elements of both screens, and which elements correspond.

#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/monkey/Agreement.hpp"
#include "tests/VemraQt/monkey/Twins.hpp"

#include <algorithm>
#include <utility>

namespace vemra::monkey {

using ui::ElementKind;

namespace {

bool isSeen(ElementKind kind) {
  return kind == ElementKind::text || kind == ElementKind::button || kind == ElementKind::picker ||
         kind == ElementKind::textField;
}

bool isControl(const ui::Element& element) {
  return isSeen(element.kind()) && element.kind() != ElementKind::text;
}

bool isListOfPeople(const ui::Element& element) {
  return element.kind() == ElementKind::forEach;
}

void collect(const Twins::Element& node, std::vector<const Twins::Element*>& elements) {
  if (isSeen(node.element.kind())) {
    elements.push_back(&node);
    return;
  }
  if (isListOfPeople(node.element)) return;
  for (const Twins::Element& child : node.children()) collect(child, elements);
}

const Twins::Element* findList(const Twins::Element& node) {
  if (isListOfPeople(node.element)) return &node;
  if (isSeen(node.element.kind())) return nullptr;
  for (const Twins::Element& child : node.children()) {
    if (const Twins::Element* found = findList(child)) return found;
  }
  return nullptr;
}

}  // namespace

const Twins::Element& childAt(const Twins::Element& node, std::size_t index) {
  return *std::next(node.children().begin(), static_cast<std::ptrdiff_t>(index));
}

const Twins::Element* Twins::people() const {
  const Element* root = screen.tree().root();
  return root ? findList(*root) : nullptr;
}

std::size_t Twins::rowCount() const {
  const Element* list = people();
  return list ? list->childCount : 0;
}

std::vector<const Twins::Element*> Twins::elementsOf(std::optional<std::size_t> row) const {
  std::vector<const Element*> elements;
  const Element* list = row ? people() : nullptr;
  if (row && (!list || *row >= list->childCount)) return {};
  collect(row ? childAt(*list, *row) : *screen.tree().root(), elements);
  return elements;
}

const Twins::Element* Twins::at(const Place& place) const {
  const auto elements = elementsOf(place.row);
  return place.element < elements.size() ? elements[place.element] : nullptr;
}

std::optional<Place> Twins::nextControl(std::optional<Place> from, bool forward) const {
  // The page's own elements come before the people (the title and the heading) and after them. One
  // row is one group; so are the elements before the rows and those behind them.
  const std::size_t rows = rowCount();
  const auto outside = elementsOf(std::nullopt);
  const std::size_t before = std::min<std::size_t>(2, outside.size());
  const std::size_t stations = rows + 2;
  std::size_t station = forward ? 0 : stations - 1;
  bool isInside = from.has_value();
  const std::size_t element = from ? from->element : 0;
  if (from) {
    station = from->row ? *from->row + 1 : (from->element < before ? 0 : rows + 1);
  }
  for (std::size_t round = 0; round < stations + 1; ++round) {
    std::optional<std::size_t> row;
    if (station > 0 && station <= rows) row = station - 1;
    const auto elements = row ? elementsOf(row) : outside;
    const std::size_t first = station == rows + 1 ? before : 0;
    const std::size_t last = station == 0 ? before : elements.size();
    std::size_t place = forward ? first : last;
    if (std::exchange(isInside, false)) place = forward ? element + 1 : element;
    while (forward ? place < last : place > first) {
      if (!forward) --place;
      const ui::Element& candidate = elements[place]->element;
      if (isControl(candidate) && candidate.style().enabled) return Place{row, place};
      if (forward) ++place;
    }
    station = (station + (forward ? 1 : stations - 1)) % stations;
  }
  return std::nullopt;
}

std::vector<const page::Node*> Twins::nearElements() const {
  std::vector<const page::Node*> elements;
  const page::Node* root = qttest::pageOf(widget).tree().root();
  if (root) {
    page::forEachLeaf(*root, [&](const page::Node& leaf) { elements.push_back(&leaf); });
  }
  return elements;
}

qt::ElementWidget* Twins::widgetOf(const page::Node& leaf) const {
  return qttest::pageOf(widget).shown(leaf).widget;
}

std::optional<Place> Twins::placeOf(const page::Node& leaf) const {
  const page::Node* row = page::rowOf(&leaf);
  Place place;
  if (row) place.row = row->rowIndex;
  bool found = false;
  page::forEachLeaf(row ? *row : *qttest::pageOf(widget).tree().root(),
                    [&](const page::Node& other) {
                      if (!row && page::rowOf(&other)) return;
                      found = found || &other == &leaf;
                      if (!found) ++place.element;
                    });
  return found ? std::optional(place) : std::nullopt;
}

const page::Node* Twins::nodeAt(const Place& place) const {
  const page::Node* found = nullptr;
  for (const page::Node* leaf : nearElements()) {
    const page::Node* row = page::rowOf(leaf);
    const bool sameRow = row ? place.row == row->rowIndex : !place.row;
    if (sameRow && placeOf(*leaf) == place) found = leaf;
  }
  return found;
}

std::optional<Place> Twins::focus() const {
  const page::Node* focused = qttest::pageOf(widget).focusedNode();
  return focused ? placeOf(*focused) : std::nullopt;
}

QAccessibleInterface* Twins::accessible(const Place& place) const {
  QAccessibleInterface* page =
      QAccessible::queryAccessibleInterface(const_cast<qt::ViewWidget*>(&widget));
  const HeardPage heard = heardPage(*page);
  if (place.row) {
    QAccessibleInterface* row =
        heard.list ? heard.list->child(static_cast<int>(*place.row)) : nullptr;
    return row ? row->child(static_cast<int>(place.element)) : nullptr;
  }
  return place.element < heard.elements.size() ? heard.elements[place.element] : nullptr;
}

std::optional<Place> Twins::drawControl(const Step& step, ElementKind kind) const {
  std::vector<Place> candidates;
  if (step.c % 4 != 0) {  // near
    for (const page::Node* leaf : nearElements()) {
      if (leaf->element.kind() == kind) candidates.push_back(*placeOf(*leaf));
    }
  }
  if (candidates.empty()) {
    const std::size_t row = step.a % (rowCount() + 1);
    const auto where = row < rowCount() ? std::optional(row) : std::nullopt;
    const auto elements = elementsOf(where);
    for (std::size_t i = 0; i < elements.size(); ++i) {
      if (elements[i]->element.kind() == kind) candidates.push_back({where, i});
    }
  }
  if (candidates.empty()) return std::nullopt;
  return candidates[step.b % candidates.size()];
}

}  // namespace vemra::monkey
