#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraTesting/Query.hpp"
#include "VemraTesting/RenderedTree.hpp"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::testing {

/// An element that cannot be acted on: it is missing, disabled, or of another kind.
///
/// `what()` is for a person: the reason, the nearest identifiers and the whole tree.
class ElementError : public std::runtime_error {
 public:
  ElementError(std::string reason, const std::string& context)
      : std::runtime_error(reason + context), reason_(std::move(reason)) {}
  /// One line: `no element with identifier "x"`.
  const std::string& reason() const { return reason_; }

 private:
  std::string reason_;
};

/// A view, mounted without a window, to be read and used as a person would.
///
///     Screen screen(GoalResultView{snapshot, …});
///     screen.press("vemra.goal.person.p1.outcome.start");
///     screen.type("vemra.goal.person.p1.outcome.note", " met at the fair ");
///     screen.press("vemra.goal.person.p1.outcome.save");
///
/// Every act settles: the next line sees its result. An act that a person could not do throws
/// `ElementError` and changes nothing. Where several elements match, the first in tree order is
/// meant, disabled ones counted. From inside a callback an act waits for the event to end.
class Screen {
 public:
  explicit Screen(ui::View root, ui::Environment environment = {});
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  /// Hands in a new root, as a host does with a fresh snapshot.
  void show(ui::View root) { graph_.setRoot(std::move(root)); }
  void setEnvironment(ui::Environment environment) {
    graph_.setEnvironment(std::move(environment));
  }

  void press(const Query& query);
  void press(std::string_view identifier) { press(byIdentifier(std::string(identifier))); }
  /// Chooses the picker's row whose tag has that name.
  void select(const Query& query, std::string_view tagName);
  void select(std::string_view identifier, std::string_view tagName) {
    select(byIdentifier(std::string(identifier)), tagName);
  }
  /// Replaces the field's whole text.
  void type(const Query& query, std::string_view text);
  void type(std::string_view identifier, std::string_view text) {
    type(byIdentifier(std::string(identifier)), text);
  }
  /// The Return key in a field.
  void submit(const Query& query);
  void submit(std::string_view identifier) { submit(byIdentifier(std::string(identifier))); }

  /// The element, or nullptr.
  const RenderedTree::Node* find(const Query& query) const;
  const RenderedTree::Node* find(std::string_view identifier) const {
    return find(byIdentifier(std::string(identifier)));
  }
  /// The element; throws when it is not there.
  const RenderedTree::Node& get(const Query& query) const;
  const RenderedTree::Node& get(std::string_view identifier) const {
    return get(byIdentifier(std::string(identifier)));
  }
  bool has(const Query& query) const { return find(query) != nullptr; }
  bool has(std::string_view identifier) const { return find(identifier) != nullptr; }
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
  std::string outline() const;

  const RenderedTree& tree() const { return tree_; }
  ui::ViewGraph& graph() { return graph_; }
  const ui::ViewGraph& graph() const { return graph_; }

 private:
  void act(const Query& query, const RenderedTree::Node& node, ui::Event event);
  [[noreturn]] void fail(std::string reason, std::string_view soughtIdentifier = {}) const;
  std::string nearestIdentifiers(std::string_view sought) const;

  RenderedTree tree_;
  ui::ViewGraph graph_;
};

}  // namespace vemra::testing
