#include "VemraPlatform/page/FocusKeeper.hpp"

#include <utility>

namespace vemra::page {

using Direction = FocusOrder::Direction;

void FocusKeeper::removing(const Node& node, const Node* focused, const Node* pressed,
                           Sight sight) {
  const bool losesFocus = isInside(focused, node);
  const bool losesPressed = isInside(pressed, node);
  const bool losesPlace = search_ && isInside(tree_.find(search_->place.within), node);
  if (!losesFocus && !losesPressed && !losesPlace) return;
  const bool isSeen = losesPressed || (losesFocus && sight == Sight::inView) ||
                      (search_ && search_->sight == Sight::inView);
  search_ = Search{LostPlace::of(node), isSeen ? Sight::inView : Sight::outOfView};
}

const Node* FocusKeeper::row() const {
  if (!search_ || search_->sight == Sight::outOfView) return nullptr;
  return rowOf(tree_.find(search_->found ? search_->found : search_->place.within));
}

const Node* FocusKeeper::control() {
  if (!search_ || search_->sight == Sight::outOfView) return nullptr;
  if (const Node* found = tree_.find(search_->found); found && takesFocus(*found)) return found;
  Search& search = *search_;  // rows that come in may replace it by another search
  FocusOrder order(tree_, rows_);
  const Node* control =
      search.waiting ? order.resume(*search.waiting) : order.nextTo(search.place, search.direction);
  search.waiting = order.waiting();
  if (!control && !search.waiting && search.direction == Direction::forward) {
    search.direction = Direction::backward;
    control = order.nextTo(search.place, search.direction);
    search.waiting = order.waiting();
  }
  search.found = control ? control->id : ui::NodeID{};
  return control;
}

bool FocusKeeper::isUnfinished(const Node* focused) const {
  if (!search_) return false;
  return search_->found ? !focused || focused->id != search_->found : search_->waiting.has_value();
}

}  // namespace vemra::page
