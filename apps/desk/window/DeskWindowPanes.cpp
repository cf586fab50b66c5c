// The panes of the window: which of them is in front, and where the focus goes.

#include "VemraPlatform/text/Equality.hpp"
#include "VemraQt/PageRows.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/DeskController.hpp"
#include "apps/desk/window/DeskWindow.hpp"
#include "apps/desk/window/FailurePage.hpp"
#include "apps/desk/window/FindPeople.hpp"
#include "apps/desk/window/GoalList.hpp"
#include "apps/desk/window/GoalScreens.hpp"
#include "apps/desk/window/Pages.hpp"
#include "apps/desk/window/Panes.hpp"
#include "apps/desk/window/SidePane.hpp"
#include "apps/desk/window/StorePage.hpp"
#include "apps/desk/window/Welcome.hpp"

#include <algorithm>
#include <utility>

#include <QStackedWidget>

namespace vemra::desk {

void DeskWindow::goToGoals() {
  closeSide();
  panes_->bringToFront(Panes::Pane::goals);
  goals_->focusRow(goals_->openIndex().value_or(0));
}

void DeskWindow::noteOpener() {
  opener_ = {&screen(), screens_->current().placeOfPress()};
  detailsAsked_ = true;
}

/// Uncovers the page for a search in it.
void DeskWindow::showScreen() {
  if (centre_->currentPage() != &screen()) return;
  panes_->bringToFront(Panes::Pane::page);
  if (!find_->bar().isAncestorOf(focusWidget())) focusPage();
}

/// Details that the user asks for are in front, also when they have been there and were covered.
void DeskWindow::bringDetails() {
  if (std::exchange(detailsAsked_, false)) panes_->bringToFront(Panes::Pane::details);
}

void DeskWindow::focusPage() {
  centre_->currentPage()->setFocus(Qt::OtherFocusReason);
}

void DeskWindow::goToGoal(const std::string& goalID) {
  const auto& goals = goals_->goals();
  const auto goal = std::ranges::find_if(
      goals, [&](const GoalListing& listed) { return text::equal(listed.id, goalID); });
  if (goal == goals.end()) return;  // removed since; the details will follow
  const auto index = static_cast<std::size_t>(goal - goals.begin());
  if (index == goals_->openIndex()) {
    if (centre_->isHidden()) closeSide();  // the details fill the window
    focusPage();
    return;
  }
  goals_->choose(index);
  if (goals_->isVisible()) {
    goals_->focusRow(index);
  } else {
    focusPage();
  }
}

void DeskWindow::closeSide() {
  if (controller_) controller_->closeDetails();
}

void DeskWindow::makePanes() {
  goals_ = new GoalList;
  centre_ = new Pages;
  screens_ = std::make_unique<GoalScreens>(*centre_);
  find_ = std::make_unique<FindPeople>(*screens_);
  connect(find_.get(), &FindPeople::screenWanted, this, &DeskWindow::showScreen);
  welcome_ = new Welcome;
  failure_ = new FailurePage;
  storePage_ = new StorePage;
  side_ = new SidePane;
  side_->setEnvironment(screen().environment());
  centre_->addScrolledPage(*welcome_);
  centre_->addScrolledPage(*failure_);
  centre_->addScrolledPage(*storePage_);
  panes_ = new Panes(goals_, centre_, side_);
}

}  // namespace vemra::desk
