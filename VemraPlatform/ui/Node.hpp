#pragma once

#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/Identity.hpp"
#include "VemraPlatform/ui/NodeID.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vemra::ui {

struct Rows;
struct SavedState;

/// One place of the tree, as long as it lasts: what a view describes and what owns state.
///
/// Renderers and tests read it through `ViewGraph::find`; only the graph changes it.
struct Node {
  NodeID id;
  Node* parent = nullptr;
  Identity identity;
  Element element;
  /// In order. Of a `ForEach`: the rows that are shown.
  std::vector<Node*> children;

  /// Of a row of a `ForEach`: where it stands among all rows, and its id byte for byte.
  bool isRow = false;
  std::size_t rowIndex = 0;
  std::string rowID;
  bool isShown = true;  ///< false for a row that was described for a look only

  std::shared_ptr<StateCell> state;  ///< of a composite with state
  std::shared_ptr<Rows> rows;        ///< of a ForEach
  /// Of a composite whose body threw when its row woke: what slept below it.
  std::shared_ptr<SavedState> asleepBelow;
  std::uint64_t describedInPass = 0;
  bool isGone = false;  ///< taken out of the tree, not freed yet
};

}  // namespace vemra::ui
