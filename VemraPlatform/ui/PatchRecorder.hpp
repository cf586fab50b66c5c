#pragma once

#include "VemraPlatform/ui/Node.hpp"
#include "VemraPlatform/ui/Patch.hpp"
#include "VemraPlatform/ui/WorkCount.hpp"

#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

class FirstError;

/// Whether the renderer gets a patch for a change. It gets none for rows that were only looked at.
enum class Emission { silent, recorded };

/// What the renderer has to do: the changes of a pass until they are handed over.
///
/// Between passes this remembers the renderer, and the root that the renderer shows: a renderer that
/// another one replaces, or whose tree is abandoned, must remove that root whatever became of it.
class PatchRecorder {
 public:
  Renderer* renderer() const { return renderer_; }
  bool isEmpty() const { return patches_.empty(); }

  /// Whether changes at this node are for the renderer.
  Emission emissionAt(const Node& node) const;
  Emission emissionAtRoot() const { return renderer_ ? Emission::recorded : Emission::silent; }

  void record(Patch::Kind kind, const Node& node, NodeID after, Emission emission);
  /// Records the insertion of a node and of all that it holds.
  void recordTree(const Node& node, NodeID after);
  /// Records that a list has new rows, or children that stand elsewhere among them.
  void recordRows(const Node& list, Emission emission);

  /// Puts another renderer in place of the present one, which removes what it shows.
  ///
  /// - Parameter root: what there is to show, or nullptr.
  /// - Returns: false when `next` is the present one.
  bool connect(Renderer* next, const Node* root, FirstError& errors);
  /// Tells the renderer nothing more, not even that its tree is gone.
  void disconnect();

  /// Hands the changes to the renderer. Throws what it throws.
  ///
  /// - Parameter root: the root that it shows from now on, or nullptr.
  void flush(const Node* root, WorkCount& work);
  /// Drops the changes of this pass: the renderer is to remove all that it shows.
  void abandon();

 private:
  std::vector<ListRows> takeLists();

  Renderer* renderer_ = nullptr;
  NodeID shownRoot_;
  std::vector<Patch> patches_;
  std::vector<const Node*> lists_;  // of this pass; some may be gone or stand here twice
};

}  // namespace vemra::ui
