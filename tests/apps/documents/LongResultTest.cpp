#include "apps/documents/DocumentError.hpp"
#include "apps/documents/ResultReader.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/documents/LongResult.hpp"

#include <string>

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

template <class Read>
std::string messageOf(const Read& read) {
  try {
    read();
  } catch (const DocumentError& error) {
    return error.what();
  }
  return "no error";
}

TEST(LongResultTest, AFileIsReadAsItsText) {
  const TemporaryFolder folder;
  const std::string text = longResult();
  ASSERT_GT(text.size(), std::size_t{12'000'000});
  const std::string path = folder.write("long.json", text);
  const GetGoalSnapshotResponse result = readResultFile(path);
  EXPECT_EQ(result.people.size(), 85'001U);
  EXPECT_EQ(result.people[0].displayName, "Ren\u00e9 \"\n0\" Zo\u00EB");
  EXPECT_EQ(result.people[85'000].evidenceIDs[1], "\U0001F600");
  // Not EXPECT_EQ, which would search for the difference in megabytes of text.
  EXPECT_TRUE(writeResult(result) == writeResult(readResultText(text, path)));
}

TEST(LongResultTest, AFaultAtTheEndHasTheSameMessage) {
  const TemporaryFolder folder;
  const std::string text = longResultWithFault();
  const std::string path = folder.write("long.json", text);
  const std::string message = messageOf([&] { readResultText(text, path); });
  EXPECT_NE(message.find("/people/85000/why/hopCount"), std::string::npos) << message;
  EXPECT_EQ(messageOf([&] { readResultFile(path); }), message);
  const std::string cut = folder.write("cut.json", text.substr(0, text.size() - 300));
  const std::string end = messageOf([&] { readResultText(folder.read("cut.json"), cut); });
  EXPECT_NE(end.find("line 850"), std::string::npos) << end;
  EXPECT_EQ(messageOf([&] { readResultFile(cut); }), end);
}

}  // namespace
}  // namespace vemra::documents
