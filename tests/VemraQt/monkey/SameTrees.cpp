#include "tests/VemraQt/monkey/SameTrees.hpp"

#include "VemraTesting/Outline.hpp"

#include <algorithm>
#include <variant>

namespace vemra::monkey {

namespace {

bool sameProperties(const ui::Properties& a, const ui::Properties& b) {
  return std::ranges::equal(a, b, [](const ui::Property& x, const ui::Property& y) {
    const auto* nested = std::get_if<ui::Properties>(&x.value);
    const auto* other = std::get_if<ui::Properties>(&y.value);
    if (x.name != y.name || x.value.index() != y.value.index()) return false;
    if (nested) return sameProperties(*nested, *other);
    if (auto* text = std::get_if<std::string>(&x.value)) {
      return *text == std::get<std::string>(y.value);
    }
    if (auto* flag = std::get_if<bool>(&x.value)) return *flag == std::get<bool>(y.value);
    return true;
  });
}

}  // namespace

[[noreturn]] void fail(const std::string& what) {
  throw Disagreement(what);
}

std::string described(const ui::Element& element) {
  return "\n  " + testing::outlineLine(element);
}

void expectSame(Twins& twins, const ui::Node& mine, const Twins::Element& theirs) {
  if (!(mine.element == theirs.element)) {
    fail("the window's tree has" + described(mine.element) + "\nwhere the screen has" +
         described(theirs.element));
  }
  if (mine.element.kind() == ui::ElementKind::composite &&
      !sameProperties(twins.widget.graph().properties(mine.id),
                      twins.screen.graph().properties(theirs.id))) {
    fail("another state in" + described(mine.element));
  }
  const bool byRows = !mine.children.empty() && mine.children.front()->isRow;
  if (!byRows && mine.children.size() != theirs.childCount && theirs.element.rowCount() == 0) {
    fail("another number of children in" + described(mine.element));
  }
  for (std::size_t i = 0; i < mine.children.size(); ++i) {
    const std::size_t place = byRows ? mine.children[i]->rowIndex : i;
    if (place >= theirs.childCount) fail("one child too many in" + described(mine.element));
    expectSame(twins, *mine.children[i], childAt(theirs, place));
  }
}

void expectSame(const ui::Node& graph, const page::Node& page) {
  if (graph.id != page.id || !graph.isShown || !(graph.element == page.element) ||
      graph.children.size() != page.childCount) {
    fail("the page has" + described(page.element) + "\nwhere its graph has" +
         described(graph.element));
  }
  if (page.isWindowedRow() && page.rowIndex != graph.rowIndex)
    fail("a row has another place on the page");
  const page::Node* shown = page.firstChild;
  for (const ui::Node* child : graph.children) {
    expectSame(*child, *shown);
    shown = shown->next;
  }
}

}  // namespace vemra::monkey
