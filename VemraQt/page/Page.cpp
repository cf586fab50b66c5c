#include "VemraQt/page/Page.hpp"

#include <utility>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QScopedValueRollback>

namespace vemra::qt {

namespace {

page::Page::Direction directionOf(bool forward) {
  return forward ? page::Page::Direction::forward : page::Page::Direction::backward;
}

page::FocusReason reasonOf(Qt::FocusReason reason) {
  switch (reason) {
    case Qt::TabFocusReason:
      return page::FocusReason::forward;
    case Qt::BacktabFocusReason:
      return page::FocusReason::backward;
    default:
      return page::FocusReason::other;
  }
}

Qt::FocusReason reasonOf(page::FocusReason reason) {
  switch (reason) {
    case page::FocusReason::forward:
      return Qt::TabFocusReason;
    case page::FocusReason::backward:
      return Qt::BacktabFocusReason;
    case page::FocusReason::other:
      break;
  }
  return Qt::OtherFocusReason;
}

}  // namespace

Page::Page(QAbstractScrollArea& area, ui::ViewGraph& graph)
    : area_(area),
      graph_(graph),
      metrics_(area, context_.theme, leaves_),
      pool_(area.viewport(), context_),
      page_(graph, *this) {
  context_.sink = this;
  idle_.setSingleShot(true);
  idle_.callOnTimeout([this] { settleTexts(); });
}

void Page::attach() {
  errors_.attempt([this] { graph_.attach(page_); });
}

void Page::failed(std::exception_ptr error) {
  errors_.attempt([&] { std::rethrow_exception(std::move(error)); });
}

void Page::deliver(ui::NodeID node, ui::Event event) {
  if (onDeliver) errors_.attempt([&] { onDeliver(node, event); });
  page_.deliver(node, std::move(event));
}

void Page::restyle() {
  if (restyling_) return;
  environmentChanged(page_.environment());
  page_.restyled();
}

void Page::environmentChanged(const ui::Environment& environment) {
  const QScopedValueRollback<bool> restyling(restyling_, true);
  area_.setLayoutDirection(environment.layoutDirection == ui::LayoutDirection::rightToLeft
                               ? Qt::RightToLeft
                               : Qt::LeftToRight);
  // The area inherits the palette around it, so Qt applies later changes to it.
  const QPalette inherited = inheritedPalette(area_);
  const bool fits = colorSchemeOf(inherited) == environment.colorScheme;
  area_.setPalette(fits ? QPalette() : Theme(area_.font(), inherited, environment).palette());
  context_.theme = Theme(area_.font(), area_.palette(), environment);
  metrics_.restyle();
  pool_.restyle();
}

bool Page::focusNext(bool forward) {
  return page_.focusNext(directionOf(forward));
}

bool Page::focusNextRow(bool forward) {
  return page_.focusNextRow(directionOf(forward));
}

bool Page::focusEnd(bool first) {
  return page_.focusFirst(directionOf(first));
}

bool Page::focusElement(ui::NodeID id, Qt::FocusReason reason) {
  return page_.focus(id, reasonOf(reason));
}

ui::NodeID Page::focused() const {
  QWidget* widget = area_.window()->focusWidget();
  if (!widget || widget->parentWidget() != area_.viewport()) return {};
  auto* shown = dynamic_cast<ElementWidget*>(widget);
  return shown ? shown->node() : ui::NodeID{};
}

void Page::giveFocus(const page::Node& control, page::FocusReason reason) {
  if (ElementWidget* widget = shown(control).widget) widget->widget().setFocus(reasonOf(reason));
}

void Page::loseFocus() {
  if (orphan_) area_.setFocus(Qt::OtherFocusReason);
}

void Page::atRest() {
  if (!orphan_) return;
  pool_.recycle(*std::exchange(orphan_, nullptr));
  pool_.hideUnused();
}

void Page::patched(const ui::Changes& changes) {
  if (observer_) observer_->patched(changes);
}

void Page::placed() {
  if (observer_) observer_->settled();
}

void Page::removing(page::Node& node) {
  if (observer_) observer_->removing(node);
  const ui::NodeID focused = this->focused();
  forEachLeaf(node, [&](const page::Node& leaf) {
    ElementWidget* const widget = shown(leaf).widget;
    leaves_.erase(leaf);
    std::erase(longTexts_, leaf.id);
    if (!widget) return;
    if (leaf.id == focused) {
      if (orphan_) pool_.recycle(*orphan_);
      orphan_ = widget;  // keeps the focus, so no other element may get this widget yet
    } else {
      pool_.recycle(*widget);
    }
  });
}

}  // namespace vemra::qt
