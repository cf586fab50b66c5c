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

/// Compares a new description with the present nodes, and changes the nodes to match. A node whose
/// identity is described again stays, with its state; the other nodes are removed, and new nodes
/// are made. Each change is recorded for the renderer.
///
/// Between passes this remembers the nodes, because they own the state; the root view and the
/// environment, to describe the tree again; and the composites whose state has changed since they
/// were described.
class Reconciler final : private RowNodes {
 public:
  /// - Parameter states: gets a call when state in the tree changes.
  /// - Parameter errors: keeps the exceptions of bodies and rows.
  Reconciler(StateCell::Owner& states, FirstError& errors, Environment environment);

  const Environment& environment() const { return environment_; }
  void setEnvironment(Environment environment);

  const Node* root() const { return root_; }
  const View& rootView() const { return rootView_; }
  void setRoot(View root);

  /// The node, or nullptr when it has been removed.
  Node* find(NodeID id);
  const Node* find(NodeID id) const { return const_cast<Reconciler*>(this)->find(id); }

  /// Whether a body or a row is being described: state must not be written meanwhile.
  bool isDescribing() const { return describing_; }
  /// A composite whose state has changed since it was described, or nullptr.
  const Node* outOfDate() const { return dirty_.empty() ? nullptr : find(dirty_.front()); }
  bool isUpToDate() const { return dirty_.empty(); }
  void markOutOfDate(Node& node);

  void beginPass() { ++pass_; }
  /// Describes the composites that are out of date.
  void update();
  /// Frees the removed nodes. Call it when the tree is consistent: the destructors of a node's
  /// closures and states may read from the graph, or write state.
  void freeRemoved();
  /// Discards the whole tree after an exception in the middle of reconciling: the lists of
  /// children, the nodes and the patches no longer agree.
  void abandon();
  /// Removes the whole tree without a patch for the renderer.
  void clear();

  RowStore& rows() { return rows_; }
  PatchRecorder& patches() { return patches_; }
  WorkCount& work() { return work_; }
  const WorkCount& work() const { return work_; }

 private:
  // For the rows of a list.
  Node& at(NodeID id) override { return *find(id); }
  Node& allocate(Node* parent, const View& view, Identity identity) override;
  void mount(Node& node, NodeID after, Emission emission) override;
  void update(Node& node, const View& view, Emission emission) override;
  void remove(Node& node) override;
  std::optional<View> describeRow(const RowSource& rows, std::size_t index) override;

  /// Runs a body or a row's closure. Returns nil when it threw; `errors` keeps the exception.
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

  void reconcileContent(Node& node, Emission emission);
  void reconcileChildren(Node& parent, std::span<const View> views, Emission emission);
  void describeComposite(Node& node, Emission emission);

  StateCell::Owner& states_;
  FirstError& errors_;
  Environment environment_;
  View rootView_;
  Node* root_ = nullptr;
  NodeTable<Node> nodes_;
  std::vector<NodeID> removed_;  // removed, not freed yet
  std::uint64_t lastID_ = 0;
  std::vector<NodeID> dirty_;
  bool describing_ = false;
  std::uint64_t pass_ = 0;
  PatchRecorder patches_;
  WorkCount work_;
  RowStore rows_{*this, patches_, work_};
};

}  // namespace vemra::ui
