#pragma once

#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/FirstError.hpp"
#include "VemraPlatform/ui/NodeTable.hpp"
#include "VemraPlatform/ui/PatchRecorder.hpp"
#include "VemraPlatform/ui/RowStore.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

/// Compares a new description with the nodes that are there, and changes them to match: a node whose
/// identity is described again stays, with its state; the others go, and new ones come. Each change is
/// recorded for the renderer.
///
/// Between passes this remembers the nodes, because they own the state; the root and the environment,
/// to describe the tree again; and which composites a change of state has made out of date.
class Reconciler {
 public:
  /// - Parameter states: gets a call when state in the tree changes.
  /// - Parameter errors: keeps what bodies and rows throw.
  Reconciler(StateCell::Owner& states, FirstError& errors, Environment environment);

  const Environment& environment() const { return environment_; }
  void setEnvironment(Environment environment) { environment_ = std::move(environment); }

  const Node* root() const { return root_; }
  const View& rootView() const { return rootView_; }
  void setRoot(View root);

  /// The node, or nullptr when it is gone.
  Node* find(NodeID id);
  const Node* find(NodeID id) const { return const_cast<Reconciler*>(this)->find(id); }

  /// Whether a body or a row is being described: state must not be written then.
  bool isDescribing() const { return describing_; }
  /// A composite whose state has changed and that has not been described since, or nullptr.
  const Node* outOfDate() const { return dirty_.empty() ? nullptr : find(dirty_.front()); }
  bool isUpToDate() const { return dirty_.empty(); }
  void markOutOfDate(Node& node);

  void beginPass() { ++pass_; }
  /// Describes the composites that are out of date.
  void update();
  /// Frees the nodes that have been taken out. Call it when the tree is consistent: what goes with
  /// them (a closure, a state) may ask the graph something, or write, from its destructor.
  void freeRemoved();
  /// The way out when reconciling broke off halfway: the lists of children, the nodes and the patches
  /// no longer agree, so that nothing is left of them.
  void abandon();
  /// Takes out the whole tree without telling the renderer.
  void clear();

  RowStore& rows() { return rows_; }
  PatchRecorder& patches() { return patches_; }
  WorkCount& work() { return work_; }
  const WorkCount& work() const { return work_; }

  // For the rows of a list, which are nodes like the others.

  /// Makes a node below `parent`, without state and content.
  Node& allocate(Node* parent, const View& view, Identity identity);
  /// Gives a new node its state, records its insertion, and makes what it holds.
  void mount(Node& node, NodeID after, Emission emission);
  /// Changes a node to a new description with its identity.
  void update(Node& node, const View& view, Emission emission);
  /// Takes a subtree out of the tree. Its nodes name each other until `freeRemoved`.
  void remove(Node& node);

  /// Runs a body or a row's closure. Nil when it threw; the error is remembered.
  template <class Make>
  std::optional<View> describe(const Make& make) {
    const bool outer = std::exchange(describing_, true);
    std::optional<View> view;
    try {
      view = make();
    } catch (...) {
      errors_.remember();
    }
    describing_ = outer;
    return view;
  }

 private:
  void reconcileContent(Node& node, Emission emission);
  void reconcileChildren(Node& parent, std::span<const View> views, Emission emission);
  void describeComposite(Node& node, Emission emission);

  StateCell::Owner& states_;
  FirstError& errors_;
  Environment environment_;
  View rootView_;
  Node* root_ = nullptr;
  NodeTable<Node> nodes_;
  std::vector<NodeID> removed_;  // not freed yet
  std::uint64_t lastID_ = 0;
  std::vector<NodeID> dirty_;
  bool describing_ = false;
  std::uint64_t pass_ = 0;
  PatchRecorder patches_;
  WorkCount work_;
  RowStore rows_{*this};
};

}  // namespace vemra::ui
