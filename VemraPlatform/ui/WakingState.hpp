#pragma once

#include "VemraPlatform/ui/Rows.hpp"

#include <optional>
#include <unordered_map>
#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

struct WorkCount;

/// Moves the saved state of rows into new nodes.
///
/// It stores state only while the nodes of a row, or of a composite in it, are made: the saved
/// state, by its place below the row. State whose place is not described again is discarded in the
/// end.
class WakingState {
 public:
  /// The saved state of rows that wake up, by the row's node.
  using OfRows = std::unordered_map<NodeID, SavedState>;

  /// - Parameter work: counts the passes over row ids.
  explicit WakingState(WorkCount& work) : work_(work) {}

  /// Takes the saved state of these rows (ascending) out of the list. For a row whose description
  /// failed, the state stays saved for the next attempt.
  OfRows take(Node& forEach, std::vector<Node*> rows);
  /// Takes the state that `keepBelow` has saved at this composite. Nil when there is none.
  static std::optional<SavedState> takeBelow(Node& composite);

  /// While it lives, new nodes below `top` get the saved state of their places. Does nothing
  /// without a state.
  class Scope {
   public:
    Scope(WakingState& waking, const Node& top, std::optional<SavedState> state);
    ~Scope() { waking_.scope_ = outer_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    friend WakingState;
    WakingState& waking_;
    Scope* outer_;
    const Node& top_;
    std::optional<SavedState> state_;
  };

  /// Gives a new node the saved state of its place.
  void restore(Node& node);
  /// Saves the state below a composite in its node, for the next body that does not throw.
  void keepBelow(Node& composite);

 private:
  Scope* scope_ = nullptr;
  WorkCount& work_;
};

}  // namespace vemra::ui
