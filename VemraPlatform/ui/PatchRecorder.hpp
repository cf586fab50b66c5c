#pragma once

#include "VemraPlatform/ui/Node.hpp"
#include "VemraPlatform/ui/Patch.hpp"
#include "VemraPlatform/ui/WorkCount.hpp"

#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

class FirstError;

/// Whether the renderer gets a patch for a change. It gets none for rows that are described without
/// being shown.
enum class Emission { silent, recorded };

/// Records the changes of a pass until the renderer gets them.
///
/// Between passes this remembers the renderer and the root that it shows: a renderer that is
/// replaced, or whose tree is abandoned, gets a `remove` of that root, even if the tree no longer
/// has the root.
class PatchRecorder {
 public:
  Renderer* renderer() const { return renderer_; }
  bool isEmpty() const { return patches_.empty(); }

  /// Whether the renderer gets the changes at this node.
  Emission emissionAt(const Node& node) const;
  Emission emissionAtRoot() const { return renderer_ ? Emission::recorded : Emission::silent; }

  void record(Patch::Kind kind, const Node& node, NodeID after, Emission emission);
  /// Records the insertion of a node and of its whole subtree.
  void recordTree(const Node& node, NodeID after);
  /// Records that a list has new rows, or that its children have other indexes among all rows.
  void recordRows(const Node& list, Emission emission);
  /// Records that the tree has another environment.
  void recordEnvironment() { environmentChanged_ = true; }

  /// Replaces the present renderer, which gets a `remove` of the root that it shows.
  ///
  /// - Parameter root: the root for the new renderer, or nullptr.
  /// - Returns: false when `next` is already the present renderer.
  bool connect(Renderer* next, const Node* root, FirstError& errors);
  /// Disconnects the renderer without a patch: it does not even get a `remove` of its root.
  void disconnect();

  /// Hands the changes to the renderer. Rethrows the renderer's exceptions.
  ///
  /// - Parameter root: the root that the renderer shows after these changes, or nullptr.
  void flush(const Node* root, const Environment& environment, WorkCount& work);
  /// Drops the changes of this pass and records the removal of the root that the renderer shows.
  void abandon();

 private:
  std::vector<ListRows> takeLists();

  Renderer* renderer_ = nullptr;
  NodeID shownRoot_;
  std::vector<Patch> patches_;
  std::vector<const Node*> lists_;  // in this pass; may contain removed lists and repetitions
  bool environmentChanged_ = false;
};

}  // namespace vemra::ui
