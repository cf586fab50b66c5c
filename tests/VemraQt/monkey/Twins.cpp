#include "tests/VemraQt/monkey/Twins.hpp"

#include "VemraQt/Page.hpp"
#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "tests/VemraQt/Strings.hpp"

#include <algorithm>

#include <QApplication>
#include <QLineEdit>

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

void collect(const testing::RenderedTree& tree, const Twins::Element& node,
             std::vector<const Twins::Element*>& elements) {
  if (isSeen(node.element.kind())) {
    elements.push_back(&node);
    return;
  }
  if (isListOfPeople(node.element)) return;
  for (const ui::NodeID child : node.children) collect(tree, *tree.find(child), elements);
}

const Twins::Element* findList(const testing::RenderedTree& tree, const Twins::Element& node) {
  if (isListOfPeople(node.element)) return &node;
  if (isSeen(node.element.kind())) return nullptr;
  for (const ui::NodeID child : node.children) {
    if (const Twins::Element* found = findList(tree, *tree.find(child))) return found;
  }
  return nullptr;
}

}  // namespace

Twins::Twins(std::size_t people)
    : screen(ui::View{}),
      windowHost(resultOf(people), [this] { widget.setRoot(windowHost.view()); }),
      screenHost(windowHost.result, [this] { screen.show(screenHost.view()); }) {
  widget.page().onDeliver = [this](ui::NodeID node, const ui::Event& event) {
    if (isTurning_) follow(node, event);
  };
  widget.setEnvironment(ui::Environment{});
  widget.resize(640, 500);
  windowHost.show();
  screenHost.show();
  widget.show();
  widget.activateWindow();
  QApplication::setActiveWindow(&widget);
}

const Twins::Element* Twins::people() const {
  const Element* root = screen.tree().find(screen.tree().root());
  return root ? findList(screen.tree(), *root) : nullptr;
}

std::size_t Twins::rowCount() const {
  const Element* list = people();
  return list ? list->children.size() : 0;
}

std::vector<const Twins::Element*> Twins::elementsOf(std::optional<std::size_t> row) const {
  std::vector<const Element*> elements;
  const Element* list = row ? people() : nullptr;
  if (row && (!list || *row >= list->children.size())) return {};
  collect(screen.tree(), *screen.tree().find(row ? list->children[*row] : screen.tree().root()),
          elements);
  return elements;
}

const Twins::Element* Twins::at(const Place& place) const {
  const auto elements = elementsOf(place.row);
  return place.element < elements.size() ? elements[place.element] : nullptr;
}

std::optional<Place> Twins::nextControl(std::optional<Place> from, bool forward) const {
  // The page's own elements come before the people (the title and the heading) and after them. One
  // row is one station; so are the elements before the rows and those behind them.
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

std::vector<qt::RenderNode*> Twins::nearElements() const {
  std::vector<qt::RenderNode*> elements;
  qt::RenderNode* root = widget.page().tree().root();
  if (root) {
    qt::forEachLeaf(*root, [&](qt::RenderNode& leaf) { elements.push_back(&leaf); });
  }
  return elements;
}

std::optional<Place> Twins::placeOf(const qt::RenderNode& leaf) const {
  const qt::RenderNode* row = qt::rowOf(const_cast<qt::RenderNode*>(&leaf));
  Place place;
  if (row) place.row = row->rowIndex;
  bool found = false;
  auto* within = const_cast<qt::RenderNode*>(row ? row : widget.page().tree().root());
  qt::forEachLeaf(*within, [&](const qt::RenderNode& other) {
    if (!row && qt::rowOf(const_cast<qt::RenderNode*>(&other))) return;
    found = found || &other == &leaf;
    if (!found) ++place.element;
  });
  return found ? std::optional(place) : std::nullopt;
}

qt::RenderNode* Twins::nodeAt(const Place& place) const {
  qt::RenderNode* found = nullptr;
  for (qt::RenderNode* leaf : nearElements()) {
    const qt::RenderNode* row = qt::rowOf(leaf);
    const bool sameRow = row ? place.row == row->rowIndex : !place.row;
    if (sameRow && placeOf(*leaf) == place) found = leaf;
  }
  return found;
}

std::optional<Place> Twins::focus() const {
  const qt::RenderNode* focused = widget.page().focusedNode();
  return focused ? placeOf(*focused) : std::nullopt;
}

QAccessibleInterface* Twins::accessible(const Place& place) const {
  QAccessibleInterface* page =
      QAccessible::queryAccessibleInterface(const_cast<qt::ViewWidget*>(&widget));
  const std::size_t rows = rowCount();
  if (place.row) {
    QAccessibleInterface* row = page->child(static_cast<int>(2 + *place.row));
    return row ? row->child(static_cast<int>(place.element)) : nullptr;
  }
  return page->child(static_cast<int>(place.element < 2 ? place.element : place.element + rows));
}

void Twins::deliver(const Place& place, ui::Event event) {
  if (const Element* element = at(place)) screen.graph().deliver(element->id, std::move(event));
}

std::optional<Place> Twins::drawControl(const Step& step, ElementKind kind) const {
  std::vector<Place> candidates;
  if (step.c % 4 != 0) {  // near
    for (const qt::RenderNode* leaf : nearElements()) {
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

Twins::Keyboard Twins::keyboard() const {
  Keyboard now;
  const qt::RenderNode* focused = widget.page().focusedNode();
  if (!focused || !focused->widget) return now;
  const QWidget& shown = focused->widget->widget();
  now.node = focused->id;
  now.wasSeen = !shown.visibleRegion().isEmpty();
  if (auto* field = qobject_cast<const QLineEdit*>(&shown)) {
    now.isField = true;
    now.text = field->text().toStdString();
    now.cursor = field->cursorPosition();
    now.selectionStart = field->selectionStart();
    now.selectionLength = field->selectionLength();
  }
  return now;
}

/// Whatever has the keyboard keeps it, as long as it is there; a field with its cursor and all.
void Twins::expectKept(const Keyboard& before) const {
  if (!before.node) return;
  const ui::Node* still = widget.graph().find(before.node);
  const qt::RenderNode* focused = widget.page().focusedNode();
  if (!still || !still->element.style().enabled) {
    if (before.wasSeen && !focused && nextControl(std::nullopt, true)) {
      throw Disagreement("what had the keyboard has gone, and nothing took it");
    }
    return;
  }
  if (!focused || focused->id != before.node) {
    throw Disagreement("the keyboard left " + std::string(still->element.shownLabel()) + " for " +
                       (focused ? std::string(focused->element.shownLabel()) : "nothing"));
  }
  if (!before.isField) return;
  const Keyboard after = keyboard();
  if (after.text != before.text || after.cursor != before.cursor ||
      after.selectionStart != before.selectionStart ||
      after.selectionLength != before.selectionLength) {
    throw Disagreement("the cursor moved from " + std::to_string(before.cursor) + " in \"" +
                       before.text + "\" to " + std::to_string(after.cursor) + " in \"" +
                       after.text + "\"");
  }
}

void Twins::perform(const Step& step) {
  const Keyboard before = keyboard();
  switch (step.act) {
    case Act::press:
      return press(step);
    case Act::type:
      return type(step);
    case Act::write:
      return write(step);
    case Act::choose:
      return choose(step);
    case Act::tab:
      return tab(step);
    case Act::hold:
      return hold(step);
    case Act::pressHeld:
      return pressHeld(step);
    case Act::scroll:
      scroll(step);
      break;
    case Act::resize:
      widget.resize(static_cast<int>(320 + step.a % 800), static_cast<int>(150 + step.b % 800));
      break;
    case Act::surround:
      surround(step);
      break;
    case Act::change:
      changeBoth(step);
      break;
    case Act::answer:
      windowHost.answer = screenHost.answer = static_cast<Answer>(step.a % 3);
      break;
    case Act::catchUp:
      windowHost.show();
      screenHost.show();
      break;
    case Act::turn:
      turn();
      if (hasClients_) return;
      break;
    case Act::away:
      widget.hide();
      changeBoth(step);
      widget.show();
      widget.activateWindow();
      QApplication::setActiveWindow(&widget);
      break;
  }
  expectKept(before);
}

void Twins::turn() {
  isTurning_ = true;
  QApplication::processEvents();
  isTurning_ = false;
  if (clientError_) std::rethrow_exception(std::exchange(clientError_, nullptr));
}

void Twins::surround(const Step& step) {
  constexpr double scales[] = {1.0, 1.25, 1.5, 2.0, 3.0};
  ui::Environment environment = screen.graph().environment();
  switch (step.a % 4) {
    case 0:
      environment.textScale = scales[step.b % std::size(scales)];
      break;
    case 1:
      environment.layoutDirection =
          step.b % 2 ? ui::LayoutDirection::rightToLeft : ui::LayoutDirection::leftToRight;
      break;
    case 2:
      environment.colorScheme = step.b % 2 ? ui::ColorScheme::dark : ui::ColorScheme::light;
      break;
    default:
      if (step.b % 3 == 0) environment.strings = nullptr;
      if (step.b % 3 == 1) environment.strings = std::make_shared<qttest::HebrewStrings>();
      if (step.b % 3 == 2) environment.strings = std::make_shared<qttest::PseudoStrings>();
  }
  widget.setEnvironment(environment);
  screen.setEnvironment(environment);
}

void Twins::changeBoth(const Step& step) {
  const auto focused = focus();
  Result next = windowHost.result;
  change(next, step, focused ? focused->row : std::nullopt);
  windowHost.result = next;
  screenHost.result = std::move(next);
  windowHost.show();
  screenHost.show();
}

void Twins::hold(const Step& step) {
  const std::size_t row = step.a % (rowCount() + 1);
  const auto where = row < rowCount() ? std::optional(row) : std::nullopt;
  const auto elements = elementsOf(where);
  const Place place{where, step.b % elements.size()};
  QAccessibleInterface* object = accessible(place);
  if (!object) throw Disagreement("assistive technology misses an element");
  held_.emplace_back(QAccessible::uniqueId(object),
                     std::string(elements[place.element]->element.accessibilityIdentifier()));
  if (held_.size() > 20) held_.erase(held_.begin());
}

}  // namespace vemra::monkey
