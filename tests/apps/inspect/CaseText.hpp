#pragma once

#include "tests/apps/Replacing.hpp"

#include <string>

namespace vemra::inspect {

/// One person with a source and a recorded outcome, one path, some evidence.
inline const std::string oneOfEach = R"json({
  "goal": {"id": "g1", "title": "Find a design lead", "targetPersonRef": "p9"},
  "people": [{"personRef": "p1", "displayName": "Ada", "why": {"kind": "connection", "hopCount": 2},
              "evidenceIDs": ["ev9", "ev3"]}],
  "paths": [{"personRefs": ["p1", "p9"], "why": {"kind": "nameMatch"}}],
  "group": [{"id": "grp1"}],
  "coverage": {"sources": ["Mail"], "evidenceCount": 12,
               "latestEvidenceAt": "2025-01-05T23:30:00Z"},
  "outcomes": [{"id": "o1", "subjectKind": "person", "subjectRef": "p1", "value": "helped",
                "note": "a note", "correctsOutcomeID": "o0"}]
})json";

/// A result without people, paths, evidence and outcomes.
inline const std::string nothing = R"json({"goal": {"id": "", "title": ""}, "people": [],
  "paths": [], "group": [], "coverage": {"sources": [], "evidenceCount": 0}, "outcomes": []})json";

/// A result with these people, the elements of a JSON array, and some evidence.
inline std::string people(const std::string& elements) {
  return R"({"goal": {"id": "g", "title": ""}, "people": [)" + elements +
         R"(], "paths": [], "group": [], "coverage": {"sources": [], "evidenceCount": 1},
            "outcomes": []})";
}

/// A case document: a result, and the keys that follow it (", …" or "").
inline std::string caseOf(const std::string& result, const std::string& more = "") {
  return "{\"result\": " + result + more + "}";
}

/// A case document with steps, in a locale and a time zone of its own.
inline std::string withSteps(const std::string& result, const std::string& steps) {
  return caseOf(result, R"(, "locale": "en_US", "timeZone": "UTC", "steps": [)" + steps + "]");
}

/// The step that presses that element; contains the identifier unescaped.
inline std::string press(const std::string& identifier) {
  return R"({"press": ")" + identifier + "\"}";
}

}  // namespace vemra::inspect
