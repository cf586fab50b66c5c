#pragma once

#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/NodeID.hpp"

#include <cstddef>
#include <optional>
#include <vector>

namespace vemra::ui {

/// One change of the rendered tree. This is the whole language that a renderer must know.
///
/// Patches are carried out in order. A place is named by the parent and the sibling right before
/// it. `remove` takes the whole subtree; an inserted subtree arrives node by node, parents first.
struct Patch {
  enum class Kind { insert, move, update, remove };
  Kind kind;
  NodeID node;
  NodeID parent;                   ///< of insert and move; none for the root
  NodeID after;                    ///< of insert and move; none: first among its siblings
  std::optional<Element> element;  ///< of insert and update: what the node is now
};

/// Which rows of a `ForEach` a renderer wants to have.
enum class RowDemand {
  everything,  ///< every row, always
  onRequest,   ///< those that it asks for with `ViewGraph::showRows`
};

/// The rows of a `ForEach` from `first` up to, but not including, `last`.
struct RowRange {
  std::size_t first = 0;
  std::size_t last = 0;
};

/// What shows the tree: a window, a test harness, a picture.
class Renderer {
 public:
  virtual RowDemand rowDemand() const = 0;
  /// Carries out the changes of one pass. May ask the graph for rows and may deliver events; what
  /// it asks for is done when it has returned.
  virtual void apply(const std::vector<Patch>& patches) = 0;
  /// A list has got new rows: those that are not shown may be others now, without any patch. Comes
  /// after the patches of the pass.
  virtual void rowsReplaced() {}

 protected:
  ~Renderer() = default;
};

}  // namespace vemra::ui
