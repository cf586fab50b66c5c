#pragma once

#include "VemraPlatform/ui/NodeTable.hpp"
#include "VemraPlatform/ui/Patch.hpp"

#include <vector>

namespace vemra::testing {

/// The smallest renderer: it keeps what it was told, as a tree of values.
///
/// It knows only patches, so that what it holds is what any renderer would have come to. It wants
/// every row. A patch that speaks of an unknown node throws `std::out_of_range`.
class RenderedTree final : public ui::Renderer {
 public:
  struct Node {
    ui::NodeID id;
    ui::NodeID parent;
    ui::Element element;
    std::vector<ui::NodeID> children;
  };

  ui::RowDemand rowDemand() const override { return ui::RowDemand::everything; }
  void apply(const std::vector<ui::Patch>& patches) override;

  /// The root, or none while nothing is shown.
  ui::NodeID root() const { return root_; }
  const Node* find(ui::NodeID id) const;
  /// All nodes in tree order, from the root.
  std::vector<const Node*> nodes() const;
  /// How many patches have arrived so far.
  std::size_t patchCount() const { return patchCount_; }

 private:
  // Siblings are chained while patches arrive, so that each patch costs the same in lists of any
  // length; `children` is written out afterwards.
  struct Place {
    Node node;
    ui::NodeID previous;
    ui::NodeID next;
    ui::NodeID firstChild;
    bool isChanged = false;  ///< its chain of children is newer than `children`
  };

  void putIn(Place& place, ui::NodeID parent, ui::NodeID after);
  void takeOut(ui::NodeID node);
  void erase(ui::NodeID node);
  void changed(Place& parent);
  Place& at(ui::NodeID node);
  void collect(ui::NodeID node, std::vector<const Node*>& nodes) const;

  ui::NodeTable<Place> places_;
  std::vector<ui::NodeID> changed_;
  ui::NodeID root_;
  std::size_t patchCount_ = 0;
};

}  // namespace vemra::testing
