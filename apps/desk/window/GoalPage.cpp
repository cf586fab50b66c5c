#include "apps/desk/window/GoalPage.hpp"

#include "apps/desk/window/FocusRing.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <variant>

#include <QEvent>
#include <QFocusEvent>
#include <QPainter>
#include <QScrollBar>

namespace vemra::desk {
namespace {

constexpr int besideLines = 48;  // the margins of the page, both together

bool isLeaf(const ui::Node& node) {
  switch (node.element.kind()) {
    case ui::ElementKind::text:
    case ui::ElementKind::button:
    case ui::ElementKind::picker:
    case ui::ElementKind::textField:
      return true;
    default:
      return false;
  }
}

/// Counts the texts and controls below `node` up to `leaf`. Returns whether it is among them.
bool countTo(const ui::Node& leaf, const ui::Node& node, std::size_t& count) {
  if (&node == &leaf) return true;
  if (isLeaf(node)) {
    ++count;
    return false;
  }
  return std::ranges::any_of(node.children,
                             [&](const ui::Node* child) { return countTo(leaf, *child, count); });
}

qt::ReadingPlace placeOf(const ui::Node& control) {
  qt::ReadingPlace place;
  place.focus = control.id;
  for (const ui::Node* node = &control; node; node = node->parent) {
    if (!node->isRow || !node->parent) continue;
    place.focusRow = qt::ReadingPlace::Row{node->parent->id, node->rowIndex};
    place.controlInRow = 0;
    countTo(control, *node, place.controlInRow);
  }
  return place;
}

/// The focus ring around a page, over its content.
class Ring : public QWidget {
 public:
  explicit Ring(QWidget* page) : QWidget(page) {
    setObjectName("desk.page.ring");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    drawFocusRing(painter, *this);
  }
};

}  // namespace

GoalPage::GoalPage() : ring_(new Ring(this)) {
  lastInput();  // observes from now on
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  verticalScrollBar()->installEventFilter(this);
  presses_ = graph().observeEvents([this](const ui::Node& element, const ui::Event& event) {
    if (std::holds_alternative<ui::Press>(event)) placeOfPress_ = placeOf(element);
  });
}

/// The lines keep their width when the scroll bar comes or goes.
bool GoalPage::eventFilter(QObject* watched, QEvent* event) {
  const bool handled = qt::ViewWidget::eventFilter(watched, event);
  const bool isScrollBar = watched == verticalScrollBar();
  const auto type = event->type();
  if (isScrollBar && (type == QEvent::Show || type == QEvent::Hide)) limitLines();
  return handled;
}

bool GoalPage::event(QEvent* event) {
  const bool handled = qt::ViewWidget::event(event);
  const bool changesLines = event->type() == QEvent::FontChange ||
                            event->type() == QEvent::LayoutDirectionChange ||
                            event->type() == QEvent::Resize;
  if (changesLines) limitLines();
  if (event->type() == QEvent::Resize) ring_->setGeometry(rect());
  if (event->type() == QEvent::WindowActivate) updateRing(lastInput());
  return handled;
}

/// A click beside the controls gives the page the focus too; that needs no ring.
void GoalPage::focusInEvent(QFocusEvent* event) {
  qt::ViewWidget::focusInEvent(event);
  const Qt::FocusReason reason = event->reason();
  const bool isReturn = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
  if (isReturn || reason == Qt::OtherFocusReason) {
    if (!isReturn) isFocusOfWindow_ = false;  // a new focus
    updateRing(lastInput());
  } else {
    isFocusOfWindow_ = false;
    updateRing(reason == Qt::MouseFocusReason ? Input::mouse : Input::key);
  }
}

void GoalPage::focusOutEvent(QFocusEvent* event) {
  qt::ViewWidget::focusOutEvent(event);
  updateRing(lastInput());
}

void GoalPage::hideEvent(QHideEvent* event) {
  qt::ViewWidget::hideEvent(event);
  isFocusOfWindow_ = false;
  ring_->hide();
}

/// While another window or a menu has the focus, the window remembers its focus widget. So the ring
/// stays if that is still the page, and the focus can also be moved meanwhile.
void GoalPage::updateRing(Input cause) {
  const bool isNow = isVisible() && window()->focusWidget() == this;
  const bool wasBefore = std::exchange(isFocusOfWindow_, isNow);
  if (isNow == wasBefore) return;
  ring_->setVisible(isNow && cause == Input::key);
  ring_->raise();
}

void GoalPage::limitLines() {
  const QScrollBar& scrollBar = *verticalScrollBar();
  const int room = width() - (scrollBar.isVisible() ? scrollBar.width() : 0);
  const int beyond = std::max(0, room - besideLines - longestLine(*this));
  const QMargins aside = isRightToLeft() ? QMargins(beyond, 0, 0, 0) : QMargins(0, 0, beyond, 0);
  if (viewportMargins() != aside) setViewportMargins(aside);
}

}  // namespace vemra::desk
