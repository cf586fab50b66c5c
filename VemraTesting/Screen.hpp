#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraTesting/ElementError.hpp"
#include "VemraTesting/Query.hpp"
#include "VemraTesting/RenderedTree.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vemra::testing {

/// Chooses the picker's row whose tag has this name.
struct Choose {
  std::string tagName;  ///< the name of the tag of the row to choose
};

/// An action of a person on an element: pressing it, choosing in it, replacing its whole text, or
/// pressing the Return key in it.
using Act = std::variant<ui::Press, Choose, ui::EditText, ui::Submit>;

/// Shows a view without a window. A test reads it and acts on it as a person would.
///
///     Screen screen(GoalResultView{snapshot, …});
///     screen.press("vemra.goal.person.p1.outcome.start");
///     screen.type("vemra.goal.person.p1.outcome.note", " met at the fair ");
///     screen.press("vemra.goal.person.p1.outcome.save");
///
/// After every act the tree is updated: the next line sees the result. An act that a person could
/// not do throws `ElementError` and changes nothing; `attempt` returns the reason without throwing.
/// If several elements match, the first in tree order counts, even if it is disabled. An act from
/// inside a callback waits for the end of the event.
///
/// Main thread only. Not movable, because the graph refers to the tree by its address.
class VEMRA_EXPORT Screen {
 public:
  /// Shows `root`. The default environment is fixed (en_US, UTC, no translations), so that a test
  /// has the same result on every machine; a tool that shows a user's own screen passes
  /// `ui::Environment::system()`.
  explicit Screen(ui::View root, ui::Environment environment = {});
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  /// Shows a new root, like a host with a new snapshot.
  void show(ui::View root) { graph_.setRoot(std::move(root)); }
  /// Shows the same root in another language, time zone or appearance; state is kept.
  void setEnvironment(ui::Environment environment) {
    graph_.setEnvironment(std::move(environment));
  }

  /// Does the act and returns nil, or returns one line with the reason why a person could not do
  /// it.
  ///
  /// Use it for scripts, where an impossible step is a normal result: it costs only a search, while
  /// the functions below describe the whole tree in their error message.
  [[nodiscard]] std::optional<std::string> attempt(const Query& query, const Act& act);

  /// Presses a button. This and the functions below throw `ElementError` for an impossible act.
  void press(const Query& query) { carryOut(query, ui::Press{}); }
  void press(std::string_view identifier) { press(byIdentifier(std::string(identifier))); }
  /// Chooses the picker's row whose tag has this name.
  void select(const Query& query, std::string_view tagName) {
    carryOut(query, Choose{std::string(tagName)});
  }
  void select(std::string_view identifier, std::string_view tagName) {
    select(byIdentifier(std::string(identifier)), tagName);
  }
  /// Replaces the field's whole text.
  void type(const Query& query, std::string_view text) {
    carryOut(query, ui::EditText{std::string(text)});
  }
  void type(std::string_view identifier, std::string_view text) {
    type(byIdentifier(std::string(identifier)), text);
  }
  /// Presses the Return key in a field.
  void submit(const Query& query) { carryOut(query, ui::Submit{}); }
  void submit(std::string_view identifier) { submit(byIdentifier(std::string(identifier))); }

  /// The element, or nullptr. Valid until the next act, `show` or `setEnvironment`: keep the query,
  /// not the element.
  const RenderedTree::Node* find(const Query& query) const;
  const RenderedTree::Node* find(std::string_view identifier) const {
    return find(byIdentifier(std::string(identifier)));
  }
  /// The element; throws when there is none. Valid as long as the result of `find`.
  const RenderedTree::Node& get(const Query& query) const;
  const RenderedTree::Node& get(std::string_view identifier) const {
    return get(byIdentifier(std::string(identifier)));
  }
  /// Whether there is such an element.
  bool has(const Query& query) const { return find(query) != nullptr; }
  bool has(std::string_view identifier) const { return find(identifier) != nullptr; }
  /// Whether the element is enabled, including the effect of the views around it; throws when there
  /// is no such element.
  bool isEnabled(const Query& query) const { return get(query).element.style().enabled; }
  bool isEnabled(std::string_view identifier) const {
    return isEnabled(byIdentifier(std::string(identifier)));
  }
  /// The number of matching elements, whatever the query's index.
  std::size_t count(const Query& query) const;

  /// All shown texts and titles, in tree order.
  std::vector<std::string> shownTexts() const;
  /// All accessibility identifiers, in tree order.
  std::vector<std::string> identifiers() const;
  /// The tree as indented text; see `testing::outline`. Describes every element, which costs time.
  std::string outline() const;

  /// The rendered tree: the elements that a renderer gets. Lives as long as the screen.
  const RenderedTree& tree() const { return tree_; }
  /// The view graph, for data that only it has (state, rows, work counters) and for events to a
  /// node. Lives as long as the screen.
  ui::ViewGraph& graph() { return graph_; }
  const ui::ViewGraph& graph() const { return graph_; }

 private:
  void carryOut(const Query& query, const Act& act);
  std::optional<ui::Event> eventOf(const RenderedTree::Node& node, const Act& act) const;
  std::string missing(const Query& query) const;
  [[noreturn]] void fail(const Query& query, std::string reason) const;
  std::string nearestIdentifiers(std::string_view sought) const;

  RenderedTree tree_;
  ui::ViewGraph graph_;
};

}  // namespace vemra::testing
