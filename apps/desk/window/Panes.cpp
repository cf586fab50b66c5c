#include "apps/desk/window/Panes.hpp"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace vemra::desk {
namespace {

/// The least widths in characters; no pane is narrower where it has company.
constexpr int goalsLeast = 22;
constexpr int pageLeast = 44;
constexpr int detailsLeast = 32;

/// The line between two panes, with a grip for the mouse that is wider than the line. It lies over
/// the margin of the pane behind the line: before the line there may be a scroll bar.
class Edge : public QSplitterHandle {
 public:
  explicit Edge(QSplitter* panes) : QSplitterHandle(Qt::Horizontal, panes) {}

 protected:
  void resizeEvent(QResizeEvent*) override { makeGrip(); }
  void changeEvent(QEvent* event) override {
    QSplitterHandle::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) makeGrip();
  }

 private:
  // The mouse can grasp the margins of a handle too; a mask keeps them from being drawn. Qt's own
  // margins reach two pixels to either side.
  void makeGrip() {
    constexpr int grip = 6;
    setAttribute(Qt::WA_MouseNoMask);
    setContentsMargins(isRightToLeft() ? grip : 0, 0, isRightToLeft() ? 0 : grip, 0);
    setMask(contentsRect());
  }
};

}  // namespace

QSplitterHandle* Panes::createHandle() {
  return new Edge(this);
}

Panes::Panes(QWidget* goals, QWidget* page, QWidget* details)
    : goals_(goals), page_(page), details_(details), detailsPane_(new QWidget) {
  setChildrenCollapsible(false);
  setHandleWidth(1);
  auto* around = new QVBoxLayout(detailsPane_);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(details_);
  for (QWidget* pane : {goals_, page_, detailsPane_}) addWidget(pane);
  details_->installEventFilter(this);
  setStretchFactor(1, 1);
  setSideWidths(sideWidths_);
  connect(this, &QSplitter::splitterMoved, this, [this](int, int index) { noteWidth(index); });
}

void Panes::setSideWidths(SideWidths widths) {
  if (widths.goals > 0) sideWidths_.goals = widths.goals;
  if (widths.details > 0) sideWidths_.details = widths.details;
  applySideWidths();
}

/// The page gets what the others leave. A splitter would scale widths that do not fill it.
void Panes::applySideWidths() {
  int page = width();
  if (!goals_->isHidden()) page -= sideWidths_.goals + handleWidth();
  if (!detailsPane_->isHidden()) page -= sideWidths_.details + handleWidth();
  setSizes({sideWidths_.goals, std::max(page, 1), sideWidths_.details});
}

/// The user has dragged the grip before the pane of that index. A pane that has the page's room too
/// has no width of its own.
void Panes::noteWidth(int index) {
  if (page_->isHidden()) return;
  if (index == 1) {
    sideWidths_.goals = goals_->width();
  } else {
    sideWidths_.details = detailsPane_->width();
  }
}

void Panes::setGoalsWanted(bool wanted) {
  goalsWanted_ = wanted;
  if (!wanted && front_ == Pane::goals) front_ = Pane::page;
  if (wanted && std::exchange(goalsPreferred_, false)) front_ = Pane::goals;
  arrange();
}

std::vector<Panes::Pane> Panes::panes() const {
  std::vector<Pane> panes;
  if (goalsWanted_) panes.push_back(Pane::goals);
  panes.push_back(Pane::page);
  if (hasDetails()) panes.push_back(Pane::details);
  return panes;
}

QWidget& Panes::widget(Pane pane) const {
  switch (pane) {
    case Pane::goals:
      return *goals_;
    case Pane::page:
      return *page_;
    case Pane::details:
      return *details_;
  }
  return *page_;
}

void Panes::bringToFront(Pane pane) {
  const std::vector<Pane> there = panes();
  if (std::ranges::find(there, pane) != there.end()) front_ = pane;
  arrange();
}

bool Panes::leaveGoals() {
  const bool wasOnlyGoals = page_->isHidden() && front_ == Pane::goals;
  if (front_ == Pane::goals) front_ = Pane::page;
  arrange();
  return wasOnlyGoals;
}

bool Panes::hideGoals() const {
  return goalsWanted_ && goals_->isHidden();
}

bool Panes::eventFilter(QObject* object, QEvent* event) {
  const auto type = event->type();
  if (object == details_ && (type == QEvent::ShowToParent || type == QEvent::HideToParent)) {
    if (type == QEvent::ShowToParent) {
      front_ = Pane::details;
    } else if (front_ == Pane::details) {
      front_ = Pane::page;
    }
    arrange();
  }
  return QSplitter::eventFilter(object, event);
}

void Panes::changeEvent(QEvent* event) {
  QSplitter::changeEvent(event);
  if (event->type() == QEvent::FontChange) arrange();
}

void Panes::showEvent(QShowEvent* event) {
  QSplitter::showEvent(event);
  if (!wasShown_) applySideWidths();
  wasShown_ = true;
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
  const auto hasRoom = [&](int first, int second) {
    return width() >= first + handleWidth() + second;
  };
  const int wanted = page + (goalsWanted_ ? goals + handleWidth() : 0) +
                     (hasDetails() ? details + handleWidth() : 0);
  const bool showAll = width() >= wanted;
  if (showAll) front_ = hasDetails() ? Pane::details : Pane::page;
  const bool isPageInFront = front_ == Pane::page;
  const bool showDetails = hasDetails() && (showAll || front_ == Pane::details ||
                                            (isPageInFront && hasRoom(page, details)));
  const bool showGoals = goalsWanted_ && (showAll || front_ == Pane::goals ||
                                          (isPageInFront && !showDetails && hasRoom(goals, page)));
  const bool showPage =
      showAll || isPageInFront || hasRoom(page, front_ == Pane::goals ? goals : details);
  goals_->setMinimumWidth(std::min(goals, width()));
  page_->setMinimumWidth(std::min(page, width()));
  details_->setMinimumWidth(std::min(details, width()));
  // Show before hiding: a pane that is hidden with the focus must find another one.
  if (showGoals) goals_->show();
  if (showDetails) detailsPane_->show();
  page_->setVisible(showPage);
  if (!showGoals) goals_->hide();
  if (!showDetails) detailsPane_->hide();
  const bool areHidden = hideGoals();
  if (std::exchange(gaveWay_, areHidden) != areHidden) Q_EMIT goalsGaveWay(areHidden);
}

}  // namespace vemra::desk
