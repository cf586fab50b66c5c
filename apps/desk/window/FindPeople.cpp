#include "apps/desk/window/FindPeople.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/FoundMark.hpp"
#include "apps/desk/window/GoalScreens.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <utility>

namespace vemra::desk {
namespace {

/// The list of the people: the only one with so many rows that are requested by range.
ui::NodeID listUnder(const ui::Node& node, std::size_t count) {
  if (node.element.kind() == ui::ElementKind::forEach) {
    return node.element.rowCount() == count ? node.id : ui::NodeID();
  }
  for (const ui::Node* child : node.children) {
    if (const ui::NodeID list = listUnder(*child, count)) return list;
  }
  return {};
}

}  // namespace

FindPeople::FindPeople(GoalScreens& screens, QObject* parent)
    : QObject(parent), screens_(screens), bar_(new FindBar) {
  connect(bar_, &FindBar::textChanged, this, [this] {
    search(row_);
    bar_->setHasHit(hit_.has_value());
  });
  connect(bar_, &FindBar::nextWanted, this, &FindPeople::next);
  connect(bar_, &FindBar::previousWanted, this, &FindPeople::previous);
  connect(bar_, &FindBar::hitWanted, this, &FindPeople::goToHit);
  connect(bar_, &FindBar::closeWanted, this, &FindPeople::close);
  connect(&search_, &PeopleSearch::changed, this, [this] {
    if (!hit_ && !search_.hits().empty()) show(0);
    showResult();
  });
}

ui::NodeID FindPeople::list() const {
  const LoadedGoal* goal = screens_.currentGoal();
  const ui::Node* root = screens_.current().graph().root();
  return goal && root ? listUnder(*root, goal->snapshot.people().size()) : ui::NodeID();
}

/// Whether a screen is shown, after another pane that covers it has given way.
bool FindPeople::hasScreen() {
  if (!screens_.currentGoal()) return false;
  if (!screens_.current().isVisible()) Q_EMIT screenWanted();
  return screens_.current().isVisible();
}

void FindPeople::open() {
  if (!hasScreen()) return;
  const LoadedGoal* goal = screens_.currentGoal();
  if (!origin_) {
    QWidget* focus = bar_->window()->focusWidget();
    origin_ = Origin{goal->id, qt::readingPlace(screens_.current()), focus};
    row_ = qt::rowAtTop(screens_.current(), list()).value_or(0);
    bar_->open();
    bar_->expectNews();
    search(row_);
  } else {
    bar_->open();
    bar_->expectNews();
    showResult();
  }
}

void FindPeople::search(std::size_t from) {
  hit_.reset();
  delete mark_;
  search_.stop();
  const LoadedGoal* goal = screens_.currentGoal();
  if (goal && origin_ && !bar_->text().isEmpty()) {
    search_.start(goal->snapshot, bar_->text(), from);
  }
  showResult();
}

void FindPeople::step(int by) {
  if (!origin_) {
    open();
    return;
  }
  const std::size_t count = search_.hits().size();
  if (!hit_ || !hasScreen()) return;
  bar_->expectNews();
  if (by > 0 && *hit_ + 1 < count) {
    show(*hit_ + 1);
  } else if (by < 0 && *hit_ > 0) {
    show(*hit_ - 1);
  } else if (search_.isDone()) {  // otherwise the neighbour is not found yet
    show(by > 0 ? 0 : count - 1);
  }
  showResult();
}

void FindPeople::show(std::size_t hit) {
  hit_ = hit;
  row_ = search_.hits()[hit];
  const ui::NodeID people = list();
  if (!std::exchange(keepsPlace_, false)) qt::revealRow(screens_.current(), people, row_);
  delete mark_;
  mark_ = new FoundMark(screens_.current(), people, row_);
}

void FindPeople::showResult() {
  // During a search the buttons stay as they are: each change of the store starts one. Another text
  // disables them until its first hit.
  const bool isSearching = !bar_->text().isEmpty() && !search_.isDone();
  if (hit_ || !isSearching) bar_->setHasHit(hit_.has_value());
  if (bar_->text().isEmpty()) {
    bar_->setResult({}, {});
  } else if (!search_.isDone()) {
    bar_->setResult(localized("Searching…"), {});
  } else if (!hit_) {
    const QString nothing = localized("Not found");
    bar_->setResult(nothing, nothing);
  } else {
    const QString place =
        localized("%1 of %2")
            .arg(localizedNumber(search_.position(*hit_)), localizedNumber(search_.hits().size()));
    bar_->setResult(place, localized("%1: %2").arg(place, nameOfHit()));
  }
}

QString FindPeople::nameOfHit() const {
  const LoadedGoal* goal = screens_.currentGoal();
  if (!goal || row_ >= goal->snapshot.people().size()) return {};
  const GoalPersonCandidateDTO& person = goal->snapshot.people()[row_];
  return nameInMessage(fromUTF8(person.displayName.value_or(person.personRef)));
}

void FindPeople::goToHit() {
  if (!hit_ || !hasScreen()) return;
  const ui::NodeID people = list();
  hideBar();
  qt::focusRow(screens_.current(), people, row_);
}

void FindPeople::hideBar() {
  origin_.reset();
  hit_.reset();
  search_.stop();
  delete mark_;
  bar_->hide();
}

bool FindPeople::close() {
  if (!origin_) return false;
  const Origin origin = *origin_;
  hideBar();
  const bool wasInPage = origin.place.focus.value != 0;
  if (origin.focus && !wasInPage) origin.focus->setFocus(Qt::OtherFocusReason);
  qt::ViewWidget& screen = screens_.current();
  qt::returnTo(screen, origin.place);
  // The control may have gone meanwhile.
  if (wasInPage && !screen.isAncestorOf(screen.window()->focusWidget())) screen.setFocus();
  return true;
}

void FindPeople::screenChanged() {
  if (!origin_) return;
  const LoadedGoal* goal = screens_.currentGoal();
  const bool isShown = goal && !screens_.current().isHidden();  // another pane may cover it
  if (!isShown || !text::equal(goal->id, origin_->goalID)) {
    hideBar();
    return;
  }
  keepsPlace_ = true;
  search(row_);
  keepsPlace_ = keepsPlace_ && !search_.isDone();
}

}  // namespace vemra::desk
