#pragma once

#include <string>
#include <string_view>

namespace vemra::documents {

/// A result document of about twelve megabytes, several times the piece of a file that its reader
/// releases at once: people with evidence, an escape and an accented letter each. The last one has
/// this reason.
inline std::string longResult(std::string_view lastReason = R"({"kind": "nameMatch"})") {
  std::string text = R"({"goal": {"id": "g1", "title": "t"},
"people": [
)";
  const auto person = [&](int number, std::string_view reason) {
    const std::string id = std::to_string(number);
    text.append(R"(  {"personRef": "p)").append(id);
    text.append(R"(", "displayName": "Ren\u00e9 \"\n)").append(id).append("\\\" Zo\u00EB");
    text.append(R"(", "why": )").append(reason);
    text.append(R"(, "evidenceIDs": ["e)").append(id).append(R"(", "\ud83d\ude00"]})");
  };
  constexpr int others = 85'000;
  for (int number = 0; number < others; ++number) {
    person(number, R"({"kind": "connection", "hopCount": 2})");
    text += ",\n";
  }
  person(others, lastReason);
  return text.append(R"(
],
"paths": [], "group": [], "coverage": {"sources": ["Mail"], "evidenceCount": 3}, "outcomes": [
  {"id": "o1", "subjectKind": "person", "subjectRef": "p1", "value": "helped"}]})");
}

/// The same with a fault in the last person.
inline std::string longResultWithFault() {
  return longResult(R"({"kind": "connection", "hopCount": "\u00e9"})");
}

}  // namespace vemra::documents
