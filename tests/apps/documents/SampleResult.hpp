#pragma once

#include "apps/documents/DocumentError.hpp"
#include "apps/documents/ResultReader.hpp"
#include "tests/apps/Replacing.hpp"

#include <string>
#include <string_view>

namespace vemra::documents {

/// A document with every key of a result document, and every kind of reason.
inline const std::string sampleResult = R"json({
  "goal": {"id": "g1", "title": "Find a design lead", "status": "paused", "targetPersonRef": "p9",
           "createdAt": "2024-12-01T08:00:00Z", "updatedAt": "2025-01-02T08:00:00Z",
           "priority": "high", "keywords": ["design", "lead"], "keywordsRevision": 3,
           "constraints": ["remote"], "constraintsRevision": 4, "attachmentRefs": ["a1"]},
  "people": [
    {"personRef": "p1", "displayName": "Ada", "why": {"kind": "connection", "hopCount": 2},
     "evidenceIDs": ["ev9", "ev3"]},
    {"personRef": "p2", "displayName": null,
     "why": {"kind": "evidence", "label": "Email", "detail": "Asked", "reference": "ev1"}},
    {"personRef": "p3", "why": {"kind": "sharedActivity", "threadCount": 5, "meetingCount": -1}},
    {"personRef": "p4", "displayName": "", "why": {"kind": "nameMatch"}, "evidenceIDs": []}
  ],
  "paths": [{"personRefs": ["p1", "p9"], "why": {"kind": "generic"}, "strength": 7}],
  "group": [{"id": "grp1", "personRefs": ["p1"]}],
  "coverage": {"sources": ["Mail"], "evidenceCount": 12,
               "latestEvidenceAt": "2025-01-05T10:00:00Z"},
  "outcomes": [
    {"id": "o1", "goalID": "g1", "subjectKind": "person", "subjectRef": "p1", "value": "helped",
     "note": "met", "recordedAt": "2025-01-03T08:00:00Z", "recordedBy": "me",
     "correctsOutcomeID": null},
    {"id": "o2", "subjectKind": "path", "value": "somethingElse", "correctsOutcomeID": ""}
  ]
})json";

/// The message for a document named "case.json", or "" when it is read without one.
inline std::string errorIn(std::string_view text) {
  try {
    readResultText(text, "case.json");
  } catch (const DocumentError& error) {
    return error.what();
  }
  return "";
}

}  // namespace vemra::documents
