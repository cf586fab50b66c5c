// Where the focus goes: in tree order, through rows that are not there yet, and on to what took the
// place of an element that went.

#include "VemraQt/Page.hpp"

#include <algorithm>

#include <QAbstractScrollArea>
#include <QScopedValueRollback>

namespace vemra::qt {

namespace {

// A list of rows without any control is left after so many of them.
constexpr int mostRowsWithoutControl = 64;

bool isControl(const RenderNode& leaf) {
  return leaf.element.kind() != ui::ElementKind::text && leaf.element.style().enabled;
}

bool isInside(const RenderNode* node, const RenderNode& holder) {
  while (node && node != &holder) node = node->parent;
  return node != nullptr;
}

}  // namespace

RenderNode* Page::focusedNode() const {
  QWidget* widget = area_.window()->focusWidget();
  if (!widget || widget->parentWidget() != area_.viewport()) return nullptr;
  auto* shown = dynamic_cast<ElementWidget*>(widget);
  return shown ? tree_.find(shown->node()) : nullptr;
}

bool Page::focusNext(bool forward) {
  RenderNode* from = focusedNode();
  RenderNode* control = from ? nextControl(from, forward) : nullptr;
  if (!control) return false;
  focus(*control, forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

bool Page::focusEnd(bool first) {
  RenderNode* control = tree_.root() ? controlIn(*tree_.root(), first) : nullptr;
  if (!control) return false;
  focus(*control, first ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

bool Page::focusElement(ui::NodeID id, Qt::FocusReason reason) {
  RenderNode* node = tree_.find(id);
  if (!node || !node->isLeaf() || !isControl(*node)) return false;
  focus(*node, reason);
  return true;
}

void Page::focus(RenderNode& control, Qt::FocusReason reason) {
  const ui::NodeID id = control.id;
  if (!control.widget) reveal(control);
  RenderNode* still = tree_.find(id);
  if (!still || !still->widget) return;
  still->widget->widget().setFocus(reason);
  reveal(*still);
}

/// The first control in a subtree, or the last one. May bring in rows.
RenderNode* Page::controlIn(RenderNode& node, bool forward) {
  if (node.isLeaf()) return isControl(node) ? &node : nullptr;
  if (node.rows) {
    const ui::NodeID list = node.id;
    const std::size_t count = node.rows->count();
    for (std::size_t i = 0; i < std::min<std::size_t>(count, mostRowsWithoutControl); ++i) {
      RenderNode* still = tree_.find(list);
      RenderNode* row = still ? rowAt(*still, forward ? i : count - 1 - i) : nullptr;
      RenderNode* control = row ? controlIn(*row, forward) : nullptr;
      if (control) return control;
    }
    return nullptr;
  }
  const std::size_t count = node.children.size();
  for (std::size_t i = 0; i < count; ++i) {
    RenderNode* control = controlIn(*node.children[forward ? i : count - 1 - i], forward);
    if (control) return control;
  }
  return nullptr;
}

/// The control after, or before, a node in tree order; nullptr at the end of the page.
RenderNode* Page::nextControl(RenderNode* from, bool forward) {
  for (RenderNode* parent = from->parent; parent; from = parent, parent = from->parent) {
    if (parent->rows) {
      std::size_t index = from->rowIndex;
      for (int i = 0; i < mostRowsWithoutControl; ++i) {
        if (forward ? index + 1 >= parent->rows->count() : index == 0) break;
        index = forward ? index + 1 : index - 1;
        RenderNode* row = rowAt(*parent, index);
        RenderNode* control = row ? controlIn(*row, forward) : nullptr;
        if (control) return control;
      }
      continue;
    }
    const auto& siblings = parent->children;
    auto place = std::ranges::find(siblings, from);
    while (forward ? ++place != siblings.end() : place != siblings.begin()) {
      if (!forward) --place;
      if (RenderNode* control = controlIn(**place, forward)) return control;
    }
  }
  return nullptr;
}

/// The row, brought in by scrolling to it when it is not there; nullptr when that fails.
RenderNode* Page::rowAt(RenderNode& list, std::size_t index) {
  const auto find = [&]() -> RenderNode* {
    auto row = std::ranges::find(list.children, index, &RenderNode::rowIndex);
    return row == list.children.end() ? nullptr : *row;
  };
  if (RenderNode* row = find()) return row;
  if (filling_) return nullptr;
  const int top = list.frame.top() + list.rows->topOnPage(index);
  scrollTo(top - area_.viewport()->height() / 3);
  return find();
}

void Page::reveal(const RenderNode& node) {
  const int page = area_.viewport()->height();
  constexpr int air = 12;
  const auto scrollFor = [&](const QRect& frame) {
    if (frame.top() - air < scroll_) return frame.top() - air;
    if (frame.bottom() + air > scroll_ + page) return frame.bottom() + air - page;
    return scroll_;
  };
  QRect frame = frameOnPage(node);
  if (RenderNode* row = rowOf(const_cast<RenderNode*>(&node))) {
    QRect whole;
    forEachLeaf(*row, [&](RenderNode& leaf) { whole |= frameOnPage(leaf); });
    if (whole.height() + 2 * air <= page) frame = whole;
  }
  const int position = scrollFor(frame);
  if (position != scroll_) scrollTo(position);
}

void Page::bringRow(ui::NodeID list, std::size_t index) {
  RenderNode* node = tree_.find(list);
  if (node && node->rows && index < node->rows->count()) rowAt(*node, index);
}

void Page::focusInPlace(ui::NodeID within, ui::NodeID after) {
  lostFocus_ = LostFocus{within, after, std::nullopt, true};
  restoreFocus();
}

void Page::leaving(RenderNode& node) {
  if (node.parent && accessible_) accessible_->childrenChanged(*node.parent);
  RenderNode* focused = focusedNode();
  const bool losesFocus = focused && isInside(focused, node);
  const RenderNode* pressed = pressed_ ? tree_.find(pressed_) : nullptr;
  const bool losesPressed = pressed && isInside(pressed, node);
  const RenderNode* within = lostFocus_ ? tree_.find(lostFocus_->within) : nullptr;
  if (losesFocus || losesPressed || (within && isInside(within, node))) {
    LostFocus lost;
    lost.wasSeen = losesPressed || (lostFocus_ && lostFocus_->wasSeen);
    if (losesFocus) lost.wasSeen = lost.wasSeen || focusWasSeen_;
    if (RenderNode* parent = node.parent) {
      lost.within = parent->id;
      auto place = std::ranges::find(parent->children, &node);
      if (place != parent->children.begin()) lost.after = (*std::prev(place))->id;
      if (node.isRow()) lost.row = node.rowIndex;
    }
    lostFocus_ = lost;
  }
  forEachLeaf(node, [&](RenderNode& leaf) {
    if (!leaf.widget) return;
    if (&leaf == focused) {
      if (orphan_) pool_.giveBack(*orphan_);
      orphan_ = leaf.widget;  // not another element's as long as it has the focus
    } else {
      pool_.giveBack(*leaf.widget);
    }
    leaf.widget = nullptr;
  });
}

/// Hands a focus that was lost to what took the element's place, or comes after it, or before. Where
/// rows on the way there come only with the graph's next pass, it is tried again after that.
void Page::restoreFocus() {
  if (restoringFocus_) return;
  const QScopedValueRollback<bool> restoring(restoringFocus_, true);
  if (lostFocus_) {
    const LostFocus lost = *lostFocus_;
    RenderNode* within = tree_.find(lost.within);
    RenderNode* control = nullptr;
    if (within && lost.wasSeen) {
      if (lost.row && within->rows) {
        if (within->rows->count() > 0) {
          RenderNode* row = rowAt(*within, std::min(*lost.row, within->rows->count() - 1));
          control = row ? controlIn(*row, true) : nullptr;
        }
      } else {
        auto place = std::ranges::find(within->children, lost.after, &RenderNode::id);
        place = place == within->children.end() ? within->children.begin() : std::next(place);
        for (; place != within->children.end() && !control; ++place) {
          control = controlIn(**place, true);
        }
      }
      if (!control && !needsSettle_) control = nextControl(within, true);
      if (!control && !needsSettle_) control = nextControl(within, false);
    }
    const ui::NodeID id = control ? control->id : ui::NodeID{};
    if (control) focus(*control, Qt::OtherFocusReason);
    const RenderNode* focused = focusedNode();
    if (within && lost.wasSeen && needsSettle_ && (!focused || focused->id != id)) return;
    lostFocus_.reset();
    if (!control && orphan_) area_.setFocus(Qt::OtherFocusReason);
  }
  if (orphan_) {
    pool_.giveBack(*std::exchange(orphan_, nullptr));
    pool_.hideResting();
  }
}

}  // namespace vemra::qt
