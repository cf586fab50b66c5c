#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/FocusOrder.hpp"

#include <optional>

namespace vemra::page {

/// Finds the next control for the focus when the focused element is removed.
///
/// That is the first control at the removed element's place or after it; if there is none, the last
/// control before it. When the removed element was out of view, no control gets the focus, so that
/// the page does not jump away from the text in view. But when the element is removed while the
/// page handles its own press, the next control gets the focus in any case.
///
/// A row that the search needs may come only with the graph's next pass. Then the search waits and
/// resumes at that row; it never starts again, so it ends however long the page is.
class VEMRA_EXPORT FocusKeeper {
 public:
  /// Whether an element was in the viewport.
  enum class Sight { inView, outOfView };

  /// `tree` and `rows` must outlive the object.
  FocusKeeper(WindowedTree& tree, RowSupply& rows) : tree_(tree), rows_(rows) {}

  /// Call it before `node` is removed with its subtree.
  /// \param focused, pressed  The focused element, and the element whose press is being handled; or
  /// nullptr.
  /// \param sight  Whether the focused element was in view before the page changed.
  void removing(const Node& node, const Node* focused, const Node* pressed, Sight sight);
  /// Starts a search for a control at a place other than that of a removed element.
  void moveTo(const LostPlace& place) { search_ = Search{place}; }

  /// Whether a search for the next control is running.
  bool isSearching() const { return search_.has_value(); }
  /// The row that the search has reached and that must stay; or nullptr.
  const Node* row() const;
  /// Continues the search. Returns the control, which the caller may have to scroll into view;
  /// later calls find it again until `end`. Returns nullptr when there is no control, or when the
  /// search waits.
  const Node* control();
  /// Whether the search waits for a row, or has found a control that does not have the focus yet.
  bool isUnfinished(const Node* focused) const;
  /// Ends the search: its control has the focus, or another one was focused meanwhile.
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
