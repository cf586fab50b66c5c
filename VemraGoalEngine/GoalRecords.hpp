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
  std::string id;
  std::string title{};
  GoalStatus status = GoalStatus::active;
  std::optional<std::string> targetPersonRef{};  ///< the person the goal is about, or nil
  std::string createdAt{};
  std::string updatedAt{};
  GoalPriority priority = GoalPriority::normal;
  SharedArray<std::string> keywords{};
  std::int64_t keywordsRevision = 0;
  SharedArray<std::string> constraints{};
  std::int64_t constraintsRevision = 0;
  SharedArray<std::string> attachmentRefs{};
  friend VEMRA_EXPORT bool operator==(const GoalDTO& a, const GoalDTO& b);
};

/// One ranked person.
struct VEMRA_EXPORT GoalPersonCandidateDTO {
  std::string personRef;
  std::optional<std::string> displayName{};
  GoalWhyDTO why{};
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
  GoalWhyDTO why{};
  std::int64_t strength = 0;  ///< the engine's ranking figure
  friend bool operator==(const GoalPathCandidateDTO&, const GoalPathCandidateDTO&) = default;
};

/// A group of people that may help together. It is part of a result, but no screen shows it.
struct GoalGroupCandidateDTO {
  std::string id;
  SharedArray<std::string> personRefs{};
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

  std::string id;
  std::string goalID{};
  GoalOutcomeSubjectKind subjectKind = GoalOutcomeSubjectKind::person;
  std::optional<std::string> subjectRef{};
  GoalOutcomeValue value = GoalOutcomeValue::reachedOut;
  std::optional<std::string> note{};
  std::optional<std::string> recordedAt{};
  std::optional<std::string> recordedBy{};
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
  GoalDTO goal{};
  SharedArray<GoalPersonCandidateDTO> people{};
  SharedArray<GoalPathCandidateDTO> paths{};
  SharedArray<GoalGroupCandidateDTO> group{};
  GoalCoverageDTO coverage{};
  SharedArray<GoalOutcomeDTO> outcomes{};
  friend bool operator==(const GetGoalSnapshotResponse&, const GetGoalSnapshotResponse&) = default;
};

}  // namespace vemra
