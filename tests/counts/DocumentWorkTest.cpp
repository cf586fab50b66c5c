// Every byte of a document is parsed once, whatever the order of its keys. Counted, not timed.

#include "apps/documents/JsonTokens.hpp"
#include "apps/documents/ResultReader.hpp"
#include "apps/inspect/Case.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

using namespace vemra;

namespace {

/// A result with its keys in another order than the reader's, escapes in keys and texts, and people
/// with evidence.
std::string resultOutOfOrder(int people) {
  std::string text =
      R"({"outcomes": [{"value": "helped", "subjectKind": "person", "id": "o\u0031"}],
  "coverage": {"evidenceCount": 2, "sources": ["Ma\u0069l"]}, "group": [], "paths": [], "people": [)";
  for (int person = 0; person < people; ++person) {
    if (person > 0) text += ',';
    text.append("\n{\"evidenceIDs\": [\"\\\"e\\\"\", \"\u00e9\"], ");
    text.append(R"("w\u0068y": {"hopCount": 2, "kind": "connection"}, )");
    text.append(R"("displayName": "Ren\u00e9\n", "personRef": "p)");
    text.append(std::to_string(person)).append("\"}");
  }
  return text + R"(], "goal": {"title": "t", "id": "g1"}})";
}

/// The number of bytes that are parsed during the call.
template <class Read>
std::uint64_t bytesParsedBy(const Read& read) {
  const std::uint64_t before = documents::JsonTokens::bytesParsed();
  read();
  return documents::JsonTokens::bytesParsed() - before;
}

}  // namespace

TEST(DocumentWork, EveryByteOfAResultIsParsedOnce) {
  const TemporaryFolder folder;
  for (const int people : {1, 100, 10'000}) {
    const std::string text = resultOutOfOrder(people) + " \n";
    const auto ofText = bytesParsedBy([&] { documents::readResultText(text, "result.json"); });
    EXPECT_EQ(ofText, text.size());
    const std::string path = folder.write("result.json", text);
    EXPECT_EQ(bytesParsedBy([&] { documents::readResultFile(path); }), text.size());
  }
}

TEST(DocumentWork, EveryByteOfACaseIsParsedOnce) {
  const TemporaryFolder folder;
  for (const int people : {1, 100, 10'000}) {
    const std::string text = R"({"steps": [{"press": "x"}], "result": )" +
                             resultOutOfOrder(people) +
                             R"(, "recorded": {"texts": "plain", "version": "0.0.1",
                                 "program": "vemra-d\u0065sk"}, "timeZone": "UTC"})";
    EXPECT_EQ(bytesParsedBy([&] { inspect::readCase(text, "case.json", {}); }), text.size());
    const std::string path = folder.write("case.json", text);
    EXPECT_EQ(bytesParsedBy([&] { inspect::readCaseFile(path, {}); }), text.size());
  }
}
