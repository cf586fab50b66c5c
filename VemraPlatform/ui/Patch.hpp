#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/NodeID.hpp"
#include "VemraPlatform/ui/RowIDs.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace vemra::ui {

/// One change of the rendered tree.
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

/// The rows of a `ForEach` from `first` up to, but not including, `last`.
struct RowRange {
  std::size_t first = 0;
  std::size_t last = 0;
  friend bool operator==(const RowRange&, const RowRange&) = default;
};

/// Which rows a `ForEach` has, and which of them are its children.
struct ListRows {
  NodeID list;
  /// All its rows. Another object than before: the list was described anew, so that rows which are not
  /// shown may be others now, although no patch says so.
  std::shared_ptr<const RowIDs> ids;
  /// Where its children stand among all rows, in the order of the children: ascending ranges that do
  /// not touch.
  std::vector<RowRange> shown;
};

/// What one pass has changed. With the events, this is the whole language between the view graph and a
/// renderer.
struct Changes {
  std::vector<Patch> patches;
  /// Each list that is new or has new rows, and each with a child that is new or stands elsewhere among
  /// all rows: as it is when the patches have been carried out. Of the other lists nothing has changed.
  std::vector<ListRows> lists = {};
};

/// Which rows of a `ForEach` a renderer wants to have.
enum class RowDemand {
  everything,  ///< every row, always
  onRequest,   ///< those that it asks for with `ViewGraph::showRows`
};

/// What shows the tree: a window, a test harness, a picture.
class VEMRA_EXPORT Renderer {
 public:
  virtual RowDemand rowDemand() const = 0;
  /// Carries out the changes of one pass. May ask the graph for rows and may deliver events; what
  /// it asks for is done when it has returned.
  virtual void apply(const Changes& changes) = 0;

 protected:
  ~Renderer() = default;
};

}  // namespace vemra::ui
