#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/NodeID.hpp"
#include "VemraPlatform/ui/RowIDs.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace vemra::ui {

/// One change of the rendered tree.
///
/// Apply patches in order. A patch names a place by the parent and the sibling right before it.
/// `remove` removes the whole subtree; a subtree is inserted node by node, parents first.
struct Patch {
  /// What happens to the node.
  enum class Kind { insert, move, update, remove };
  Kind kind;                       ///< decides which members below have a value
  NodeID node;                     ///< the node that is new, changed or gone
  NodeID parent;                   ///< for insert and move; none: the root
  NodeID after;                    ///< for insert and move; none: first among its siblings
  std::optional<Element> element;  ///< for insert and update: the node's new element
};

/// The rows of a `ForEach` from `first` up to, but not including, `last`.
struct RowRange {
  std::size_t first = 0;  ///< the first index
  std::size_t last = 0;   ///< the index behind the last
  friend bool operator==(const RowRange&, const RowRange&) = default;
};

/// The rows of a `ForEach`, and which of them are its children.
struct ListRows {
  NodeID list;  ///< the `ForEach`
  /// All its rows. When this is a new object, the list was described again, and rows that are not
  /// shown may have changed although no patch reports it.
  std::shared_ptr<const RowIDs> ids;
  /// The positions of its children among all rows, in the order of the children: ascending ranges
  /// that do not touch.
  std::vector<RowRange> shown;
};

/// The changes of one pass of the graph. The graph and a renderer exchange nothing but changes,
/// events and requests for rows.
struct Changes {
  std::vector<Patch> patches;  ///< in the order in which a renderer applies them
  /// The lists that have changed, in their state after all patches: each list that is new or has
  /// new rows, and each list with a child that is new or has another index among all rows.
  std::vector<ListRows> lists = {};
  /// The environment of the tree, when it is another than in the renderer's previous changes;
  /// always in a renderer's first changes. Read the reading direction, the colour scheme and the
  /// text scale here: patches report only what the environment changes in elements, such as
  /// translations.
  std::optional<Environment> environment = {};
};

/// Which rows of a `ForEach` a renderer needs.
enum class RowDemand {
  everything,  ///< every row, always
  onRequest,   ///< only the rows that it requests with `ViewGraph::showRows`
};

/// Shows the tree: a window, a test harness or a picture.
class VEMRA_EXPORT Renderer {
 public:
  /// Which rows of its lists the graph describes for it. Must always return the same value.
  virtual RowDemand rowDemand() const = 0;
  /// Applies the changes of one pass. It may request rows from the graph and deliver events; the
  /// graph handles these requests after it has returned.
  ///
  /// Must not throw: the graph would rethrow the exception to the caller, but would not hand over
  /// the same changes again, so that the renderer would show another tree from then on.
  virtual void apply(const Changes& changes) = 0;

 protected:
  ~Renderer() = default;
};

}  // namespace vemra::ui
