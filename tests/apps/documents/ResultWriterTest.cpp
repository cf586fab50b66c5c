#include "apps/documents/EnumerationNames.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/documents/SampleResult.hpp"

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

TEST(ResultWriterTest, WritesEveryKeyInTheDocumentsOrder) {
  EXPECT_EQ(writeResult(readResultText(sampleResult, "sample")), R"json({
  "goal": {"id": "g1", "title": "Find a design lead", "status": "paused", "targetPersonRef": "p9", "createdAt": "2024-12-01T08:00:00Z", "updatedAt": "2025-01-02T08:00:00Z", "priority": "high", "keywords": ["design", "lead"], "keywordsRevision": 3, "constraints": ["remote"], "constraintsRevision": 4, "attachmentRefs": ["a1"]},
  "people": [
    {"personRef": "p1", "displayName": "Ada", "why": {"kind": "connection", "hopCount": 2}, "evidenceIDs": ["ev9", "ev3"]},
    {"personRef": "p2", "displayName": null, "why": {"kind": "evidence", "label": "Email", "detail": "Asked", "reference": "ev1"}, "evidenceIDs": []},
    {"personRef": "p3", "displayName": null, "why": {"kind": "sharedActivity", "threadCount": 5, "meetingCount": -1}, "evidenceIDs": []},
    {"personRef": "p4", "displayName": "", "why": {"kind": "nameMatch"}, "evidenceIDs": []}
  ],
  "paths": [
    {"personRefs": ["p1", "p9"], "why": {"kind": "generic"}, "strength": 7}
  ],
  "group": [
    {"id": "grp1", "personRefs": ["p1"]}
  ],
  "coverage": {"sources": ["Mail"], "evidenceCount": 12, "latestEvidenceAt": "2025-01-05T10:00:00Z"},
  "outcomes": [
    {"id": "o1", "goalID": "g1", "subjectKind": "person", "subjectRef": "p1", "value": "helped", "note": "met", "recordedAt": "2025-01-03T08:00:00Z", "recordedBy": "me", "correctsOutcomeID": null},
    {"id": "o2", "subjectKind": "path", "subjectRef": null, "value": "somethingElse", "note": null, "correctsOutcomeID": ""}
  ]
}
)json");
}

TEST(ResultWriterTest, OmitsDefaultFieldsThatNoScreenShows) {
  EXPECT_EQ(writeResult({}), R"json({
  "goal": {"id": "", "title": "", "targetPersonRef": null},
  "people": [],
  "paths": [],
  "group": [],
  "coverage": {"sources": [], "evidenceCount": 0, "latestEvidenceAt": null},
  "outcomes": []
}
)json");
}

TEST(ResultWriterTest, KeepsAnEngineFieldThatIsPresentAndEmpty) {
  GoalOutcomeDTO outcome;
  outcome.id = "o";
  outcome.recordedAt = "";
  EXPECT_EQ(writeOutcomes({outcome}), R"json([
  {"id": "o", "subjectKind": "person", "subjectRef": null, "value": "reachedOut", "note": null, "recordedAt": "", "correctsOutcomeID": null}
]
)json");
}

TEST(ResultWriterTest, WritesNoOutcomesAsAnEmptyArray) {
  EXPECT_EQ(writeOutcomes({}), "[]\n");
}

TEST(ResultWriterTest, WritesAPathInTheDocumentsForm) {
  JsonWriter out;
  writePath(out, {{"p1", "p9"}, GoalWhyDTO::nameMatch(), 0});
  EXPECT_EQ(out.take(), R"({"personRefs": ["p1", "p9"], "why": {"kind": "nameMatch"}})");
  writePath(out, {{}, GoalWhyDTO::connection(-3), -1});
  EXPECT_EQ(out.take(),
            R"({"personRefs": [], "why": {"kind": "connection", "hopCount": -3}, "strength": -1})");
}

TEST(ResultWriterTest, ReplacesIllFormedBytesInsteadOfFailing) {
  JsonWriter out;
  writePath(out, {{"p\xFF"}, GoalWhyDTO::generic(), 0});
  EXPECT_EQ(out.take(), "{\"personRefs\": [\"p\uFFFD\"], \"why\": {\"kind\": \"generic\"}}");
}

TEST(EnumerationNamesTest, AreInIndexOrder) {
  EXPECT_EQ(nameIn(statusNames, GoalStatus::abandoned), "abandoned");
  EXPECT_EQ(nameIn(priorityNames, GoalPriority::low), "low");
  EXPECT_EQ(nameIn(whyKindNames, WhyKind::generic), "generic");
  EXPECT_EQ(outcomeValueNames.back(), "somethingElse");
  EXPECT_EQ(subjectKindNames.front(), "person");
}

}  // namespace
}  // namespace vemra::documents
