#pragma once

#include "VemraPlatform/ui/NodeAccess.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraTesting/RenderedTree.hpp"
#include "tests/Random.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// \file
/// Small views and a renderer that the tests of the view layer share.

namespace vemra::ui::sample {

/// A view with one number of its own: a text that shows it, and a button that counts up.
struct Counter {
  static constexpr std::string_view name = "Counter";
  struct State {
    int count = 0;
    friend bool operator==(const State&, const State&) = default;
  };
  std::string title = "counter";

  View body(const LocalState<State>& state) const {
    return VStack(
        HorizontalAlignment::leading, 0,
        {
            Text(verbatim(title + "=" + std::to_string(state->count))),
            Button(verbatim("+"), [state] { state.set(&State::count, state->count + 1); }),
        });
  }
  Properties properties(const State& state) const {
    return {{"count", std::to_string(state.count)}};
  }
};

/// Any body, given as a function.
struct Body {
  static constexpr std::string_view name = "Body";
  std::function<View()> make;
  View body() const { return make(); }
};

/// The element of a view outside any tree.
inline Element elementOf(const View& view, const Environment& environment = {}) {
  return Element(view, Style{}, environment);
}

/// One line of a list: an id and its shown text.
struct Line {
  std::string id;
  std::string text = {};
};

inline View list(
    std::vector<Line> lines, std::function<View(const Line&)> row = [](const Line& line) -> View {
      return Text(verbatim(line.text.empty() ? line.id : line.text));
    }) {
  return ForEach(std::move(lines), &Line::id, std::move(row));
}

inline std::vector<Line> numbered(std::size_t count) {
  std::vector<Line> lines;
  for (std::size_t i = 0; i < count; ++i) lines.push_back({"row" + std::to_string(i)});
  return lines;
}

/// A renderer of windows: it gets the rows that it requests, and keeps every patch.
class Window final : public Renderer {
 public:
  RowDemand rowDemand() const override { return RowDemand::onRequest; }
  void apply(const Changes& changes) override {
    tree.apply(changes);
    log.insert(log.end(), changes.patches.begin(), changes.patches.end());
    lists.insert(lists.end(), changes.lists.begin(), changes.lists.end());
    if (changes.environment) environments.push_back(*changes.environment);
    if (onApply) onApply(changes.patches);
  }
  /// The patches since the last call.
  std::vector<Patch> take() { return std::exchange(log, {}); }
  std::vector<ListRows> takeLists() { return std::exchange(lists, {}); }

  testing::RenderedTree tree;
  std::vector<Patch> log;
  std::vector<ListRows> lists;
  std::vector<Environment> environments;
  std::function<void(const std::vector<Patch>&)> onApply;
};

/// The first node of that kind below `node` (or itself), in tree order; nullptr when there is none.
inline const Node* firstOf(const Node* node, ElementKind kind) {
  if (!node || node->element.kind() == kind) return node;
  for (const Node* child : node->children) {
    if (const Node* found = firstOf(child, kind)) return found;
  }
  return nullptr;
}

/// The first button with that title below the root.
inline const Node* buttonTitled(const Node* node, std::string_view title) {
  if (!node) return nullptr;
  if (node->element.kind() == ElementKind::button && node->element.shownLabel() == title) {
    return node;
  }
  for (const Node* child : node->children) {
    if (const Node* found = buttonTitled(child, title)) return found;
  }
  return nullptr;
}

inline Delivery press(ViewGraph& graph, std::string_view title) {
  const Node* node = buttonTitled(graph.root(), title);
  return node ? graph.deliver(node->id, Press{}) : Delivery::gone;
}

/// All texts shown below a node, in tree order.
inline void collectTexts(const Node* node, std::vector<std::string>& texts) {
  if (!node) return;
  if (node->element.kind() == ElementKind::text) texts.emplace_back(node->element.shownLabel());
  for (const Node* child : node->children) collectTexts(child, texts);
}
inline std::vector<std::string> texts(const Node* node) {
  std::vector<std::string> found;
  collectTexts(node, found);
  return found;
}

/// How the renderer's tree differs from the graph's; "" when it does not.
std::string difference(const ViewGraph& graph, const testing::RenderedTree& tree);

using testing::Random;
using testing::rounds;

}  // namespace vemra::ui::sample
