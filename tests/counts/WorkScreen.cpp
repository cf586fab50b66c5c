#include "tests/counts/WorkScreen.hpp"

#include "benchmarks/data/SampleResult.hpp"
#include "tests/Allocations.hpp"
#include "tests/VemraQt/Accessibility.hpp"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>

namespace vemra::work {

namespace {

/// People who repeat every ten, without outcomes: the last rows look like those of a shorter list.
qttest::Result resultOf(std::size_t people) {
  qttest::Result result = bench::sampleResult({.people = people});
  result.outcomes = {};
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
  return host_->get<QLineEdit>(bench::identifierOf(person, "outcome.note"));
}

void WorkScreen::scrollToEnd() {
  QScrollBar& bar = *host_->widget.verticalScrollBar();
  bar.setValue(bar.maximum());
}

void WorkScreen::scrollTo(int position) {
  host_->widget.verticalScrollBar()->setValue(position);
}

bool WorkScreen::has(const std::string& identifier) {
  return qttest::accessible(*host_, identifier) != nullptr;
}

void WorkScreen::wheelDown() {
  qttest::wheel(*host_->widget.viewport(), -1);
}

void WorkScreen::recordOutcome(std::size_t person) {
  host_->result = bench::withOneOutcomeMore(host_->result, person);
}

}  // namespace vemra::work
