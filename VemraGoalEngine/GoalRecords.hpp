#pragma once

#include "VemraGoalEngine/GoalOutcomeValue.hpp"
#include "VemraGoalEngine/GoalWhyDTO.hpp"
#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/base/SharedArray.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// \file
/// The engine's records: plain values with member-wise equality over all their fields, including
/// those that no screen shows. Strings are UTF-8 and equal under canonical equivalence (Unicode
/// Standard Annex #15); an absent string never equals a present one, not even "". Nothing changes
/// their bytes.
///
/// A record can be initialised with some of its members only, without a compiler warning: every
/// member except an id or a person reference has a default.
///
/// No record is aligned to more than `std::max_align_t`: g++ and clang align coroutine frames to 16
/// bytes, so a record with a larger alignment would be misaligned while a coroutine keeps it over a
/// `co_await`.

namespace vemra {

/// The user's progress with a goal.
enum class GoalStatus : std::uint8_t { active, paused, reached, abandoned };

/// How much a goal matters to the user.
enum class GoalPriority : std::uint8_t { normal, high, low };

/// A goal.
struct GoalDTO {
  std::string id;       ///< the engine's id; `GoalToolExecutor::getGoalSnapshot` takes it
  std::string title{};  ///< the first line of the screen, shown as it is
  GoalStatus status = GoalStatus::active;        ///< for the host; the screen does not show it
  std::optional<std::string> targetPersonRef{};  ///< the person the goal is about, or nil
  /// When the goal was made, as the engine writes it; the screen does not read it.
  std::string createdAt{};
  std::string updatedAt{};  ///< when the goal was last changed; the screen does not read it
  GoalPriority priority = GoalPriority::normal;  ///< for the host; the screen does not show it
  /// Words that describe the goal; the screen does not show them.
  SharedArray<std::string> keywords{};
  std::int64_t keywordsRevision = 0;  ///< counts the changes of `keywords`
  /// What the user rules out; the screen does not show them.
  SharedArray<std::string> constraints{};
  std::int64_t constraintsRevision = 0;  ///< counts the changes of `constraints`
  /// References to attachments; the screen does not show them.
  SharedArray<std::string> attachmentRefs{};
  friend VEMRA_EXPORT bool operator==(const GoalDTO& a, const GoalDTO& b);
};

/// One ranked person.
struct VEMRA_EXPORT GoalPersonCandidateDTO {
  std::string personRef;  ///< identifies the row, and is the argument of the callbacks
  std::optional<std::string> displayName{};  ///< shown as it is; nil: "Unnamed person"
  GoalWhyDTO why{};                          ///< why the engine suggests this person
  /// Ids of the evidence for this person, the strongest first. Only the engine sets them.
  SharedArray<std::string> evidenceIDs{};

  /// The id of the strongest piece of evidence: the first of `evidenceIDs`, or nil.
  std::optional<std::string> topEvidenceID() const;

  friend VEMRA_EXPORT bool operator==(const GoalPersonCandidateDTO& a,
                                      const GoalPersonCandidateDTO& b);
};

/// One chain of people towards the goal's target person.
struct GoalPathCandidateDTO {
  SharedArray<std::string> personRefs{};  ///< in path order; the path leads to the last person
  GoalWhyDTO why{};                       ///< why the engine suggests this path
  std::int64_t strength = 0;              ///< the engine's ranking figure
  friend bool operator==(const GoalPathCandidateDTO&, const GoalPathCandidateDTO&) = default;
};

/// A group of people that may help together. It is part of a result, but no screen shows it.
struct GoalGroupCandidateDTO {
  std::string id;                         ///< the engine's id of the group
  SharedArray<std::string> personRefs{};  ///< the people in the group
  friend VEMRA_EXPORT bool operator==(const GoalGroupCandidateDTO& a,
                                      const GoalGroupCandidateDTO& b);
};

/// The evidence that a result is based on.
struct GoalCoverageDTO {
  SharedArray<std::string> sources{};  ///< names of the evidence sources, in the engine's order
  std::int64_t evidenceCount = 0;      ///< pieces of evidence considered; 0 means none
  std::optional<std::string> latestEvidenceAt{};  ///< an internet date-time (ISO 8601), as text
  friend VEMRA_EXPORT bool operator==(const GoalCoverageDTO& a, const GoalCoverageDTO& b);
};

/// One recorded outcome. Records are only ever added: a correction is a later record.
///
/// The search for a subject's outcome reads the kind and the reference of many records. With
/// libstdc++ the padding makes a record five cache lines of 64 bytes long, so in an array that
/// begins at a cache line these two members are always in one line.
struct GoalOutcomeDTO {
  /// A `SharedArray` of outcomes begins at a multiple of this number of bytes; a single record has
  /// its usual alignment.
  static constexpr std::size_t arrayAlignment = 64;

  std::string id;        ///< identifies the record; a correction repeats it as `correctsOutcomeID`
  std::string goalID{};  ///< the goal that the outcome belongs to; the screen does not read it
  /// Whether the outcome is about a person or a path.
  GoalOutcomeSubjectKind subjectKind = GoalOutcomeSubjectKind::person;
  std::optional<std::string> subjectRef{};  ///< the person, or the last person of the path
  GoalOutcomeValue value = GoalOutcomeValue::reachedOut;  ///< what came of it
  /// The user's words, shown as they are; nil when there are none.
  std::optional<std::string> note{};
  /// When it was recorded, as the engine writes it; the screen does not read it.
  std::optional<std::string> recordedAt{};
  std::optional<std::string> recordedBy{};         ///< who recorded it; the screen does not read it
  std::optional<std::string> correctsOutcomeID{};  ///< present (even when "") marks a correction
      // Padding, not members: they have no name and no value, and the equality ignores them.
  std::uint64_t : 64;
  std::uint64_t : 64;
  std::uint64_t : 64;
  std::uint64_t : 64;
  std::uint64_t : 64;
  friend VEMRA_EXPORT bool operator==(const GoalOutcomeDTO& a, const GoalOutcomeDTO& b);
};

/// The engine's answer to a snapshot query.
struct GetGoalSnapshotResponse {
  GoalDTO goal{};  ///< the goal that was asked for
  /// The candidates, the best first; the screen keeps their order.
  SharedArray<GoalPersonCandidateDTO> people{};
  /// The paths to the goal's target person, the best first.
  SharedArray<GoalPathCandidateDTO> paths{};
  SharedArray<GoalGroupCandidateDTO> group{};  ///< groups of candidates; no screen shows them
  GoalCoverageDTO coverage{};                  ///< what the answer is based on
  /// All recorded outcomes of the goal, also corrected ones.
  SharedArray<GoalOutcomeDTO> outcomes{};
  friend bool operator==(const GetGoalSnapshotResponse&, const GetGoalSnapshotResponse&) = default;
};

}  // namespace vemra
