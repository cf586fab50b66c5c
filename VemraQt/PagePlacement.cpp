// Where the elements are on the page, which of them have a widget, and where those go.

#include "VemraQt/Page.hpp"

#include <QAbstractScrollArea>

namespace vemra::qt {

namespace {

QRect toQRect(const page::Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

}  // namespace

page::Viewport Page::viewport() const {
  return {area_.viewport()->width(), area_.viewport()->height(), scroll_};
}

page::Frames Page::frames() const {
  return {tree_, area_.layoutDirection() == Qt::RightToLeft ? ui::LayoutDirection::rightToLeft
                                                            : ui::LayoutDirection::leftToRight};
}

QRect Page::frameOnPage(const page::Node& leaf) const {
  return toQRect(frames().of(leaf));
}

QRect Page::rowFrameOnPage(const page::Node& list, std::size_t index) const {
  return toQRect(frames().ofRow(list, index));
}

const ShownLeaf& Page::shown(const page::Node& leaf) const {
  static const ShownLeaf none;
  const ShownLeaf* const found = leaves_.find(leaf);
  return found ? *found : none;
}

bool Page::keepsWidget(const page::Node& leaf, const page::Frames& frames,
                       const page::PinnedRows& pinned) const {
  if (viewport().shows(frames.of(leaf), margins_.keep)) return true;
  if (!shown(leaf).widget) return false;
  const page::Node* const row = page::rowOf(&leaf);
  // The focused element keeps it in a window without the keyboard, too.
  return row ? page::isPinned(*row, pinned) : &leaf == focusedNode();
}

void Page::place() {
  std::vector<Placement> placements;
  QRect touched;
  if (tree_.root()) {
    const page::Frames frames = this->frames();
    const page::PinnedRows pinned = pinnedRows();
    forEachLeaf(*tree_.root(), [&](const page::Node& leaf) {
      const bool keeps = keepsWidget(leaf, frames, pinned);
      ElementWidget* const widget = shown(leaf).widget;
      const QRect before = widget ? widget->widget().geometry() : QRect();
      const QRect after = keeps ? widgetFrame(leaf) : QRect();
      if (before != after) touched |= before | after;
      if (keeps) {
        placements.push_back({&leaf, after});
      } else if (widget) {
        pool_.giveBack(*widget);
        leaves_.of(leaf).widget = nullptr;
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
  const page::Node& leaf = *placement.leaf;
  ShownLeaf& shown = leaves_.of(leaf);
  if (!shown.widget) {
    shown.widget = &pool_.take(leaf.element);
    shown.stale = true;
  } else if (shown.stale) {
    pool_.reshape(*shown.widget, leaf.element);
  }
  QWidget& widget = shown.widget->widget();
  if (widget.geometry() != placement.frame) {
    widget.setAttribute(Qt::WA_UpdatesDisabled);
    widget.setGeometry(placement.frame);
    widget.setAttribute(Qt::WA_UpdatesDisabled, false);
  }
  if (shown.stale) {
    shown.widget->show(leaf, shown.shape);
    shown.stale = false;
  }
  if (widget.isHidden()) widget.show();
}

QRect Page::widgetFrame(const page::Node& leaf) const {
  return frameOnPage(leaf)
      .translated(0, -scroll_)
      .marginsAdded(overhang(leaf.element, shown(leaf).shape));
}

}  // namespace vemra::qt
