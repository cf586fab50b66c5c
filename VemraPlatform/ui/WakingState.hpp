#pragma once

#include "VemraPlatform/ui/Rows.hpp"

#include <optional>
#include <unordered_map>
#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

struct WorkCount;

/// The state of rows on its way from where it slept into new nodes.
///
/// Remembers one thing, and only while the nodes of a row, or of a composite in it, are made: the state
/// that stood there before, by its place below the row. What finds no place again is gone in the end.
class WakingState {
 public:
  /// State that was taken out for rows that wake, by the row's node.
  using OfRows = std::unordered_map<NodeID, SavedState>;

  /// - Parameter work: counts the passes over row ids.
  explicit WakingState(WorkCount& work) : work_(work) {}

  /// Takes out what these rows (ascending) left behind when they went to sleep. A row that could not be
  /// described leaves it there for the next try.
  OfRows take(Node& forEach, std::vector<Node*> rows);
  /// Takes out what `keepBelow` left at this composite. Nil when that was nothing.
  static std::optional<SavedState> takeBelow(Node& composite);

  /// As long as it exists, new nodes below `top` find what stood in their places before. Without a
  /// state it changes nothing.
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

  /// Gives a new node what stood in its place before.
  void restore(Node& node);
  /// Leaves what slept below a composite there, for a body that does not throw.
  void keepBelow(Node& composite);

 private:
  Scope* scope_ = nullptr;
  WorkCount& work_;
};

}  // namespace vemra::ui
