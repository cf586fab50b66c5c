// Where the elements are on the page, which of them have a widget, and where those go.

#include "VemraQt/Layout.hpp"
#include "VemraQt/Page.hpp"

#include <QAbstractScrollArea>

namespace vemra::qt {

QRect Page::frameOnPage(const RenderNode& leaf) const {
  const bool rightToLeft = area_.layoutDirection() == Qt::RightToLeft;
  const RenderNode* row = rowOf(const_cast<RenderNode*>(&leaf));
  const int scopeWidth = (row ? row : tree_.root())->measuredWidth;
  const QRect frame = rightToLeft ? mirrored(leaf.frame, scopeWidth) : leaf.frame;
  if (!row) return frame;
  const ui::Insets padding = row->parent->element.padding();
  const QRect whole = rowFrameOnPage(*row->parent, row->rowIndex);
  return frame.translated(whole.left() + (rightToLeft ? padding.trailing : padding.leading),
                          whole.top() + padding.top);
}

QRect Page::rowFrameOnPage(const RenderNode& list, std::size_t index) const {
  const bool rightToLeft = area_.layoutDirection() == Qt::RightToLeft;
  const QRect rows = rightToLeft ? mirrored(list.frame, tree_.root()->measuredWidth) : list.frame;
  return QRect(rows.x(), rows.y() + list.rows->topOnPage(index), rows.width(),
               list.rows->height(index));
}

bool Page::isInViewport(const RenderNode& leaf) const {
  const QRect frame = frameOnPage(leaf);
  return frame.bottom() >= scroll_ && frame.top() < scroll_ + area_.viewport()->height();
}

bool Page::isNearViewport(const RenderNode& leaf) const {
  const QRect frame = frameOnPage(leaf);
  return frame.bottom() >= scroll_ - keepMargin &&
         frame.top() < scroll_ + area_.viewport()->height() + keepMargin;
}

bool Page::keepsWidget(const RenderNode& leaf) const {
  if (isNearViewport(leaf)) return true;
  if (!leaf.widget) return false;
  const RenderNode* row = rowOf(const_cast<RenderNode*>(&leaf));
  return row ? isPinned(*row) : &leaf == focusedNode();  // in a window without the keyboard, too
}

void Page::place() {
  std::vector<Placement> placements;
  QRect touched;
  if (tree_.root()) {
    forEachLeaf(*tree_.root(), [&](RenderNode& leaf) {
      const bool keeps = keepsWidget(leaf);
      const QRect before = leaf.widget ? leaf.widget->widget().geometry() : QRect();
      const QRect after = keeps ? widgetFrame(leaf) : QRect();
      if (before != after) touched |= before | after;
      if (keeps) {
        placements.push_back({&leaf, after});
      } else if (leaf.widget) {
        pool_.giveBack(*leaf.widget);
        leaf.widget = nullptr;
      }
    });
  }
  // Widgets that move one by one leave a region of many small rectangles to be painted; one large
  // one takes a fraction of the time.
  area_.viewport()->update(touched & area_.viewport()->rect());
  for (const Placement& placement : placements) place(placement);
  pool_.hideResting();
}

void Page::place(const Placement& placement) {
  RenderNode& leaf = *placement.leaf;
  if (!leaf.widget) {
    leaf.widget = &pool_.take(leaf.element);
    leaf.stale = true;
  }
  QWidget& widget = leaf.widget->widget();
  if (widget.geometry() != placement.frame) {
    widget.setAttribute(Qt::WA_UpdatesDisabled);
    widget.setGeometry(placement.frame);
    widget.setAttribute(Qt::WA_UpdatesDisabled, false);
  }
  if (leaf.stale) {
    leaf.widget->show(leaf);
    leaf.stale = false;
  }
  if (widget.isHidden()) widget.show();
}

QRect Page::widgetFrame(const RenderNode& leaf) const {
  return frameOnPage(leaf).translated(0, -scroll_).marginsAdded(overhang(leaf));
}

}  // namespace vemra::qt
