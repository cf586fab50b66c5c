#include "apps/desk/window/SidePane.hpp"

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraGoalSurface/presentation/GoalWhyPresentation.hpp"
#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <limits>

#include <QAccessible>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace vemra::desk {
namespace {

constexpr const char* unnamed = "Unnamed person";

/// The reason in the screen's words. A count that the screen stops at is no reason to stop here.
QString reason(const GoalWhyDTO& why) {
  const auto* connection = std::get_if<GoalWhyDTO::Connection>(&why.reason);
  if (connection != nullptr && connection->hopCount == std::numeric_limits<std::int64_t>::min()) {
    return "Connected";
  }
  return fromUTF8(GoalWhyPresentation::text(why));
}

QString nameOr(const std::optional<std::string>& name, const QString& otherwise) {
  return name ? fromUTF8(*name) : otherwise;
}

QString day(const std::optional<std::string>& time, const ui::Environment& environment) {
  if (!time) return {};
  const auto instant = date::parseInternetDateTime(*time);
  if (!instant) return {};
  return fromUTF8(date::abbreviatedDate(*instant, environment.locale, environment.timeZone));
}

void add(QVBoxLayout* page, const QString& text, TextRole role) {
  if (!text.isEmpty()) page->addWidget(makeLabel(text, role));
}

}  // namespace

SidePane::SidePane(QWidget* parent) : QScrollArea(parent) {
  setObjectName("desk.side");
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  setMinimumWidth(220);
  hide();
}

QVBoxLayout* SidePane::begin(const QString& kind, const QString& title) {
  auto* content = new QWidget;
  auto* page = new QVBoxLayout(content);
  page->setContentsMargins(18, 14, 14, 18);
  page->setSpacing(4);
  auto* head = new QHBoxLayout;
  head->addWidget(makeLabel(kind, TextRole::quiet), 1);
  auto* close = new QToolButton;
  close->setObjectName("desk.side.close");
  close->setText("Close");
  close->setAutoRaise(true);
  close->setFocusPolicy(Qt::StrongFocus);
  connect(close, &QToolButton::clicked, this, &SidePane::closed);
  head->addWidget(close);
  page->addLayout(head);
  page->addWidget(makeLabel(title, TextRole::title));
  setWidget(content);  // takes the place of what was there
  content->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
  setAccessibleName(kind + ": " + title);
  return page;
}

void SidePane::end() {
  static_cast<QVBoxLayout*>(widget()->layout())->addStretch(1);
  show();
}

void SidePane::section(QVBoxLayout* page, const QString& heading) {
  page->addSpacing(14);
  page->addWidget(makeLabel(heading, TextRole::heading));
}

void SidePane::showPerson(const PersonKnowledge& person) {
  const QString name = nameOr(person.name, unnamed);
  QVBoxLayout* page = begin("Person", name);
  add(page, "Reference: " + fromUTF8(person.personRef), TextRole::quiet);
  if (!person.suggestions.empty()) section(page, "Worth considering for");
  for (const auto& suggestion : person.suggestions) {
    add(page, fromUTF8(suggestion.goalTitle), TextRole::strong);
    if (suggestion.displayName && fromUTF8(*suggestion.displayName) != name) {
      add(page, "As " + fromUTF8(*suggestion.displayName), TextRole::quiet);
    }
    add(page, reason(suggestion.why), TextRole::body);
    QStringList sources;
    for (const std::string& id : suggestion.evidenceIDs) sources.append(fromUTF8(id));
    if (!sources.isEmpty()) add(page, "Sources: " + sources.join(", "), TextRole::quiet);
    page->addSpacing(6);
  }
  if (!person.goalsTowards.empty()) section(page, "The person to reach for");
  for (const std::string& title : person.goalsTowards) add(page, fromUTF8(title), TextRole::body);
  if (!person.goalsWithPaths.empty()) section(page, "On a path for");
  for (const std::string& title : person.goalsWithPaths) add(page, fromUTF8(title), TextRole::body);
  if (!person.outcomes.empty()) section(page, "Recorded");
  for (const auto& [goalTitle, outcome] : person.outcomes) {
    QString line = fromUTF8(GoalOutcomeRecordingFormLogic::label(outcome.value));
    if (const QString when = day(outcome.recordedAt, environment_); !when.isEmpty()) {
      line += ", " + when;
    }
    if (outcome.correctsOutcomeID) line += " · corrected";
    add(page, line, TextRole::strong);
    if (outcome.note) add(page, fromUTF8(*outcome.note), TextRole::body);
    add(page, fromUTF8(goalTitle), TextRole::quiet);
    page->addSpacing(6);
  }
  end();
}

void SidePane::showEvidence(const EvidenceKnowledge& evidence) {
  QVBoxLayout* page = begin("Source", fromUTF8(evidence.evidenceID));
  if (!evidence.statements.empty()) section(page, "What it says");
  for (const auto& statement : evidence.statements) {
    add(page, fromUTF8(statement.label), TextRole::strong);
    add(page, fromUTF8(statement.detail), TextRole::body);
    add(page, fromUTF8(statement.goalTitle), TextRole::quiet);
    page->addSpacing(6);
  }
  if (!evidence.people.empty()) section(page, "Whom it speaks for");
  for (const auto& person : evidence.people) {
    add(page, nameOr(person.displayName, unnamed), TextRole::strong);
    add(page, reason(person.why), TextRole::body);
    add(page, person.rank == 0 ? "The strongest source for them" : "One of several sources",
        TextRole::body);
    add(page, fromUTF8(person.goalTitle), TextRole::quiet);
    page->addSpacing(6);
  }
  if (evidence.statements.empty() && evidence.people.empty()) {
    add(page, "The store holds nothing more about this source.", TextRole::body);
  }
  end();
}

void SidePane::showPath(const GoalPathCandidateDTO& path,
                        const std::vector<std::optional<std::string>>& names) {
  std::vector<QString> shown;
  for (std::size_t i = 0; i < path.personRefs.size(); ++i) {
    const auto& name = i < names.size() ? names[i] : std::nullopt;
    shown.push_back(nameOr(name, fromUTF8(path.personRefs[i])));
  }
  const QString target = shown.empty() ? QString("Nobody") : shown.back();
  QVBoxLayout* page = begin("Starfold", "Path to " + target);
  add(page, reason(path.why), TextRole::quiet);
  page->addSpacing(12);
  page->addWidget(new PathGraph(std::move(shown)));
  end();
}

}  // namespace vemra::desk
