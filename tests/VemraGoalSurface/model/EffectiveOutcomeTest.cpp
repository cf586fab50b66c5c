#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "tests/VemraGoalSurface/model/SampleSnapshot.hpp"

#include <random>

#include <gtest/gtest.h>

namespace vemra {
namespace {

using sample::snapshotWithOutcomes;
using enum GoalOutcomeSubjectKind;

// The id of the outcome in force, or "none".
std::string inForce(const GoalResultSnapshotV1& snapshot, GoalOutcomeSubjectKind kind,
                    std::optional<std::string_view> ref) {
  const std::optional<GoalOutcomeDTO> outcome = snapshot.effectiveOutcome(kind, ref);
  return outcome.has_value() ? outcome->id : "none";
}

TEST(EffectiveOutcome, TheLastRecordOfASubjectIsInForce) {
  GoalOutcomeDTO first = build::outcome("A", person, "anna");
  GoalOutcomeDTO correction = build::outcome("B", person, "anna");
  correction.correctsOutcomeID = "A";
  const GoalOutcomeDTO other = build::outcome("C", person, "bo");

  const GoalResultSnapshotV1 corrected = snapshotWithOutcomes({first, correction, other});
  EXPECT_EQ(inForce(corrected, person, "anna"), "B");
  EXPECT_EQ(inForce(corrected, person, "bo"), "C");

  const GoalResultSnapshotV1 turned = snapshotWithOutcomes({correction, first, other});
  EXPECT_EQ(inForce(turned, person, "anna"), "A") << "the position decides, not the link";
}

TEST(EffectiveOutcome, IsNilWithoutAMatch) {
  EXPECT_EQ(inForce(snapshotWithOutcomes({}), person, "anna"), "none");
  EXPECT_EQ(inForce(snapshotWithOutcomes({}), person, std::nullopt), "none");
  const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes({build::outcome("A", person, "anna")});
  EXPECT_EQ(inForce(snapshot, person, "bo"), "none");
  EXPECT_EQ(inForce(snapshot, person, "ann"), "none");
  EXPECT_EQ(inForce(snapshot, person, "Anna"), "none");
  EXPECT_EQ(inForce(snapshot, person, "anna "), "none");
}

TEST(EffectiveOutcome, TheKindMustMatchToo) {
  const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes(
      {build::outcome("A", person, "anna"), build::outcome("B", path, std::nullopt)});
  EXPECT_EQ(inForce(snapshot, path, "anna"), "none");
  EXPECT_EQ(inForce(snapshot, person, "anna"), "A");
  EXPECT_EQ(inForce(snapshot, person, std::nullopt), "none");
  EXPECT_EQ(inForce(snapshot, path, std::nullopt), "B");
}

TEST(EffectiveOutcome, AnUnknownKindMatchesOnlyItself) {
  const auto later = static_cast<GoalOutcomeSubjectKind>(2);
  const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes({build::outcome("A", later, "anna")});
  EXPECT_EQ(inForce(snapshot, later, "anna"), "A");
  EXPECT_EQ(inForce(snapshot, person, "anna"), "none");
}

TEST(EffectiveOutcome, ANilReferenceMatchesOnlyNil) {
  const GoalResultSnapshotV1 snapshot =
      snapshotWithOutcomes({build::outcome("nil", path, std::nullopt), build::outcome("", path, ""),
                            build::outcome("anna", path, "anna")});
  EXPECT_EQ(inForce(snapshot, path, std::nullopt), "nil");
  EXPECT_EQ(inForce(snapshot, path, ""), "");
  EXPECT_EQ(inForce(snapshot, path, "anna"), "anna");

  const GoalResultSnapshotV1 onlyNil = snapshotWithOutcomes({build::outcome("nil", path, {})});
  EXPECT_EQ(inForce(onlyNil, path, ""), "none");
  EXPECT_EQ(inForce(onlyNil, path, "anna"), "none");
  const GoalResultSnapshotV1 onlyEmpty = snapshotWithOutcomes({build::outcome("E", path, "")});
  EXPECT_EQ(inForce(onlyEmpty, path, std::nullopt), "none");
}

TEST(EffectiveOutcome, AReferenceInEitherNormalFormIsTheSameSubject) {
  const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes(
      {build::outcome("A", person, "Ren\u00e9"), build::outcome("B", person, "Rene\u0301"),
       build::outcome("C", person, "Rene")});
  EXPECT_EQ(inForce(snapshot, person, "Ren\u00e9"), "B");
  EXPECT_EQ(inForce(snapshot, person, "Rene\u0301"), "B");
  EXPECT_EQ(inForce(snapshot, person, "Rene"), "C");
}

TEST(EffectiveOutcome, ReferencesWithEqualBytesMatchEvenWhenIllFormed) {
  const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes(
      {build::outcome("A", person, "a\xC3"), build::outcome("B", person, "a\xE9")});
  EXPECT_EQ(inForce(snapshot, person, "a\xC3"), "A");
  EXPECT_EQ(inForce(snapshot, person, "a\xE9"), "B");
  EXPECT_EQ(inForce(snapshot, person, "a\uFFFD"), "none");
}

TEST(EffectiveOutcome, GivesACopyOfTheWholeRecord) {
  const GoalOutcomeDTO record = sample::outcome();
  std::optional<GoalOutcomeDTO> outcome;
  {
    const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes({record});
    outcome = snapshot.effectiveOutcome(record.subjectKind, record.subjectRef);
    ASSERT_TRUE(outcome.has_value());
    EXPECT_NE(&*outcome, &snapshot.outcomes()[0]);
  }
  EXPECT_TRUE(*outcome == record);
}

TEST(EffectiveOutcome, AcceptsAReferenceOfAnyStringType) {
  const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes({build::outcome("A", person, "anna")});
  const std::string text = "anna";
  const std::optional<std::string> optionalText = text;
  const std::optional<std::string> nothing;
  EXPECT_TRUE(snapshot.effectiveOutcome(person, "anna").has_value());
  EXPECT_TRUE(snapshot.effectiveOutcome(person, text).has_value());
  EXPECT_TRUE(snapshot.effectiveOutcome(person, std::string_view(text)).has_value());
  EXPECT_TRUE(snapshot.effectiveOutcome(person, optionalText).has_value());
  EXPECT_FALSE(snapshot.effectiveOutcome(person, nothing).has_value());
  EXPECT_FALSE(snapshot.effectiveOutcome(person, std::nullopt).has_value());
}

// Any list of records, compared with a plain forward search for the subject's last record.
TEST(EffectiveOutcome, IsTheRecordWithTheHighestIndexAmongThoseOfTheSubject) {
  struct Reference {
    std::optional<std::string> text;
    int subject;  // references of one subject are canonically equivalent
  };
  const std::vector<Reference> references = {
      {std::nullopt, 0},
      {"", 1},
      {"\u00e9", 2},
      {"e\u0301", 2},
      {"e", 3},
      {"anna", 4},
      {"ann", 5},
      {"person-0000001", 6},
      {"person-0000002", 7},
      {"\u212bngstr", 8},
      {"A\u030angstr", 8},
      {"\u00c5ngstr", 8},
      {"a\u0323\u0307", 9},
      {"a\u0307\u0323", 9},
      {"\u1ea1\u0307", 9},
      {"\uac00", 10},
      {"\u1100\u1161", 10},
      {"a\xC3", 11},
      {"a\xE9", 12},
  };
  std::mt19937_64 random(20250105);
  const auto below = [&random](std::size_t bound) { return std::size_t(random() % bound); };
  for (int round = 0; round < 3000; ++round) {
    std::vector<GoalOutcomeDTO> outcomes;
    std::vector<int> subjects;
    const std::size_t count = below(13);
    for (std::size_t i = 0; i < count; ++i) {
      const Reference& reference = references[below(references.size())];
      const auto kind = static_cast<GoalOutcomeSubjectKind>(below(2));
      outcomes.push_back(build::outcome(std::to_string(i), kind, reference.text));
      subjects.push_back(reference.subject);
    }
    const GoalResultSnapshotV1 snapshot = snapshotWithOutcomes(outcomes);
    for (const Reference& asked : references) {
      for (GoalOutcomeSubjectKind kind : {person, path}) {
        std::string expected = "none";
        for (std::size_t i = 0; i < count; ++i) {
          if (outcomes[i].subjectKind == kind && subjects[i] == asked.subject) {
            expected = outcomes[i].id;
          }
        }
        ASSERT_EQ(inForce(snapshot, kind, asked.text), expected)
            << "round " << round << ", reference " << asked.text.value_or("nil");
      }
    }
  }
}

}  // namespace
}  // namespace vemra
