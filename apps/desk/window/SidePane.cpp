#include "apps/desk/window/SidePane.hpp"

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraGoalSurface/presentation/GoalWhyPresentation.hpp"
#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "apps/desk/window/KeyInView.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace vemra::desk {
namespace {

constexpr const char* unnamed = "Unnamed person";

/// The reason in the words of the screen. The smallest hop count, which would stop the screen, is
/// no reason to stop here.
QString reason(const GoalWhyDTO& why) {
  const auto* connection = std::get_if<GoalWhyDTO::Connection>(&why.reason);
  if (connection != nullptr && connection->hopCount == std::numeric_limits<std::int64_t>::min()) {
    return localized("Connected");
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

/// Adds the sources of a reason; at once only as many as fit on a few lines.
void addSources(QVBoxLayout& page, const std::shared_ptr<const std::vector<std::string>>& ids) {
  constexpr std::size_t mostAtOnce = 50;
  const auto line = [](const std::vector<std::string>& all, std::size_t first, std::size_t last) {
    QStringList some;
    for (std::size_t i = first; i < last; ++i) some.append(fromUTF8(all[i]));
    return some.join(", ");
  };
  if (ids->empty()) return;
  if (ids->size() <= mostAtOnce) {
    addText(page, localized("Sources: %1").arg(line(*ids, 0, ids->size())), TextRole::quiet);
    return;
  }
  auto* sources = new Pieces(
      localized("the sources"), [ids, line, next = std::size_t{0}](QVBoxLayout& pieces) mutable {
        const std::size_t end = std::min(ids->size(), next + mostAtOnce);
        const QString some = line(*ids, next, end);
        addText(pieces, next == 0 ? localized("Sources: %1").arg(some) : some, TextRole::quiet);
        next = end;
        return next < ids->size();
      });
  sources->setKey("the sources\n" + line(*ids, 0, mostAtOnce));
  page.addWidget(sources);
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
  page->setContentsMargins(18, 14, 14, 18);
  page->setSpacing(4);
  auto* head = new QHBoxLayout;
  head->addWidget(makeLabel(kind, TextRole::quiet), 1);
  auto* close = new QToolButton;
  close->setObjectName("desk.side.close");
  close->setText(localized("Close"));
  close->setAutoRaise(true);
  close->setFocusPolicy(Qt::StrongFocus);
  scrollInBeforeKeys(*close);
  connect(close, &QToolButton::clicked, this, &SidePane::closed);
  head->addWidget(close);
  page->addLayout(head);
  addText(*page, title, TextRole::title);
  setAccessibleName(kind + ": " + firstPiece(title));
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
  page->addWidget(makeLabel(heading, TextRole::heading));
  Pieces* pieces = addEntries(*page, what, count, std::move(add));
  if (pieces) pieces->setKey(heading);
}

/// `person` is shared, because pieces that are opened later are made from it.
void SidePane::addSuggestion(QVBoxLayout& page,
                             const std::shared_ptr<const PersonKnowledge>& person,
                             std::size_t index) {
  const PersonKnowledge::Suggestion& suggestion = person->suggestions[index];
  const QString name = nameOr(person->name, unnamed);
  addText(page, fromUTF8(suggestion.goalTitle), TextRole::strong);
  if (suggestion.displayName && fromUTF8(*suggestion.displayName) != name) {
    addText(page, localized("As %1").arg(fromUTF8(*suggestion.displayName)), TextRole::quiet);
  }
  addText(page, reason(suggestion.why), TextRole::body);
  addSources(page, {person, &suggestion.evidenceIDs});
  page.addSpacing(6);
}

void SidePane::addOutcome(QVBoxLayout& page, const PersonKnowledge::Outcome& recorded) const {
  const GoalOutcomeDTO& outcome = recorded.outcome;
  QString line = isolated(fromUTF8(GoalOutcomeRecordingFormLogic::label(outcome.value)));
  if (const QString when = day(outcome.recordedAt, environment_); !when.isEmpty()) {
    line += ", " + isolated(when);
  }
  if (outcome.correctsOutcomeID) line += ' ' + localized("· corrected");
  addText(page, line, TextRole::strong);
  if (outcome.note) addText(page, fromUTF8(*outcome.note), TextRole::body);
  addText(page, fromUTF8(recorded.goalTitle), TextRole::quiet);
  page.addSpacing(6);
}

void SidePane::showPerson(PersonKnowledge known) {
  const auto person = std::make_shared<const PersonKnowledge>(std::move(known));
  QVBoxLayout* page =
      begin(localized("Person"), nameOr(person->name, unnamed), fromUTF8(person->personRef));
  addText(*page, localized("Reference: %1").arg(fromUTF8(person->personRef)), TextRole::quiet);
  section(page, localized("Worth considering for"), localized("the goals"),
          person->suggestions.size(),
          [person](QVBoxLayout& column, std::size_t i) { addSuggestion(column, person, i); });
  section(page, localized("The person to reach for"), localized("the goals"),
          person->goalsTowards.size(), [person](QVBoxLayout& column, std::size_t i) {
            addText(column, fromUTF8(person->goalsTowards[i]), TextRole::body);
          });
  section(page, localized("On a path for"), localized("the goals"), person->goalsWithPaths.size(),
          [person](QVBoxLayout& column, std::size_t i) {
            addText(column, fromUTF8(person->goalsWithPaths[i]), TextRole::body);
          });
  section(page, localized("Recorded"), localized("the outcomes"), person->outcomes.size(),
          [this, person](QVBoxLayout& column, std::size_t i) {
            addOutcome(column, person->outcomes[i]);
          });
  end(page);
}

void SidePane::showEvidence(EvidenceKnowledge known) {
  const auto evidence = std::make_shared<const EvidenceKnowledge>(std::move(known));
  QVBoxLayout* page =
      begin(localized("Source"), fromUTF8(evidence->evidenceID), fromUTF8(evidence->evidenceID));
  section(page, localized("What it says"), localized("the statements"), evidence->statements.size(),
          [evidence](QVBoxLayout& column, std::size_t i) {
            const EvidenceKnowledge::Statement& statement = evidence->statements[i];
            addText(column, fromUTF8(statement.label), TextRole::strong);
            addText(column, fromUTF8(statement.detail), TextRole::body);
            addText(column, fromUTF8(statement.goalTitle), TextRole::quiet);
            column.addSpacing(6);
          });
  section(page, localized("Whom it speaks for"), localized("the people"), evidence->people.size(),
          [evidence](QVBoxLayout& column, std::size_t i) {
            const EvidenceKnowledge::Person& person = evidence->people[i];
            addText(column, nameOr(person.displayName, unnamed), TextRole::strong);
            addText(column, reason(person.why), TextRole::body);
            addText(column,
                    person.rank == 0 ? localized("The strongest source for them")
                                     : localized("One of several sources"),
                    TextRole::body);
            addText(column, fromUTF8(person.goalTitle), TextRole::quiet);
            column.addSpacing(6);
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
    shown.push_back(nameOr(name, fromUTF8(path.personRefs[i])));
  }
  const QString target = shown.empty() ? localized("Nobody") : shown.back();
  QStringList refs;
  for (const std::string& ref : path.personRefs) refs.append(fromUTF8(ref));
  QVBoxLayout* page = begin("Starfold", localized("Path to %1").arg(target), refs.join('\n'));
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
