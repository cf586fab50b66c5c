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

/// Chooses the picker's row whose tag has that name.
struct Choose {
  std::string tagName;
};

/// What a person does to an element: press it, choose in it, replace its whole text, or press the
/// Return key in it.
using Act = std::variant<ui::Press, Choose, ui::EditText, ui::Submit>;

/// A view, mounted without a window, to be read and used as a person would.
///
///     Screen screen(GoalResultView{snapshot, …});
///     screen.press("vemra.goal.person.p1.outcome.start");
///     screen.type("vemra.goal.person.p1.outcome.note", " met at the fair ");
///     screen.press("vemra.goal.person.p1.outcome.save");
///
/// Every act settles: the next line sees its result. An act that a person could not do throws
/// `ElementError` and changes nothing; `attempt` says so without throwing. Where several elements
/// match, the first in tree order is meant, disabled ones counted. From inside a callback an act
/// waits for the event to end.
///
/// Main thread only. Not movable: the graph knows the tree by its address.
class VEMRA_EXPORT Screen {
 public:
  /// Mounts `root`. The default environment is a fixed one (en_US, UTC, no translations), so that a
  /// test says the same on every machine; a tool that shows a user's own screen hands in
  /// `ui::Environment::system()`.
  explicit Screen(ui::View root, ui::Environment environment = {});
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  /// Hands in a new root, as a host does with a fresh snapshot.
  void show(ui::View root) { graph_.setRoot(std::move(root)); }
  /// Shows the same root in another language, time zone or appearance; state stays.
  void setEnvironment(ui::Environment environment) {
    graph_.setEnvironment(std::move(environment));
  }

  /// Does the act, or says in one line why a person could not do it; nil when it was done.
  ///
  /// For scripts, where a step that cannot be done is a result like any other: it costs a search
  /// and no more, while the verbs below describe the whole tree for whoever reads their error.
  [[nodiscard]] std::optional<std::string> attempt(const Query& query, const Act& act);

  void press(const Query& query) { carryOut(query, ui::Press{}); }
  void press(std::string_view identifier) { press(byIdentifier(std::string(identifier))); }
  /// Chooses the picker's row whose tag has that name.
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
  /// The Return key in a field.
  void submit(const Query& query) { carryOut(query, ui::Submit{}); }
  void submit(std::string_view identifier) { submit(byIdentifier(std::string(identifier))); }

  /// The element, or nullptr. It is valid until the next act, `show` or `setEnvironment`: keep the
  /// query, not the element.
  const RenderedTree::Node* find(const Query& query) const;
  const RenderedTree::Node* find(std::string_view identifier) const {
    return find(byIdentifier(std::string(identifier)));
  }
  /// The element; throws when it is not there. Valid as long as what `find` returns.
  const RenderedTree::Node& get(const Query& query) const;
  const RenderedTree::Node& get(std::string_view identifier) const {
    return get(byIdentifier(std::string(identifier)));
  }
  bool has(const Query& query) const { return find(query) != nullptr; }
  bool has(std::string_view identifier) const { return find(identifier) != nullptr; }
  /// Whether the element takes acts, all that reaches it from above included; throws when it is not
  /// there.
  bool isEnabled(const Query& query) const { return get(query).element.style().enabled; }
  bool isEnabled(std::string_view identifier) const {
    return isEnabled(byIdentifier(std::string(identifier)));
  }
  /// How many elements match, whatever the query's index.
  std::size_t count(const Query& query) const;

  /// All shown texts and titles in tree order.
  std::vector<std::string> shownTexts() const;
  /// All accessibility identifiers in tree order.
  std::vector<std::string> identifiers() const;
  /// The tree as indented text; see `testing::outline`. Costs a description of every element.
  std::string outline() const;

  /// What the screen looks like: the elements as a renderer got them. Lives as long as the screen.
  const RenderedTree& tree() const { return tree_; }
  /// What the screen is: the living tree, for what only it knows (state, rows, work done) and for
  /// events that go to a node. Lives as long as the screen.
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
