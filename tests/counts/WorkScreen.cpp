#include "tests/counts/WorkScreen.hpp"

#include "tests/Allocations.hpp"

#include <vector>

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>

namespace vemra::work {

namespace {

std::string numbered(std::size_t number) {
  const std::string digits = std::to_string(number);
  return std::string(6 - digits.size(), '0') + digits;
}

GoalWhyDTO reasonOf(std::size_t person) {
  switch (person % 5) {
    case 0:
      return GoalWhyDTO::evidence("Email", "Asked about design leads in March", "ev");
    case 1:
      return GoalWhyDTO::connection(3);
    case 2:
      return GoalWhyDTO::sharedActivity(4, 2);
    case 3:
      return GoalWhyDTO::nameMatch();
    default:
      return GoalWhyDTO::generic();
  }
}

qttest::Result resultOf(std::size_t people) {
  qttest::Result result;
  result.goal.title = "Find a design lead";
  result.goal.targetPersonRef = WorkScreen::reference(9);
  std::vector<GoalPersonCandidateDTO> list;
  list.reserve(people);
  for (std::size_t i = 0; i < people; ++i) {
    GoalPersonCandidateDTO person;
    person.personRef = WorkScreen::reference(i);
    person.displayName = "Person Number " + numbered(i);
    person.why = reasonOf(i);
    if (i % 2 == 0) person.evidenceIDs = {"ev" + numbered(i)};
    list.push_back(std::move(person));
  }
  result.people = std::move(list);
  result.coverage.sources = {"Mail", "Calendar"};
  result.coverage.evidenceCount = 12;
  return result;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Work& work) {
  return out << work.rowsDescribed << " rows and " << work.bodiesDescribed << " bodies described, "
             << work.nodesMade << " nodes, " << work.patches << " patches, " << work.idPasses
             << " passes over ids, " << work.allocations << " allocations; " << work.widgetsAlive
             << " widgets alive";
}

WorkScreen::WorkScreen(std::size_t people)
    : host_(std::make_unique<qttest::WindowHost>(resultOf(people))) {
  QApplication::processEvents();
}

Work WorkScreen::costSoFar() const {
  const ui::WorkCount& done = host_->widget.graph().work();
  return {.rowsDescribed = done.rows,
          .bodiesDescribed = done.bodies,
          .nodesMade = done.nodes,
          .patches = done.patches,
          .idPasses = done.idPasses,
          .allocations = testing::allocations(),
          .widgetsAlive = host_->widget.widgetCount()};
}

Work WorkScreen::costOf(const std::function<void()>& action) {
  QApplication::processEvents();
  const Work before = costSoFar();
  action();
  QApplication::processEvents();
  const Work after = costSoFar();
  return {.rowsDescribed = after.rowsDescribed - before.rowsDescribed,
          .bodiesDescribed = after.bodiesDescribed - before.bodiesDescribed,
          .nodesMade = after.nodesMade - before.nodesMade,
          .patches = after.patches - before.patches,
          .idPasses = after.idPasses - before.idPasses,
          .allocations = after.allocations - before.allocations,
          .widgetsAlive = after.widgetsAlive};
}

QLineEdit& WorkScreen::noteOf(std::size_t person) {
  return host_->get<QLineEdit>(identifierOf(person, "outcome.note"));
}

void WorkScreen::scrollToEnd() {
  QScrollBar& bar = *host_->widget.verticalScrollBar();
  bar.setValue(bar.maximum());
}

void WorkScreen::wheelDown() {
  qttest::wheel(*host_->widget.viewport(), -1);
}

void WorkScreen::recordOutcome(std::size_t person) {
  std::vector<GoalOutcomeDTO> outcomes(host_->result.outcomes.begin(),
                                       host_->result.outcomes.end());
  GoalOutcomeDTO outcome;
  outcome.id = "o" + std::to_string(outcomes.size() + 1);
  outcome.subjectRef = reference(person);
  outcome.value = allGoalOutcomeValues.at(outcomes.size() % allGoalOutcomeValues.size());
  outcomes.push_back(std::move(outcome));
  host_->result.outcomes = std::move(outcomes);
}

std::string WorkScreen::reference(std::size_t person) {
  return "p" + numbered(person);
}

std::string WorkScreen::identifierOf(std::size_t person, const std::string& control) {
  return "vemra.goal.person." + reference(person) + "." + control;
}

}  // namespace vemra::work
