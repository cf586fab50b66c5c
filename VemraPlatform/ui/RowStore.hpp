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

class Reconciler;

/// The rows of the lists: which of them have nodes, and what the others have left behind.
///
/// A row is described when it is shown or looked at. When it is neither any more, its nodes go, and its
/// state, if that has left its initial value, is kept until the row returns or leaves the list. All that
/// stands with the node of the list (`Rows`), so that it goes with it; this class remembers nothing
/// between calls.
class RowStore {
 public:
  explicit RowStore(Reconciler& reconciler);

  /// Compares the list that is described now with the rows that are there, and updates these.
  void reconcile(Node& forEach, Emission emission);
  /// Makes exactly these rows the shown ones. Ranges may overlap and stand in any order.
  void show(Node& forEach, std::vector<RowRange> ranges);
  /// Whether the list always shows all its rows, so that `show` does not apply to it.
  bool demandsEverything(const Node& forEach) const;

  /// The row at `index` when it is shown, or was looked at and is still there; else nullptr.
  static const Node* find(const Node& forEach, std::size_t index);
  /// Describes a row that `find` does not find, without showing it.
  const Node& lookAt(Node& forEach, std::size_t index);
  /// The rows with state that has left its initial value, by index, ascending, each once.
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

  Reconciler& reconciler_;
  WakingState waking_;
};

}  // namespace vemra::ui
