#include "tests/VemraQt/WindowHost.hpp"

#include "VemraQt/widgets/ElementWidget.hpp"
#include "tests/RecordBuilders.hpp"
#include "tests/RecordedOutcomes.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"

#include <algorithm>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QWheelEvent>

namespace vemra::qttest {

namespace {

GoalWhyDTO whyOf(std::size_t i) {
  switch (i % 5) {
    case 0:
      return GoalWhyDTO::evidence("Email", "Asked about design leads in March", "ev");
    case 1:
      return GoalWhyDTO::connection(static_cast<std::int64_t>(1 + i % 3));
    case 2:
      return GoalWhyDTO::sharedActivity(4, static_cast<std::int64_t>(i % 7));
    case 3:
      return GoalWhyDTO::nameMatch();
    default:
      return GoalWhyDTO::generic();
  }
}

}  // namespace

Result resultWith(std::size_t people) {
  Result result;
  result.goal.id = "g1";
  result.goal.title = "Find a design lead";
  result.goal.targetPersonRef = "p9";
  std::vector<GoalPersonCandidateDTO> list;
  list.reserve(people);
  for (std::size_t i = 0; i < people; ++i) {
    const std::string number = std::to_string(i);
    list.push_back(build::person("p" + number, std::nullopt, {}, whyOf(i)));
    if (i % 11 != 10) list.back().displayName = "Person Number " + number;
    if (i % 2 == 0) list.back().evidenceIDs = {"ev" + number};
  }
  result.people = std::move(list);
  result.paths = {build::path({"p1", "p9"})};
  result.coverage.sources = {"Mail", "Calendar"};
  result.coverage.evidenceCount = 12;
  result.coverage.latestEvidenceAt = "2025-01-05T10:00:00Z";
  return result;
}

GoalOutcomeDTO correctedOutcome(const std::string& subjectRef, const std::string& note) {
  return build::outcome("o2", GoalOutcomeSubjectKind::person, subjectRef,
                        GoalOutcomeValue::reachedOut, note, "o1");
}

WindowHost::WindowHost(Result newResult, QSize size) : result(std::move(newResult)) {
  ui::Environment environment;
  widget.setEnvironment(environment);
  widget.resize(size);
  show();
  widget.show();
  activate(widget);
}

GoalResultView WindowHost::view() {
  return GoalResultView(
      GoalResultSnapshotV1(result), [this](const std::string& ref) { note("open " + ref); },
      [this](const std::string& id) { note("evidence " + id); },
      [this](const GoalPathCandidateDTO&) { note("focus"); },
      [this](const GoalOutcomeRecordingInput& input) {
        note("record " + input.subjectRef().value_or("nil") + " " +
             std::string(caseName(input.outcome())) + " " + input.note().value_or("nil") + " " +
             input.correctsOutcomeID().value_or("nil"));
        append(result, input);
        show();
      });
}

void WindowHost::note(const std::string& entry) {
  log.push_back(entry);
  if (onLog) onLog(entry);
}

void WindowHost::change(const std::function<void(Result&)>& edit) {
  edit(result);
  show();
}

void WindowHost::changePeople(const std::function<void(People&)>& edit) {
  change([&](Result& changed) {
    People people(changed.people.begin(), changed.people.end());
    edit(people);
    changed.people = std::move(people);
  });
}

void WindowHost::erasePerson(std::size_t index) {
  changePeople([&](People& people) { people.erase(people.begin() + static_cast<long>(index)); });
}

QWidget* WindowHost::find(const std::string& identifier) const {
  const QString name = QString::fromStdString(identifier);
  for (QWidget* child : widget.viewport()->findChildren<QWidget*>(name)) {
    auto* shown = dynamic_cast<qt::ElementWidget*>(child);
    if (shown && shown->node()) return child;
  }
  return nullptr;
}

void WindowHost::press(const std::string& identifier) const {
  get<QAbstractButton>(identifier).click();
}

std::vector<std::string> WindowHost::visibleTexts() const {
  struct Found {
    int y, x;
    std::string text;
  };
  std::vector<Found> found;
  for (QWidget* child : widget.viewport()->findChildren<QWidget*>()) {
    auto* shown = dynamic_cast<qt::ElementWidget*>(child);
    if (!shown || !shown->node() || child->visibleRegion().isEmpty()) continue;
    QString text;
    if (auto* label = qobject_cast<QLabel*>(child)) text = label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(child)) text = button->text();
    found.push_back({child->y(), child->x(), text.toStdString()});
  }
  std::ranges::sort(found, {}, [](const Found& f) { return std::pair(f.y, f.x); });
  std::vector<std::string> texts;
  for (Found& f : found) texts.push_back(std::move(f.text));
  return texts;
}

std::optional<QPoint> seenPoint(const QWidget& widget) {
  const QRegion seen = widget.visibleRegion();
  if (seen.isEmpty()) return std::nullopt;
  return seen.begin()->center();
}

void wheel(QWidget& over, int notches) {
  // Like the window system: from the widget under the mouse upwards until one accepts the event.
  for (QWidget* widget = &over; widget; widget = widget->parentWidget()) {
    const QPointF middle = widget->rect().center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), QPoint(), QPoint(0, notches * 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
    if (event.isAccepted()) return;
  }
}

}  // namespace vemra::qttest
