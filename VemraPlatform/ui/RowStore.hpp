#pragma once

#include "VemraPlatform/ui/PatchRecorder.hpp"
#include "VemraPlatform/ui/Rows.hpp"
#include "VemraPlatform/ui/View.hpp"
#include "VemraPlatform/ui/WakingState.hpp"

#include <cstddef>
#include <optional>
#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

/// The nodes of rows. Rows are ordinary nodes, which the reconciler makes and changes.
class RowNodes {
 public:
  /// The node, which must be there.
  virtual Node& at(NodeID id) = 0;
  /// Makes a node below `parent`, without state and children.
  virtual Node& allocate(Node* parent, const View& view, Identity identity) = 0;
  /// Gives a new node its state, records its insertion, and makes its children.
  virtual void mount(Node& node, NodeID after, Emission emission) = 0;
  /// Updates a node to a new description of the same identity.
  virtual void update(Node& node, const View& view, Emission emission) = 0;
  /// Removes a subtree from the tree. Its nodes stay linked until the reconciler frees them.
  virtual void remove(Node& node) = 0;
  /// Runs a row's closure. Returns nil when it threw; the reconciler keeps the exception.
  virtual std::optional<View> describeRow(const RowSource& rows, std::size_t index) = 0;

 protected:
  ~RowNodes() = default;
};

/// The rows of the lists: which of them have nodes, and the saved state of the others.
///
/// A row has nodes while it is shown or kept after `peek`. When its nodes are removed, state that
/// differs from its initial value is saved until the row returns or leaves the list. All this is
/// stored in the list's node (`Rows`) and destroyed with it; this class stores nothing between
/// calls.
class RowStore {
 public:
  RowStore(RowNodes& nodes, PatchRecorder& patches, WorkCount& work);

  /// Compares the list's new description with the present rows, and updates them.
  void reconcile(Node& forEach, Emission emission);
  /// Makes exactly these rows the shown rows. Ranges may overlap and may have any order.
  void show(Node& forEach, std::vector<RowRange> ranges);
  /// Whether the list always shows all its rows, so that `show` does not apply.
  bool demandsEverything(const Node& forEach) const;

  /// The row at `index` if it is shown or still kept after `peek`; else nullptr.
  static const Node* find(const Node& forEach, std::size_t index);
  /// Describes a row that `find` does not find, without showing it, and keeps its node for a while.
  const Node& peek(Node& forEach, std::size_t index);
  /// The indexes of the rows with state that differs from its initial value, ascending, each once.
  std::vector<std::size_t> withState(const Node& forEach);

  WakingState& waking() { return waking_; }

 private:
  struct Place {
    std::size_t index = 0;
    Node* node = nullptr;  // none: to be made
    View view;             // absent: to be described
  };

  void place(Node& forEach, std::vector<Place> places, Emission emission);
  void placeFirst(Node& forEach, const std::vector<Place>& places, Emission emission);
  std::optional<View> describe(const Node& forEach, std::size_t index);
  Node& allocate(Node& forEach, const Place& place);
  Node& allocate(Node& forEach, std::size_t index, const std::optional<View>& view);
  void mount(Node& row, WakingState::OfRows& taken, NodeID after, Emission emission);
  void sleep(Node& forEach, const std::vector<Node*>& rows);

  RowNodes& nodes_;
  PatchRecorder& patches_;
  WorkCount& work_;
  WakingState waking_;
};

}  // namespace vemra::ui
