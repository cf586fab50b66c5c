#include "VemraQt/ViewWidget.hpp"

#include "VemraQt/SystemEnvironment.hpp"
#include "VemraQt/accessibility/AccessiblePage.hpp"
#include "VemraQt/page/Page.hpp"
#include "VemraQt/widgets/PageScrollBar.hpp"

#include <utility>
#include <variant>

#include <QApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>

namespace vemra::qt {

ViewWidget::ViewWidget(QWidget* parent)
    : QAbstractScrollArea(parent),
      ownGraph_(std::make_unique<ui::ViewGraph>(environmentAround(*this))),
      graph_(*ownGraph_) {
  prepare();
}

ViewWidget::ViewWidget(ui::ViewGraph& graph, QWidget* parent)
    : QAbstractScrollArea(parent), graph_(graph), followsSystem_(false) {
  prepare();
}

ViewWidget::~ViewWidget() {
  hearing_ = {};
  accessible_.reset();
  page_.reset();
}

void ViewWidget::prepare() {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  setVerticalScrollBar(new PageScrollBar(Qt::Vertical));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // until the page decides
  viewport()->setBackgroundRole(QPalette::Base);
  viewport()->setAutoFillBackground(true);
  page_ = std::make_unique<Page>(*this, graph_);
  accessible_ = std::make_unique<AccessiblePage>(*this, *page_);
  page_->attach();
  hearing_ = graph_.observeEvents([this](const ui::Node& element, const ui::Event& event) {
    const std::string identifier(element.element.accessibilityIdentifier());
    if (std::holds_alternative<ui::Press>(event)) Q_EMIT pressed(identifier);
    Q_EMIT acted(identifier, event);
  });
  connect(qApp, &QGuiApplication::layoutDirectionChanged, this, [this] { followSystem(); });
  watchParent();
}

void ViewWidget::setRoot(ui::View root) {
  page_->errors().hostCall([&] { graph_.setRoot(std::move(root)); },
                           [this] { page_->settleIfNeeded(); });
}

void ViewWidget::setOverrides(ui::EnvironmentOverrides overrides) {
  overrides_ = std::move(overrides);
  followsSystem_ = true;
  changeEnvironment(overrides_.over(environmentAround(*this)));
}

void ViewWidget::setEnvironment(ui::Environment environment) {
  followsSystem_ = false;
  changeEnvironment(std::move(environment));
}

void ViewWidget::changeEnvironment(ui::Environment environment) {
  page_->errors().hostCall([&] { graph_.setEnvironment(std::move(environment)); },
                           [this] { page_->settleIfNeeded(); });
}

void ViewWidget::runAsHostCall(const std::function<void()>& work) {
  page_->errors().hostCall([this] { page_->errors().rethrowWaiting(); }, work);
}

const ui::Environment& ViewWidget::environment() const {
  return graph_.environment();
}

ui::ViewGraph& ViewWidget::graph() const {
  return graph_;
}

bool ViewWidget::reveal(std::string_view identifier) {
  return visit(Visit::reveal, std::string(identifier));
}

bool ViewWidget::focus(std::string_view identifier) {
  return visit(Visit::focus, std::string(identifier));
}

bool ViewWidget::visit(Visit visit, std::string identifier) {
  bool succeeds = false;
  page_->errors().hostCall([&] {
    const auto found = accessible_->identifiers().rows().first(identifier);
    const ui::Node* const node = found ? graph_.find(found->node) : nullptr;
    waiting_.reset();
    if (!node) return;
    const bool isControl = node->element.kind() != ui::ElementKind::text;
    succeeds = visit == Visit::reveal || (isControl && node->element.style().enabled);
    if (!isVisible()) {
      waiting_ = Waiting{visit, std::move(identifier)};
    } else if (visit == Visit::focus) {
      succeeds = qt::focus(*page_, found->row, found->node);
    } else {
      scrollIn(*page_, found->row, found->node);
    }
  });
  return succeeds;
}

int ViewWidget::contentHeight() const {
  return page_->contentHeight();
}

std::size_t ViewWidget::widgetCount() const {
  return page_->widgetCount();
}

void ViewWidget::followSystem() {
  if (followsSystem_) {
    page_->errors().attempt(
        [this] { graph_.setEnvironment(overrides_.over(environmentAround(*this))); });
  }
  page_->restyle();
}

bool ViewWidget::event(QEvent* event) {
  // This event destroys the widget, so nothing below may run.
  if (event->type() == QEvent::DeferredDelete) return QAbstractScrollArea::event(event);
  bool handled = false;
  {
    const QScopedValueRollback<bool> inside(inEvent_, true);
    handled = QAbstractScrollArea::event(event);
  }
  if (!inEvent_ && std::exchange(resized_, false)) page_->resized();
  switch (event->type()) {
    case QEvent::ApplicationPaletteChange:
    case QEvent::PaletteChange:
    case QEvent::LocaleChange:
      if (page_ && !page_->isRestyling()) followSystem();
      break;
    case QEvent::FontChange:
    case QEvent::StyleChange:
      if (page_) page_->restyle();
      break;
    case QEvent::ParentChange:
      if (page_) {
        watchParent();
        followSystem();
      }
      break;
    default:
      break;
  }
  return handled;
}

bool ViewWidget::eventFilter(QObject* watched, QEvent* event) {
  // Qt sends a change of the palette to windows and to the widgets that inherit it. While the
  // environment sets another colour scheme, this widget has a palette of its own and gets none. It
  // never inherits a direction, because the page sets it.
  const QEvent::Type type = event->type();
  const bool isOfWindow = watched == window() && type == QEvent::ApplicationPaletteChange;
  const bool isOfParent = watched == parentWidget() &&
                          (type == QEvent::LayoutDirectionChange ||
                           (type == QEvent::PaletteChange && testAttribute(Qt::WA_SetPalette)));
  if ((isOfWindow || isOfParent) && watched != this && !page_->isRestyling()) followSystem();
  return QAbstractScrollArea::eventFilter(watched, event);
}

void ViewWidget::watchParent() {
  if (parent_) parent_->removeEventFilter(this);
  parent_ = parentWidget();
  if (parent_) parent_->installEventFilter(this);
}

void ViewWidget::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  // The scroll area is laying itself out. If the page hid the scroll bar now, the scroll area would
  // show it again right away.
  resized_ = inEvent_;
  if (!inEvent_) page_->resized();
}

void ViewWidget::showEvent(QShowEvent* event) {
  window()->installEventFilter(this);
  QAbstractScrollArea::showEvent(event);
  page_->shown();
  if (const auto waiting = std::exchange(waiting_, std::nullopt)) {
    // No exception may pass through Qt's show event; the event loop rethrows it.
    page_->errors().attempt([&] { visit(waiting->visit, waiting->identifier); });
  }
}

void ViewWidget::scrollContentsBy(int, int) {
  page_->scrolled();
}

void ViewWidget::keyPressEvent(QKeyEvent* event) {
  QScrollBar* bar = verticalScrollBar();
  switch (event->key()) {
    case Qt::Key_Home:
      bar->setValue(bar->minimum());
      return;
    case Qt::Key_End:
      bar->setValue(bar->maximum());
      return;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (page_->focusNextRow(event->key() == Qt::Key_Down)) return;
      QAbstractScrollArea::keyPressEvent(event);
      return;
    case Qt::Key_Left:
    case Qt::Key_Right:
      event->ignore();
      return;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void ViewWidget::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  if (leaving_) return;
  if (event->reason() == Qt::TabFocusReason) page_->focusEnd(true);
  if (event->reason() == Qt::BacktabFocusReason) page_->focusEnd(false);
}

bool ViewWidget::focusNextPrevChild(bool next) {
  const bool isEntered = window()->focusWidget() == this;
  if (isEntered ? page_->focusEnd(next) : page_->focusNext(next)) return true;
  // Qt searches for the next control from the scroll area on, so the whole page counts as one Tab
  // stop.
  bool left = false;
  {
    const QScopedValueRollback<bool> leaving(leaving_, true);
    {
      accessible_->setFocusLeaving(true);
      const auto stay = qScopeGuard([this] { accessible_->setFocusLeaving(false); });
      setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
    left = QAbstractScrollArea::focusNextPrevChild(next);
  }
  if (left && window()->focusWidget() != this) return true;
  return page_->focusEnd(next);  // no other control in the window: wrap around
}

}  // namespace vemra::qt
