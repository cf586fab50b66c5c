#include "VemraRecording/MaskedRecords.hpp"

#include "VemraPlatform/date/InternetDateTime.hpp"

#include <array>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace vemra::recording {
namespace {

/// Goes through every text of a record with a function from text to text.
template <class Change>
class EachText {
 public:
  explicit EachText(Change change) : change_(std::move(change)) {}

  std::string operator()(const std::string& text) const { return change_(text); }
  std::optional<std::string> operator()(const std::optional<std::string>& text) const {
    return text ? std::optional(change_(*text)) : std::nullopt;
  }
  /// A date that the screen reads has no words.
  template <class Date>
  Date date(const Date& text) const {
    return isReadable(text) ? text : (*this)(text);
  }
  template <class Element>
  SharedArray<Element> operator()(const SharedArray<Element>& elements) const {
    std::vector<Element> changed;
    changed.reserve(elements.size());
    for (const Element& element : elements) changed.push_back((*this)(element));
    return changed;
  }
  GoalWhyDTO operator()(GoalWhyDTO why) const {
    if (auto* evidence = std::get_if<GoalWhyDTO::Evidence>(&why.reason)) {
      evidence->label = change_(evidence->label);
      evidence->detail = change_(evidence->detail);
      evidence->reference = change_(evidence->reference);
    }
    return why;
  }
  GoalDTO operator()(GoalDTO goal) const {
    goal.id = change_(goal.id);
    goal.title = change_(goal.title);
    goal.targetPersonRef = (*this)(goal.targetPersonRef);
    goal.createdAt = date(goal.createdAt);
    goal.updatedAt = date(goal.updatedAt);
    goal.keywords = (*this)(goal.keywords);
    goal.constraints = (*this)(goal.constraints);
    goal.attachmentRefs = (*this)(goal.attachmentRefs);
    return goal;
  }
  GoalPersonCandidateDTO operator()(const GoalPersonCandidateDTO& person) const {
    return {change_(person.personRef), (*this)(person.displayName), (*this)(person.why),
            (*this)(person.evidenceIDs)};
  }
  GoalPathCandidateDTO operator()(const GoalPathCandidateDTO& path) const {
    return {(*this)(path.personRefs), (*this)(path.why), path.strength};
  }
  GoalGroupCandidateDTO operator()(const GoalGroupCandidateDTO& group) const {
    return {change_(group.id), (*this)(group.personRefs)};
  }
  GoalCoverageDTO operator()(const GoalCoverageDTO& coverage) const {
    return {(*this)(coverage.sources), coverage.evidenceCount, date(coverage.latestEvidenceAt)};
  }
  GoalOutcomeDTO operator()(GoalOutcomeDTO outcome) const {
    outcome.id = change_(outcome.id);
    outcome.goalID = change_(outcome.goalID);
    outcome.subjectRef = (*this)(outcome.subjectRef);
    outcome.note = (*this)(outcome.note);
    outcome.recordedAt = date(outcome.recordedAt);
    outcome.recordedBy = (*this)(outcome.recordedBy);
    outcome.correctsOutcomeID = (*this)(outcome.correctsOutcomeID);
    return outcome;
  }
  GetGoalSnapshotResponse operator()(const GetGoalSnapshotResponse& result) const {
    return {(*this)(result.goal),  (*this)(result.people),   (*this)(result.paths),
            (*this)(result.group), (*this)(result.coverage), (*this)(result.outcomes)};
  }

 private:
  static bool isReadable(const std::string& text) {
    return date::parseInternetDateTime(text).has_value();
  }
  static bool isReadable(const std::optional<std::string>& text) {
    return text && isReadable(*text);
  }

  Change change_;
};

/// The ends of the identifiers of a person's row and of the path.
constexpr std::array<std::string_view, 8> identifierEnds{
    ".show-source",  ".outcome.start",  ".outcome.picker",  ".outcome.note",
    ".outcome.save", ".outcome.cancel", ".outcome.correct", ".outcome.corrected-marker"};

}  // namespace

GetGoalSnapshotResponse masked(const GetGoalSnapshotResponse& result, text::TextMask& mask) {
  // All words first, so that no mask is a word of the same result.
  EachText([&](const std::string& text) {
    mask.avoid(text);
    return std::string();
  })(result);
  return EachText([&](const std::string& text) { return mask.masked(text); })(result);
}

Call masked(const Call& call, text::TextMask& mask) {
  const EachText texts([&](const std::string& text) { return mask.masked(text); });
  return std::visit(
      [&](const auto& made) -> Call {
        using Made = std::decay_t<decltype(made)>;
        if constexpr (std::is_same_v<Made, OpenPerson>) {
          return OpenPerson{texts(made.personRef)};
        } else if constexpr (std::is_same_v<Made, ShowEvidence>) {
          return ShowEvidence{texts(made.evidenceID)};
        } else if constexpr (std::is_same_v<Made, FocusPathInStarfold>) {
          return FocusPathInStarfold{texts(made.path)};
        } else {
          const GoalOutcomeRecordingInput& input = made.input;
          return RecordOutcome{{input.subjectKind(), texts(input.subjectRef()), input.outcome(),
                                texts(input.note()), texts(input.correctsOutcomeID())}};
        }
      },
      call);
}

std::string maskedIdentifier(std::string_view identifier, text::TextMask& mask) {
  constexpr std::string_view ofPerson = "vemra.goal.person.", ofPath = "vemra.goal.path.";
  if (identifier.starts_with(ofPath)) return std::string(identifier);
  for (const std::string_view end : identifierEnds) {
    if (identifier.size() < ofPerson.size() + end.size() || !identifier.starts_with(ofPerson) ||
        !identifier.ends_with(end)) {
      continue;
    }
    identifier.remove_prefix(ofPerson.size());
    identifier.remove_suffix(end.size());
    return std::string(ofPerson) + mask.masked(identifier) + std::string(end);
  }
  return mask.masked(identifier);
}

}  // namespace vemra::recording
