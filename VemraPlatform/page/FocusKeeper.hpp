#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/FocusOrder.hpp"

#include <optional>

namespace vemra::page {

/// Keeps the focus on the page when the element that has it goes: finds the control that takes it.
///
/// That is the first control that now stands where the element stood, or after it; or else the last
/// one before it. When an element goes while it is out of view, the focus goes nowhere, so that the page
/// does not jump away from what the reader sees. An element that goes while the page handles its press
/// hands the focus on from anywhere.
///
/// Rows on the way may come only with the graph's next pass. Then the search waits, and goes on from
/// there the next time: it never begins again, so it ends however long the page is.
class VEMRA_EXPORT FocusKeeper {
 public:
  enum class Sight { inView, outOfView };

  /// Both must outlive the object.
  FocusKeeper(WindowedTree& tree, RowSupply& rows) : tree_(tree), rows_(rows) {}

  /// `node` is about to go, with everything below it.
  /// \param focused, pressed  The element with the focus, and the one whose press is being handled;
  ///                          or nullptr.
  /// \param sight  Whether the focused element was in view before the page changed.
  void removing(const Node& node, const Node* focused, const Node* pressed, Sight sight);
  /// The focus is to go to a place from elsewhere.
  void moveTo(const LostPlace& place) { search_ = Search{place}; }

  /// Whether a lost focus has not been handed on yet.
  bool isSearching() const { return search_.has_value(); }
  /// The row where the search is, which must stay; or nullptr.
  const Node* row() const;
  /// Goes on with the search. The control, which may have to be scrolled in and is found again
  /// until `end`; nullptr when there is none, or when the search waits.
  const Node* control();
  /// Whether the search waits for a row, or has found a control that does not have the focus yet.
  bool isUnfinished(const Node* focused) const;
  void end() { search_.reset(); }

 private:
  struct Search {
    LostPlace place;
    Sight sight = Sight::inView;
    FocusOrder::Direction direction = FocusOrder::Direction::forward;
    std::optional<FocusOrder::Waiting> waiting = {};
    ui::NodeID found = {};
  };

  WindowedTree& tree_;
  RowSupply& rows_;
  std::optional<Search> search_;
};

}  // namespace vemra::page
