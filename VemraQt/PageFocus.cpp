// Where the focus goes: in tree order, through rows that are not there yet, and on to what took the
// place of an element that went.

#include "VemraQt/Page.hpp"

#include <algorithm>

#include <QAbstractScrollArea>
#include <QScopedValueRollback>

namespace vemra::qt {

namespace {

page::FocusOrder::Direction directionOf(bool forward) {
  return forward ? page::FocusOrder::Direction::forward : page::FocusOrder::Direction::backward;
}

}  // namespace

const page::Node* Page::focusedNode() const {
  QWidget* widget = area_.window()->focusWidget();
  if (!widget || widget->parentWidget() != area_.viewport()) return nullptr;
  auto* shown = dynamic_cast<ElementWidget*>(widget);
  return shown ? tree_.find(shown->node()) : nullptr;
}

bool Page::focusNext(bool forward) {
  const page::Node* from = focusedNode();
  if (!from) return false;
  const page::Anchor before = placeOfReader();
  const page::Node* control =
      page::FocusOrder(tree_, *this).next(*tree_.find(from->id), directionOf(forward));
  if (!control) return scrollBackTo(before), false;
  focus(*control, forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

bool Page::focusEnd(bool first) {
  if (!tree_.root()) return false;
  const page::Anchor before = placeOfReader();
  const page::Node* control =
      page::FocusOrder(tree_, *this).firstIn(*tree_.root(), directionOf(first));
  if (!control) return scrollBackTo(before), false;
  focus(*control, first ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

page::Anchor Page::placeOfReader() const {
  return {page::Anchor::Reason::scrolled, tree_, frames(), viewport(), nullptr};
}

/// After a search for a control that has found none.
void Page::scrollBackTo(const page::Anchor& place) {
  scrollTo(place.position(tree_, frames(), viewport()));
}

bool Page::focusElement(ui::NodeID id, Qt::FocusReason reason) {
  const page::Node* node = tree_.find(id);
  if (!node || !page::takesFocus(*node)) return false;
  focus(*node, reason);
  return true;
}

void Page::focus(const page::Node& control, Qt::FocusReason reason) {
  const ui::NodeID id = control.id;
  if (!shown(control).widget) reveal(control);
  const page::Node* still = tree_.find(id);
  if (!still || !shown(*still).widget) return;
  shown(*still).widget->widget().setFocus(reason);
  reveal(*still);
}

/// The row, brought in by scrolling to it when it is not there; nullptr when that fails.
page::Node* Page::bringRow(page::Node& list, std::size_t index) {
  const ui::NodeID id = list.id;
  const auto find = [&]() -> page::Node* {
    page::Node* still = tree_.find(id);
    if (!still) return nullptr;
    auto row = std::ranges::find(still->children(), index, &page::Node::rowIndex);
    return row == still->children().end() ? nullptr : &*row;
  };
  if (page::Node* row = find()) return row;
  if (filling_) return nullptr;
  const int top = list.frame.y + list.rows->topOnPage(index);
  scrollTo(top - area_.viewport()->height() / 3);
  return find();
}

void Page::reveal(const page::Node& node) {
  const int position = page::positionShowing(node, frames(), viewport(), margins_.air);
  if (position != scroll_) scrollTo(position);
}

void Page::scrollIn(ui::NodeID id) {
  const page::Node* node = tree_.find(id);
  if (!node) return;
  const QRect frame = frameOnPage(*node);
  const QRect view(frame.x(), scroll_, frame.width(), area_.viewport()->height());
  // One that is taller than the viewport is never all in view: half of the viewport is enough.
  if ((frame & view).height() < std::min(frame.height(), view.height() / 2)) reveal(*node);
}

void Page::bringRow(ui::NodeID list, std::size_t index) {
  page::Node* node = tree_.find(list);
  if (node && node->rows && index < node->rows->count()) bringRow(*node, index);
}

void Page::focusInPlace(ui::NodeID within, ui::NodeID after) {
  focusKeeper_.moveTo({within, after, std::nullopt});
  restoreFocus();
}

void Page::leaving(page::Node& node) {
  if (node.parent && accessible_) accessible_->childrenChanged(*node.parent);
  const page::Node* focused = focusedNode();
  using Sight = page::FocusKeeper::Sight;
  focusKeeper_.removing(node, focused, tree_.find(pressed_),
                        focusWasSeen_ ? Sight::inView : Sight::outOfView);
  forEachLeaf(node, [&](const page::Node& leaf) {
    ElementWidget* const widget = shown(leaf).widget;
    leaves_.erase(leaf);
    if (!widget) return;
    if (&leaf == focused) {
      if (orphan_) pool_.giveBack(*orphan_);
      orphan_ = widget;  // not another element's as long as it has the focus
    } else {
      pool_.giveBack(*widget);
    }
  });
}

/// Hands a focus that was lost to the control that takes it. Where rows on the way there come only
/// with the graph's next pass, the search goes on after that.
void Page::restoreFocus() {
  if (restoringFocus_) return;
  const QScopedValueRollback<bool> restoring(restoringFocus_, true);
  if (focusKeeper_.isSearching()) {
    if (!beforeSearch_) beforeSearch_ = placeOfReader();
    const page::Node* control = focusKeeper_.control();
    if (control) focus(*control, Qt::OtherFocusReason);
    if (needsSettle_ && focusKeeper_.isUnfinished(focusedNode())) return;
    focusKeeper_.end();
    const page::Anchor before = *std::exchange(beforeSearch_, std::nullopt);
    if (!control) {
      scrollBackTo(before);
      if (orphan_) area_.setFocus(Qt::OtherFocusReason);
    }
  }
  if (orphan_) {
    pool_.giveBack(*std::exchange(orphan_, nullptr));
    pool_.hideResting();
  }
}

}  // namespace vemra::qt
