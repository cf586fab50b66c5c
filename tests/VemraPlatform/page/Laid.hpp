#pragma once

#include "VemraPlatform/page/Frames.hpp"
#include "VemraPlatform/page/WindowedTree.hpp"
#include "VemraPlatform/ui/View.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "tests/VemraPlatform/page/Boxes.hpp"

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vemra::page::sample {

using IDs = std::vector<std::string>;

inline ui::Text text(std::string content) {
  return ui::Text(ui::verbatim(std::move(content)));
}
inline ui::Button button(std::string title) {
  return ui::Button(ui::verbatim(std::move(title)), [] {});
}
/// A text field with a text.
inline ui::View field(std::string held) {
  return ui::TextField(
      "field", ui::Binding<std::string>([held] { return held; }, [](const std::string&) {}));
}
inline ui::View column(ui::Children children, int spacing = 0) {
  return ui::VStack(ui::HorizontalAlignment::leading, spacing, std::move(children));
}

/// A list with a row for each id.
inline ui::View list(IDs ids, std::function<ui::View(const std::string&)> row = text) {
  return ui::ForEach(
      std::move(ids), [](const std::string& id) -> const std::string& { return id; },
      std::move(row));
}
/// The shown label of a leaf, or the text of a field.
inline std::string nameOf(const Node& leaf) {
  return leaf.element.kind() == ui::ElementKind::textField ? leaf.element.text()
                                                           : std::string(leaf.element.shownLabel());
}

/// "row0", "row1", …
inline IDs numbered(std::size_t count) {
  IDs ids;
  for (std::size_t i = 0; i < count; ++i) ids.push_back("row" + std::to_string(i));
  return ids;
}

/// A view in a tree that is laid out on request, for tests of the parts of a page.
class Laid final : public ui::Renderer {
 public:
  explicit Laid(const ui::View& root, int newWidth = 300) : width(newWidth), tree([](Node&) {}) {
    graph.attach(*this);
    show(root);
  }
  ~Laid() { graph.detach(*this); }
  Laid(const Laid&) = delete;
  Laid& operator=(const Laid&) = delete;

  ui::RowDemand rowDemand() const override { return ui::RowDemand::onRequest; }
  void apply(const ui::Changes& changes) override { tree.apply(changes); }

  void show(const ui::View& root) {
    graph.setRoot(root);
    layOut();
  }
  /// Makes these rows the shown rows of the first list.
  void ask(std::vector<ui::RowRange> ranges) {
    graph.showRows(list().id, std::move(ranges));
    layOut();
  }
  void layOut() {
    if (tree.root()) measureScope(*tree.root(), width, 0, metrics);
  }

  Node& list() { return *tree.lists().at(0); }
  Node& leaf(std::string_view name) {
    Node* found = nullptr;
    forEachLeaf(*tree.root(), [&](Node& each) {
      if (nameOf(each) == name) found = &each;
    });
    if (!found) throw std::out_of_range("no leaf " + std::string(name));
    return *found;
  }
  Frames frames(ui::LayoutDirection direction = ui::LayoutDirection::leftToRight) const {
    return {tree, direction};
  }

  int width;
  BoxyMetrics metrics;
  WindowedTree tree;
  ui::ViewGraph graph;
};

}  // namespace vemra::page::sample
