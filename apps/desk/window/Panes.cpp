#include "apps/desk/window/Panes.hpp"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QScopedValueRollback>

namespace vemra::desk {
namespace {

/// The least widths in characters; no pane is narrower where it has company.
constexpr int goalsLeast = 22;
constexpr int pageLeast = 44;
constexpr int detailsLeast = 32;

}  // namespace

Panes::Panes(QWidget* goals, QWidget* page, QWidget* details)
    : goals_(goals), page_(page), details_(details) {
  setChildrenCollapsible(false);
  setHandleWidth(1);
  for (QWidget* pane : {goals_, page_, details_}) addWidget(pane);
  details_->installEventFilter(this);
  setStretchFactor(1, 1);
  setSizes({230, 560, 290});
}

void Panes::setGoalsWanted(bool wanted) {
  goalsWanted_ = wanted;
  if (!wanted) inGoals_ = false;
  arrange();
}

void Panes::goToGoals() {
  inGoals_ = goalsWanted_;
  arrange();
}

bool Panes::leaveGoals() {
  const bool wasOnlyGoals = page_->isHidden() && inGoals_;
  inGoals_ = false;
  arrange();
  return wasOnlyGoals;
}

bool Panes::hideGoals() const {
  return goalsWanted_ && goals_->isHidden();
}

bool Panes::eventFilter(QObject* object, QEvent* event) {
  const auto type = event->type();
  if (object == details_ && (type == QEvent::ShowToParent || type == QEvent::HideToParent)) {
    if (type == QEvent::ShowToParent) inGoals_ = false;
    arrange();
  }
  return QSplitter::eventFilter(object, event);
}

void Panes::changeEvent(QEvent* event) {
  QSplitter::changeEvent(event);
  if (event->type() == QEvent::FontChange) arrange();
}

void Panes::resizeEvent(QResizeEvent* event) {
  arrange();
  QSplitter::resizeEvent(event);
}

void Panes::arrange() {
  if (arranging_) return;
  const QScopedValueRollback<bool> inside(arranging_, true);
  const int character = fontMetrics().averageCharWidth();
  const int goals = goalsLeast * character;
  const int page = pageLeast * character;
  const int details = detailsLeast * character;
  const bool hasDetails = !details_->isHidden();
  const int beside = hasDetails ? details + handleWidth() : 0;
  const bool haveGoalsRoom = width() >= goals + handleWidth() + page + beside;
  const bool hasPageRoom = !hasDetails || width() >= page + beside;
  const bool areGoalsAlone = inGoals_ && !haveGoalsRoom && !hasDetails;
  const bool showGoals = goalsWanted_ && (haveGoalsRoom || areGoalsAlone);
  // Show before hiding: a pane that is hidden with the focus must find another one.
  const bool showPage = hasPageRoom && !areGoalsAlone;
  goals_->setMinimumWidth(std::min(goals, width()));
  page_->setMinimumWidth(std::min(page, width()));
  details_->setMinimumWidth(std::min(details, width()));
  if (showGoals) goals_->show();
  page_->setVisible(showPage);
  if (!showGoals) goals_->hide();
  const bool areHidden = hideGoals();
  if (std::exchange(gaveWay_, areHidden) != areHidden) Q_EMIT goalsGaveWay(areHidden);
}

}  // namespace vemra::desk
