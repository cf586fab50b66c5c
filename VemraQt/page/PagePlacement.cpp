// The widgets of the elements near the viewport.

#include "VemraQt/page/Page.hpp"

#include <utility>

#include <QAbstractScrollArea>

namespace vemra::qt {

namespace {

QRect toQRect(const page::Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

}  // namespace

QRect Page::frameOnPage(const page::Node& leaf) const {
  return toQRect(page_.frames().of(leaf));
}

QRect Page::rowFrameOnPage(const page::Node& list, std::size_t index) const {
  return toQRect(page_.frames().ofRow(list, index));
}

const ShownLeaf& Page::shown(const page::Node& leaf) const {
  static const ShownLeaf none;
  const ShownLeaf* const found = leaves_.find(leaf);
  return found ? *found : none;
}

void Page::place(const page::Placements& placements) {
  QRect touched;
  for (const page::Node* leaf : placements.released) {
    ElementWidget* const widget = std::exchange(leaves_.of(*leaf).widget, nullptr);
    if (!widget) continue;
    touched |= widget->widget().geometry();
    pool_.recycle(*widget);
  }
  std::vector<QRect> frames;
  frames.reserve(placements.placed.size());
  for (const page::Placement& placement : placements.placed) {
    const page::Node& leaf = *placement.leaf;
    const ShownLeaf& shown = this->shown(leaf);
    const QRect before = shown.widget ? shown.widget->widget().geometry() : QRect();
    const QRect after = toQRect(placement.frame)
                            .translated(0, -scrollPosition())
                            .marginsAdded(overhang(leaf.element, shown.shape));
    if (before != after) touched |= before | after;
    frames.push_back(after);
  }
  // Widgets that move one by one invalidate many small rectangles; painting one large rectangle
  // instead takes a fraction of the time.
  area_.viewport()->update(touched & area_.viewport()->rect());
  for (std::size_t i = 0; i < frames.size(); ++i) place(*placements.placed[i].leaf, frames[i]);
  pool_.hideUnused();
}

void Page::place(const page::Node& leaf, const QRect& frame) {
  ShownLeaf& shown = leaves_.of(leaf);
  if (!shown.widget) {
    shown.widget = &pool_.acquire(leaf.element);
    shown.stale = true;
  } else if (shown.stale) {
    pool_.changeKey(*shown.widget, leaf.element);
  }
  QWidget& widget = shown.widget->widget();
  if (widget.geometry() != frame) {
    widget.setAttribute(Qt::WA_UpdatesDisabled);
    widget.setGeometry(frame);
    widget.setAttribute(Qt::WA_UpdatesDisabled, false);
  }
  if (shown.stale) {
    shown.widget->show(leaf, shown.shape);
    shown.stale = false;
  }
  if (widget.isHidden()) widget.show();
}

}  // namespace vemra::qt
