#include "apps/documents/ResultReader.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/documents/RandomResult.hpp"
#include "tests/apps/documents/SampleResult.hpp"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vemra::documents {
namespace {

TEST(RoundTripTest, ReadingAWrittenDocumentGivesTheRecordsByteForByte) {
  RandomResult random(20250105);
  for (int i = 0; i < 2000; ++i) {
    const GetGoalSnapshotResponse result = random.result();
    const std::string text = writeResult(result);
    GetGoalSnapshotResponse again;
    ASSERT_NO_THROW(again = readResultText(text, "round")) << text;
    EXPECT_EQ(again, result) << text;
    // Equality of records is canonical; the text shows the bytes.
    EXPECT_EQ(writeResult(again), text);
  }
}

TEST(RoundTripTest, AnotherReaderSeesTheSameDocument) {
  RandomResult random(7);
  for (int i = 0; i < 500; ++i) {
    const GetGoalSnapshotResponse result = random.result();
    const auto json = nlohmann::json::parse(writeResult(result));
    EXPECT_EQ(json["goal"]["title"].get<std::string>(), result.goal.title);
    ASSERT_EQ(json["people"].size(), result.people.size());
    for (std::size_t p = 0; p < result.people.size(); ++p) {
      EXPECT_EQ(json["people"][p]["personRef"].get<std::string>(), result.people[p].personRef);
      EXPECT_EQ(json["people"][p]["displayName"].is_null(), !result.people[p].displayName);
    }
    EXPECT_EQ(json["coverage"]["evidenceCount"].get<std::int64_t>(), result.coverage.evidenceCount);
    // The document of another writer is the same document for this reader.
    EXPECT_EQ(readResultText(json.dump(3, ' ', true), "escaped"), result);
  }
}

}  // namespace
}  // namespace vemra::documents
