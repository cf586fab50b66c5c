#include "tests/apps/documents/Malformed.hpp"
#include "tests/apps/documents/SampleResult.hpp"

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

class MalformedResultTest : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedResultTest, NamesFilePlaceAndExpectation) {
  const auto& [what, by, message] = GetParam();
  EXPECT_EQ(errorIn(replacing(sampleResult, what, by)), message);
}

constexpr const char* integerExpected =
    "expected an integer from -9223372036854775808 to 9223372036854775807, without fraction or "
    "exponent; found ";

const Malformed wrongTypes[] = {
    {"\"id\": \"g1\"", "\"id\": null", "case.json: /goal/id: expected a string; found null"},
    {"\"id\": \"g1\"", "\"id\": 1", "case.json: /goal/id: expected a string; found 1"},
    {"\"Find a design lead\"", "null", "case.json: /goal/title: expected a string; found null"},
    {"\"Find a design lead\"", "[\"x\"]",
     "case.json: /goal/title: expected a string; found an array"},
    {"\"Find a design lead\"", "{\"verbatim\": \"x\"}",
     "case.json: /goal/title: expected a string; found an object"},
    {"\"Find a design lead\"", "true", "case.json: /goal/title: expected a string; found true"},
    {"\"p9\",", "9,", "case.json: /goal/targetPersonRef: expected a string or null; found 9"},
    {"\"p9\",", "[],",
     "case.json: /goal/targetPersonRef: expected a string or null; found an array"},
    {"\"2024-12-01T08:00:00Z\"", "null",
     "case.json: /goal/createdAt: expected a string; found null"},
    {"\"2025-01-02T08:00:00Z\"", "0", "case.json: /goal/updatedAt: expected a string; found 0"},
    {"[\"design\", \"lead\"]", "null", "case.json: /goal/keywords: expected an array; found null"},
    {"[\"design\", \"lead\"]", "\"design\"",
     "case.json: /goal/keywords: expected an array; found \"design\""},
    {"\"lead\"]", "null]", "case.json: /goal/keywords/1: expected a string; found null"},
    {"[\"remote\"]", "{}", "case.json: /goal/constraints: expected an array; found an object"},
    {"[\"a1\"]", "[7]", "case.json: /goal/attachmentRefs/0: expected a string; found 7"},
    {"\"Ada\"", "false",
     "case.json: /people/0/displayName: expected a string or null; found false"},
    {"\"personRef\": \"p2\"", "\"personRef\": null",
     "case.json: /people/1/personRef: expected a string; found null"},
    {"[\"ev9\", \"ev3\"]", "null",
     "case.json: /people/0/evidenceIDs: expected an array; found null"},
    {"[\"ev9\", \"ev3\"]", "[null]",
     "case.json: /people/0/evidenceIDs/0: expected a string; found null"},
    {"{\"kind\": \"nameMatch\"}", "\"nameMatch\"",
     "case.json: /people/3/why: expected an object; found \"nameMatch\""},
    {"{\"kind\": \"nameMatch\"}", "null",
     "case.json: /people/3/why: expected an object; found null"},
    {"\"label\": \"Email\"", "\"label\": null",
     "case.json: /people/1/why/label: expected a string; found null"},
    {"[\"p1\", \"p9\"]", "\"p1\"",
     "case.json: /paths/0/personRefs: expected an array; found \"p1\""},
    {"[\"p1\", \"p9\"]", "[\"p1\", null]",
     "case.json: /paths/0/personRefs/1: expected a string; found null"},
    {"\"group\": [", "\"group\": null, \"x\": [",
     "case.json: /group: expected an array; found null"},
    {"{\"id\": \"grp1\", \"personRefs\": [\"p1\"]}", "\"grp1\"",
     "case.json: /group/0: expected an object; found \"grp1\""},
    {"[\"Mail\"]", "null", "case.json: /coverage/sources: expected an array; found null"},
    {"\"2025-01-05T10:00:00Z\"", "1736071200",
     "case.json: /coverage/latestEvidenceAt: expected a string or null; found 1736071200"},
    {"\"note\": \"met\"", "\"note\": []",
     "case.json: /outcomes/0/note: expected a string or null; found an array"},
    {"\"recordedBy\": \"me\"", "\"recordedBy\": {}",
     "case.json: /outcomes/0/recordedBy: expected a string or null; found an object"},
    {"\"correctsOutcomeID\": \"\"", "\"correctsOutcomeID\": false",
     "case.json: /outcomes/1/correctsOutcomeID: expected a string or null; found false"},
    {"\"id\": \"o2\"", "\"id\": null", "case.json: /outcomes/1/id: expected a string; found null"},
};
INSTANTIATE_TEST_SUITE_P(wrongTypes, MalformedResultTest, testing::ValuesIn(wrongTypes));

const Malformed names[] = {
    {"\"kind\": \"connection\"", "\"kind\": \"x\"",
     "case.json: /people/0/why/kind: expected one of evidence, connection, sharedActivity, "
     "nameMatch, generic; found \"x\""},
    {"\"kind\": \"connection\"", "\"kind\": \"Connection\"",
     "case.json: /people/0/why/kind: expected one of evidence, connection, sharedActivity, "
     "nameMatch, generic; found \"Connection\""},
    {"\"kind\": \"connection\"", "\"kind\": null",
     "case.json: /people/0/why/kind: expected one of evidence, connection, sharedActivity, "
     "nameMatch, generic; found null"},
    {"\"kind\": \"connection\"", "\"kind\": 1",
     "case.json: /people/0/why/kind: expected one of evidence, connection, sharedActivity, "
     "nameMatch, generic; found 1"},
    {"\"paused\"", "\"waiting\"",
     "case.json: /goal/status: expected one of active, paused, reached, abandoned; found "
     "\"waiting\""},
    {"\"paused\"", "null",
     "case.json: /goal/status: expected one of active, paused, reached, abandoned; found null"},
    {"\"high\"", "\"\"",
     "case.json: /goal/priority: expected one of normal, high, low; found \"\""},
    {"\"subjectKind\": \"path\"", "\"subjectKind\": \"group\"",
     "case.json: /outcomes/1/subjectKind: expected one of person, path; found \"group\""},
    {"\"helped\"", "\"Helped\"",
     "case.json: /outcomes/0/value: expected one of reachedOut, invited, introduced, helped, "
     "wasUseful, notAFit, noActionTaken, somethingElse; found \"Helped\""},
    {"\"helped\"", "3",
     "case.json: /outcomes/0/value: expected one of reachedOut, invited, introduced, helped, "
     "wasUseful, notAFit, noActionTaken, somethingElse; found 3"},
    {"\"helped\"",
     "\""
     "0123456789012345678901234567890123456789012345678901234567890123456789\"",
     "case.json: /outcomes/0/value: expected one of reachedOut, invited, introduced, helped, "
     "wasUseful, notAFit, noActionTaken, somethingElse; found "
     "\"012345678901234567890123456789012345678901234567890123456789…\""},
};
INSTANTIATE_TEST_SUITE_P(names, MalformedResultTest, testing::ValuesIn(names));

const Malformed keys[] = {
    {"\"status\"", "\"Status\"",
     "case.json: /goal/Status: expected one of the keys id, title, status, targetPersonRef, "
     "createdAt, updatedAt, priority, keywords, keywordsRevision, constraints, "
     "constraintsRevision, attachmentRefs; found \"Status\""},
    {"\"id\": \"g1\", ", "", "case.json: /goal: expected the key \"id\"; found none"},
    {"\"title\": \"Find a design lead\", ", "",
     "case.json: /goal: expected the key \"title\"; found none"},
    {"\"status\"", "\"id\"", "case.json: /goal/id: expected each key once; found \"id\" again"},
    {"\"status\"", "\"i\\u0064\"",
     "case.json: /goal/id: expected each key once; found \"id\" again"},
    {"\"evidenceIDs\"", "\"topEvidenceID\"",
     "case.json: /people/0/topEvidenceID: expected one of the keys personRef, displayName, why, "
     "evidenceIDs; found \"topEvidenceID\""},
    {"\"personRef\": \"p2\", ", "",
     "case.json: /people/1: expected the key \"personRef\"; found none"},
    {", \"why\": {\"kind\": \"nameMatch\"}", "",
     "case.json: /people/3: expected the key \"why\"; found none"},
    {"\"displayName\": \"Ada\"", "\"personRef\": \"p1\"",
     "case.json: /people/0/personRef: expected each key once; found \"personRef\" again"},
    {"\"kind\": \"connection\", ", "",
     "case.json: /people/0/why: expected the key \"kind\"; found none"},
    {", \"hopCount\": 2", "",
     "case.json: /people/0/why: expected the key \"hopCount\"; found none"},
    {"\"reference\": \"ev1\"", "\"label\": \"ev1\"",
     "case.json: /people/1/why/label: expected each key once; found \"label\" again"},
    {", \"reference\": \"ev1\"", "",
     "case.json: /people/1/why: expected the key \"reference\"; found none"},
    {", \"meetingCount\": -1", "",
     "case.json: /people/2/why: expected the key \"meetingCount\"; found none"},
    {"{\"kind\": \"nameMatch\"}", "{\"hopCount\": 2, \"kind\": \"nameMatch\"}",
     "case.json: /people/3/why/hopCount: expected no such key with the kind \"nameMatch\"; found "
     "\"hopCount\""},
    {"{\"kind\": \"generic\"}", "{\"kind\": \"generic\", \"label\": \"x\"}",
     "case.json: /paths/0/why/label: expected no such key with the kind \"generic\"; found "
     "\"label\""},
    {"\"hopCount\": 2", "\"hopCount\": 2, \"threadCount\": 1",
     "case.json: /people/0/why/threadCount: expected no such key with the kind \"connection\", "
     "which has hopCount; found \"threadCount\""},
    {"\"reference\": \"ev1\"", "\"reference\": \"ev1\", \"hopCount\": 1",
     "case.json: /people/1/why/hopCount: expected no such key with the kind \"evidence\", which "
     "has label, detail, reference; found \"hopCount\""},
    {"\"hopCount\": 2", "\"hops\": 2",
     "case.json: /people/0/why/hops: expected one of the keys kind, label, detail, reference, "
     "hopCount, threadCount, meetingCount; found \"hops\""},
    {"\"strength\"", "\"weight\"",
     "case.json: /paths/0/weight: expected one of the keys personRefs, why, strength; found "
     "\"weight\""},
    {"{\"id\": \"grp1\", \"personRefs\": [\"p1\"]}", "{}",
     "case.json: /group/0: expected the key \"id\"; found none"},
    {"\"grp1\"", "\"grp1\", \"a/b~c\": 1",
     "case.json: /group/0/a~1b~0c: expected one of the keys id, personRefs; found \"a/b~c\""},
    {"\"sources\": [\"Mail\"], ", "",
     "case.json: /coverage: expected the key \"sources\"; found none"},
    {"\"evidenceCount\": 12,", "",
     "case.json: /coverage: expected the key \"evidenceCount\"; found none"},
    {"\"id\": \"o1\", ", "", "case.json: /outcomes/0: expected the key \"id\"; found none"},
    {"\"subjectKind\": \"path\", ", "",
     "case.json: /outcomes/1: expected the key \"subjectKind\"; found none"},
    {"\"value\": \"somethingElse\", ", "",
     "case.json: /outcomes/1: expected the key \"value\"; found none"},
    {"\"note\"", "\"Note\"",
     "case.json: /outcomes/0/Note: expected one of the keys id, goalID, subjectKind, subjectRef, "
     "value, note, recordedAt, recordedBy, correctsOutcomeID; found \"Note\""},
    {"\"people\"", "\"persons\"",
     "case.json: /persons: expected one of the keys goal, people, paths, group, coverage, "
     "outcomes; found \"persons\""},
    {"\"outcomes\"", "\"goal\"", "case.json: /goal: expected each key once; found \"goal\" again"},
};
INSTANTIATE_TEST_SUITE_P(keys, MalformedResultTest, testing::ValuesIn(keys));

/// Places of counts, and tokens that are not counts.
TEST(MalformedCountTest, NamesThePlaceAndTheToken) {
  const std::pair<const char*, const char*> places[] = {
      {"\"keywordsRevision\": 3", "/goal/keywordsRevision"},
      {"\"constraintsRevision\": 4", "/goal/constraintsRevision"},
      {"\"hopCount\": 2", "/people/0/why/hopCount"},
      {"\"threadCount\": 5", "/people/2/why/threadCount"},
      {"\"meetingCount\": -1", "/people/2/why/meetingCount"},
      {"\"strength\": 7", "/paths/0/strength"},
      {"\"evidenceCount\": 12", "/coverage/evidenceCount"},
  };
  const std::pair<const char*, const char*> tokens[] = {
      {"1.0", "1.0"},
      {"1e2", "1e2"},
      {"0.5", "0.5"},
      {"-0.0", "-0.0"},
      {"null", "null"},
      {"\"2\"", "\"2\""},
      {"true", "true"},
      {"[]", "an array"},
      {"9223372036854775808", "9223372036854775808"},
      {"-9223372036854775809", "-9223372036854775809"},
  };
  for (const auto& [what, pointer] : places) {
    const std::string_view whole = what;
    const std::string key(whole.substr(0, whole.find(' ') + 1));
    for (const auto& [token, found] : tokens) {
      EXPECT_EQ(errorIn(replacing(sampleResult, what, key + token)),
                std::string("case.json: ") + pointer + ": " + integerExpected + found);
    }
  }
}

TEST(MalformedResultTest, NeedsEveryPartOfTheDocument) {
  const std::string parts[] = {R"("goal": {"id": "", "title": ""})",
                               R"("people": [])",
                               R"("paths": [])",
                               R"("group": [])",
                               R"("coverage": {"sources": [], "evidenceCount": 0})",
                               R"("outcomes": [])"};
  const char* keyNames[] = {"goal", "people", "paths", "group", "coverage", "outcomes"};
  for (std::size_t missing = 0; missing < 6; ++missing) {
    std::string text;
    for (std::size_t i = 0; i < 6; ++i) {
      if (i != missing) text += (text.empty() ? "{" : ", ") + parts[i];
    }
    EXPECT_EQ(errorIn(text + "}"),
              std::string("case.json: expected the key \"") + keyNames[missing] + "\"; found none");
  }
}

}  // namespace
}  // namespace vemra::documents
