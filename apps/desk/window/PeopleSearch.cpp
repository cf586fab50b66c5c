#include "apps/desk/window/PeopleSearch.hpp"

#include "VemraGoalSurface/presentation/GoalWhyPresentation.hpp"
#include "VemraGoalSurface/presentation/PersonName.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <variant>

#include <QElapsedTimer>

namespace vemra::desk {
namespace {

constexpr int sliceMilliseconds = 4;

/// The screen refuses the smallest hop count, so no person with it is shown.
bool hasReason(const GoalWhyDTO& why) {
  const auto* connection = std::get_if<GoalWhyDTO::Connection>(&why.reason);
  return connection == nullptr || connection->hopCount != std::numeric_limits<std::int64_t>::min();
}

}  // namespace

PeopleSearch::PeopleSearch(QObject* parent) : QObject(parent) {
  next_.setSingleShot(true);
  connect(&next_, &QTimer::timeout, this, &PeopleSearch::doSlice);
}

void PeopleSearch::start(const GoalResultSnapshotV1& goal, const QString& text, std::size_t from) {
  stop();
  sought_.emplace(text.toStdString());
  goal_ = goal;
  count_ = sought_->isEmpty() ? 0 : goal.people().size();
  from_ = from < count_ ? from : 0;
  doSlice();
}

void PeopleSearch::stop() {
  next_.stop();
  hits_.clear();
  count_ = searched_ = 0;
  goal_.reset();
}

void PeopleSearch::doSlice() {
  QElapsedTimer timer;
  timer.start();
  const std::size_t before = hits_.size();
  while (!isDone() && (searched_ == 0 || timer.elapsed() < sliceMilliseconds)) {
    const std::size_t index = (from_ + searched_++) % count_;
    if (matches(index)) hits_.push_back(index);
  }
  if (!isDone()) next_.start(0);
  if (isDone() || hits_.size() != before) Q_EMIT changed();
}

bool PeopleSearch::matches(std::size_t index) const {
  const GoalPersonCandidateDTO& person = goal_->people()[index];
  if (sought_->isIn(shownName(person))) return true;
  if (hasReason(person.why) && sought_->isIn(GoalWhyPresentation::text(person.why))) {
    return true;
  }
  const auto outcome = goal_->effectiveOutcome(GoalOutcomeSubjectKind::person, person.personRef);
  return outcome && outcome->note && sought_->isIn(*outcome->note);
}

std::size_t PeopleSearch::position(std::size_t hit) const {
  const auto wrapped =
      std::ranges::find_if(hits_, [&](std::size_t index) { return index < from_; });
  const auto atStart = static_cast<std::size_t>(hits_.end() - wrapped);
  return (hit + atStart) % hits_.size() + 1;
}

}  // namespace vemra::desk
