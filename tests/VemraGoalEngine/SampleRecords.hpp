#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <string>

/// Records with every field filled. Each call makes its own storage, so two records are equal by
/// their values and never because they share storage.
///
/// `accent` is part of every string: pass the other normal form to get equal records of which no
/// string has the same bytes.
namespace vemra::sample {

inline const std::string composed = "\u00e9";     // é, one scalar
inline const std::string decomposed = "e\u0301";  // é, a letter and a mark

inline GoalDTO goal(const std::string& accent = composed) {
  return {
      .id = "goal " + accent,
      .title = "Meet Ren" + accent,
      .status = GoalStatus::paused,
      .targetPersonRef = "ren" + accent,
      .createdAt = "2025-01-01T08:00:00Z" + accent,
      .updatedAt = "2025-01-02T08:00:00Z" + accent,
      .priority = GoalPriority::high,
      .keywords = {"caf" + accent, "launch" + accent},
      .keywordsRevision = 3,
      .constraints = {"no calls" + accent},
      .constraintsRevision = 5,
      .attachmentRefs = {"file" + accent},
  };
}

inline GoalPersonCandidateDTO person(const std::string& accent = composed) {
  return {
      .personRef = "person" + accent,
      .displayName = "Ren" + accent,
      .why = GoalWhyDTO::evidence("Email" + accent, "Asked" + accent, "mail-7" + accent),
      .evidenceIDs = {"evidence-1" + accent, "evidence-2" + accent},
  };
}

inline GoalPathCandidateDTO path(const std::string& accent = composed) {
  return {
      .personRefs = {"anna" + accent, "ren" + accent},
      .why = GoalWhyDTO::connection(2),
      .strength = 40,
  };
}

inline GoalGroupCandidateDTO group(const std::string& accent = composed) {
  return {.id = "group" + accent, .personRefs = {"anna" + accent, "bo" + accent}};
}

inline GoalCoverageDTO coverage(const std::string& accent = composed) {
  return {
      .sources = {"Mail" + accent, "Calendar" + accent},
      .evidenceCount = 12,
      .latestEvidenceAt = "2025-01-05T10:00:00Z" + accent,
  };
}

inline GoalOutcomeDTO outcome(const std::string& accent = composed) {
  return {
      .id = "outcome" + accent,
      .goalID = "goal" + accent,
      .subjectKind = GoalOutcomeSubjectKind::path,
      .subjectRef = "ren" + accent,
      .value = GoalOutcomeValue::helped,
      .note = "over a caf" + accent,
      .recordedAt = "2025-01-06T10:00:00Z" + accent,
      .recordedBy = "me" + accent,
      .correctsOutcomeID = "outcome-0" + accent,
  };
}

inline GetGoalSnapshotResponse response(const std::string& accent = composed) {
  return {
      .goal = goal(accent),
      .people = {person(accent)},
      .paths = {path(accent)},
      .group = {group(accent)},
      .coverage = coverage(accent),
      .outcomes = {outcome(accent)},
  };
}

}  // namespace vemra::sample
