#include "benchmarks/screen/PeerData.hpp"

#include "VemraGoalSurface/presentation/GoalWhyPresentation.hpp"
#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "VemraPlatform/date/InternetDateTime.hpp"

#include <algorithm>

namespace vemra::bench {

QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString labelOf(GoalOutcomeValue value) {
  return toQString(GoalOutcomeRecordingFormLogic::label(value));
}

PeerData::PeerData(GoalResultSnapshotV1 snapshot)
    : snapshot_(std::move(snapshot)), outcomes_(outcomesOf(snapshot_)) {}

QString PeerData::name(std::size_t row) const {
  return toQString(person(row).displayName.value_or("Unnamed person"));
}

QString PeerData::why(std::size_t row) const {
  return toQString(GoalWhyPresentation::text(person(row).why));
}

const GoalOutcomeDTO* PeerData::outcome(std::size_t row) const {
  const auto found = outcomes_.find(person(row).personRef);
  return found == outcomes_.end() ? nullptr : found->second;
}

QString PeerData::path() const {
  return toQString(GoalWhyPresentation::text(snapshot_.paths().front().why));
}

QString PeerData::footer() const {
  const GoalCoverageDTO& coverage = snapshot_.coverage();
  QString text =
      QStringLiteral("Based on %1 piece(s) of evidence from ").arg(coverage.evidenceCount);
  for (const std::string& source : coverage.sources) {
    if (&source != coverage.sources.begin()) text += QLatin1String(", ");
    text += toQString(source);
  }
  if (const auto latest = date::parseInternetDateTime(coverage.latestEvidenceAt.value_or(""))) {
    text += QLatin1String(", through ") + toQString(date::abbreviatedDate(*latest, "en_US", "UTC"));
  }
  return text + u'.';
}

PeerData::Outcomes PeerData::outcomesOf(const GoalResultSnapshotV1& snapshot) {
  Outcomes outcomes;
  for (const GoalOutcomeDTO& outcome : snapshot.outcomes()) {
    if (outcome.subjectKind == GoalOutcomeSubjectKind::person && outcome.subjectRef) {
      outcomes[*outcome.subjectRef] = &outcome;
    }
  }
  return outcomes;
}

PeerData::Change PeerData::update(const GoalResultSnapshotV1& next) {
  const bool samePeople = next.people().sharesStorage(snapshot_.people());
  const GoalResultSnapshotV1 last = std::exchange(snapshot_, next);
  const Outcomes before = std::exchange(outcomes_, outcomesOf(snapshot_));
  if (!samePeople) return Change::people;
  const auto hasNote = [](const GoalOutcomeDTO& outcome) {
    return outcome.note && !outcome.note->empty();
  };
  const auto sameHeights = [&](const Outcomes& some, const Outcomes& others) {
    return std::ranges::all_of(some, [&](const auto& entry) {
      const auto other = others.find(entry.first);
      return hasNote(*entry.second) == (other != others.end() && hasNote(*other->second));
    });
  };
  return sameHeights(before, outcomes_) && sameHeights(outcomes_, before) ? Change::outcomes
                                                                          : Change::heights;
}

}  // namespace vemra::bench
