#include "apps/desk/window/SidePane.hpp"

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraGoalSurface/presentation/GoalWhyPresentation.hpp"
#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "apps/desk/window/FocusRing.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

#include <QApplication>
#include <QHBoxLayout>
#include <QLocale>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace vemra::desk {
namespace {

constexpr const char* unnamed = "Unnamed person";
constexpr int belowEntry = 6;

/// The reason in the words of the screen. The smallest hop count, which would stop the screen, is
/// no reason to stop here.
QString reason(const GoalWhyDTO& why) {
  const auto* connection = std::get_if<GoalWhyDTO::Connection>(&why.reason);
  if (connection != nullptr && connection->hopCount == std::numeric_limits<std::int64_t>::min()) {
    return localized("Connected");
  }
  return fromUTF8(GoalWhyPresentation::text(why));
}

QString nameOf(const std::optional<std::string>& name) {
  return name && !name->empty() ? fromUTF8(*name) : QString(unnamed);
}

QString day(const std::optional<std::string>& time, const ui::Environment& environment) {
  if (!time) return {};
  const auto instant = date::parseInternetDateTime(*time);
  if (!instant) return {};
  return fromUTF8(date::abbreviatedDate(*instant, environment.locale, environment.timeZone));
}

/// The name of a source: the kind of its first statement, such as "Email".
QString sourceName(const EvidenceKnowledge& evidence) {
  for (const EvidenceKnowledge::Statement& statement : evidence.statements) {
    QString label = fromUTF8(statement.label).simplified();
    if (!label.isEmpty()) return label;
  }
  return localized("Unnamed source");
}

}  // namespace

SidePane::SidePane(QWidget* parent) : QScrollArea(parent) {
  setObjectName("desk.side");
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  setMinimumWidth(220);
  announcement_ = new Announcement(this);
  hide();
}

SidePane::Reading SidePane::reading() const {
  const QWidget* focus = window()->focusWidget();
  return {PaneReading(*widget()), verticalScrollBar()->value(), focus && isAncestorOf(focus)};
}

QVBoxLayout* SidePane::begin(const QString& kind, const QString& title, const QString& subject) {
  const QString what = kind + '\n' + subject;
  reading_.reset();
  if (std::exchange(subject_, what) == what && !isHidden()) reading_ = reading();
  auto* content = new QWidget;
  auto* page = new QVBoxLayout(content);
  page->setContentsMargins(18 - besideTexts, 14, 14 - besideTexts, 18);
  page->setSpacing(4);
  auto* head = new QHBoxLayout;
  QLabel* kindLabel = makeLabel(kind, TextRole::quiet);
  kindLabel->setContentsMargins(besideTexts, 0, besideTexts, 0);
  head->addWidget(kindLabel, 1);
  auto* close = new QuietButton(localized("Close"));
  close->setObjectName("desk.side.close");
  connect(close, &QToolButton::clicked, this, &SidePane::closed);
  head->addWidget(close);
  page->addLayout(head);
  addText(*page, title, TextRole::title);
  setAccessibleName(kind + ": " + isolated(firstPiece(title)));
  return page;
}

void SidePane::end(QVBoxLayout* page) {
  page->addStretch(1);
  QWidget* const content = page->parentWidget();
  // Restore before the content is shown: widgets added later would be shown and measured later.
  QWidget* focus = reading_ ? reading_->ofContent.restore(*content) : nullptr;
  setWidget(content);  // replaces the previous content
  content->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
  if (!reading_) announcement_->announce(accessibleName());
  show();
  if (!reading_) return;
  content->layout()->activate();
  QEvent measured(QEvent::LayoutRequest);
  QApplication::sendEvent(this, &measured);
  verticalScrollBar()->setValue(reading_->scroll);
  if (reading_->hasFocus && (!focus || focus->isHidden())) {
    focus = content->findChild<QToolButton*>("desk.side.close");
  }
  if (focus) focus->setFocus(Qt::OtherFocusReason);
  reading_.reset();
}

template <class Add>
void SidePane::section(QVBoxLayout* page, const QString& heading, const QString& what,
                       std::size_t count, Add add) {
  if (count == 0) return;
  page->addSpacing(14);
  addText(*page, heading, TextRole::heading);
  Pieces* pieces = addEntries(*page, what, count, std::move(add));
  if (pieces) pieces->setKey(heading);
}

void SidePane::addGoal(QVBoxLayout& page, const GoalListing& goal, TextRole role) {
  addLink(page, GoalRow::nameOf(fromUTF8(goal.title)), role,
          [this, id = goal.id] { Q_EMIT goalWanted(id); });
}

void SidePane::addSuggestion(QVBoxLayout& page, const PersonKnowledge& person,
                             const PersonKnowledge::Suggestion& suggestion) {
  addGoal(page, suggestion.goal, TextRole::strong);
  if (suggestion.displayName && fromUTF8(*suggestion.displayName) != nameOf(person.name)) {
    addText(page, localized("As %1").arg(isolated(fromUTF8(*suggestion.displayName))),
            TextRole::quiet);
  }
  addText(page, reason(suggestion.why), TextRole::body);
  if (const std::size_t sources = suggestion.evidenceIDs.size(); sources > 0) {
    const QLocale locale(fromUTF8(environment_.locale));
    const QString number = locale.toString(static_cast<qulonglong>(sources));
    addText(page, localized("Sources: %1").arg(number), TextRole::quiet);
  }
  page.addSpacing(belowEntry);
}

void SidePane::addOutcome(QVBoxLayout& page, const PersonKnowledge::Outcome& recorded) {
  const GoalOutcomeDTO& outcome = recorded.outcome;
  QString line = isolated(fromUTF8(GoalOutcomeRecordingFormLogic::label(outcome.value)));
  if (const QString when = day(outcome.recordedAt, environment_); !when.isEmpty()) {
    line += ", " + isolated(when);
  }
  if (outcome.correctsOutcomeID) line += ' ' + localized("· corrected");
  addText(page, line, TextRole::strong);
  if (outcome.note) addText(page, fromUTF8(*outcome.note), TextRole::body);
  addGoal(page, recorded.goal, TextRole::body);
  page.addSpacing(belowEntry);
}

void SidePane::addPerson(QVBoxLayout& page, const EvidenceKnowledge::Person& person) {
  addLink(page, nameOf(person.displayName), TextRole::strong,
          [this, ref = person.personRef] { Q_EMIT personWanted(ref); });
  addText(page, reason(person.why), TextRole::body);
  addText(page,
          person.rank == 0 ? localized("The strongest source for them")
                           : localized("One of several sources"),
          TextRole::quiet);
  addGoal(page, person.goal, TextRole::body);
  page.addSpacing(belowEntry);
}

/// What is shown is shared, because pieces that are opened later are made from it.
void SidePane::showPerson(PersonKnowledge known) {
  const auto person = std::make_shared<const PersonKnowledge>(std::move(known));
  QVBoxLayout* page = begin(localized("Person"), nameOf(person->name), fromUTF8(person->personRef));
  section(page, localized("Worth considering for"), localized("the goals"),
          person->suggestions.size(), [this, person](QVBoxLayout& column, std::size_t i) {
            addSuggestion(column, *person, person->suggestions[i]);
          });
  section(page, localized("The person to reach for"), localized("the goals"),
          person->goalsTowards.size(), [this, person](QVBoxLayout& column, std::size_t i) {
            addGoal(column, person->goalsTowards[i], TextRole::body);
          });
  section(page, localized("On a path for"), localized("the goals"), person->goalsWithPaths.size(),
          [this, person](QVBoxLayout& column, std::size_t i) {
            addGoal(column, person->goalsWithPaths[i], TextRole::body);
          });
  section(page, localized("Recorded"), localized("the outcomes"), person->outcomes.size(),
          [this, person](QVBoxLayout& column, std::size_t i) {
            addOutcome(column, person->outcomes[i]);
          });
  const bool isEmpty = person->suggestions.empty() && person->goalsTowards.empty() &&
                       person->goalsWithPaths.empty() && person->outcomes.empty();
  if (isEmpty) {
    addText(*page, localized("The store holds nothing more about this person."), TextRole::body);
  }
  end(page);
}

void SidePane::showEvidence(EvidenceKnowledge known) {
  const auto evidence = std::make_shared<const EvidenceKnowledge>(std::move(known));
  QVBoxLayout* page =
      begin(localized("Source"), sourceName(*evidence), fromUTF8(evidence->evidenceID));
  section(page, localized("What it says"), localized("the statements"), evidence->statements.size(),
          [this, evidence](QVBoxLayout& column, std::size_t i) {
            const EvidenceKnowledge::Statement& statement = evidence->statements[i];
            addText(column, fromUTF8(statement.label), TextRole::strong);
            addText(column, fromUTF8(statement.detail), TextRole::body);
            addGoal(column, statement.goal, TextRole::body);
            column.addSpacing(belowEntry);
          });
  section(page, localized("Whom it speaks for"), localized("the people"), evidence->people.size(),
          [this, evidence](QVBoxLayout& column, std::size_t i) {
            addPerson(column, evidence->people[i]);
          });
  if (evidence->statements.empty() && evidence->people.empty()) {
    addText(*page, localized("The store holds nothing more about this source."), TextRole::body);
  }
  end(page);
}

void SidePane::showPath(const GoalPathCandidateDTO& path,
                        const std::vector<std::optional<std::string>>& names) {
  std::vector<QString> shown;
  for (std::size_t i = 0; i < path.personRefs.size(); ++i) {
    const auto& name = i < names.size() ? names[i] : std::nullopt;
    shown.push_back(nameOf(name));
  }
  const QString target = shown.empty() ? localized("Nobody") : shown.back();
  QStringList refs;
  for (const std::string& ref : path.personRefs) refs.append(fromUTF8(ref));
  QVBoxLayout* page =
      begin("Starfold", localized("Path to %1").arg(isolated(target)), refs.join('\n'));
  addText(*page, reason(path.why), TextRole::quiet);
  page->addSpacing(12);
  if (shown.size() <= mostEntriesAtOnce) {
    page->addWidget(new PathGraph(std::move(shown)));
  } else {
    page->addWidget(new Pieces(
        localized("the path"),
        [shown = std::move(shown), next = std::size_t{0}](QVBoxLayout& pieces) mutable {
          const std::size_t end = std::min(shown.size(), next + mostEntriesAtOnce);
          pieces.addWidget(new PathGraph({shown.begin() + static_cast<std::ptrdiff_t>(next),
                                          shown.begin() + static_cast<std::ptrdiff_t>(end)},
                                         shown.back(),
                                         end == shown.size() ? PathEnd::here : PathEnd::later));
          next = end;
          return next < shown.size();
        }));
  }
  end(page);
}

}  // namespace vemra::desk
