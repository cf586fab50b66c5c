#include "apps/documents/DocumentError.hpp"

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

TEST(DocumentErrorTest, NamesFilePlaceAndProblem) {
  const DocumentError error("case.json", "/goal/title", "expected a string; found 12");
  EXPECT_STREQ(error.what(), "case.json: /goal/title: expected a string; found 12");
}

TEST(DocumentErrorTest, OmitsThePlaceOfTheWholeDocument) {
  EXPECT_STREQ(DocumentError("-", "", "expected an object; found 1").what(),
               "-: expected an object; found 1");
}

TEST(PointerTokenTest, EscapesTildeThenSolidus) {
  EXPECT_EQ(pointerToken("a/b"), "a~1b");
  EXPECT_EQ(pointerToken("m~n"), "m~0n");
  EXPECT_EQ(pointerToken("~1"), "~01");
  EXPECT_EQ(pointerToken("//~~"), "~1~1~0~0");
  EXPECT_EQ(pointerToken("\"\\ é"), "\"\\ é");
}

TEST(PointerTokenTest, StaysOnOneLine) {
  EXPECT_EQ(pointerToken("a\nb\x1B[31m\x7F"), "a\\nb\\x1b[31m\\x7f");
  EXPECT_EQ(pointerToken("a\u2028b\u009Bc"), "a\\u2028b\\u009bc");
}

TEST(PointerTokenTest, KeepsAUsualKeyWholeAndCutsAHugeKey) {
  EXPECT_EQ(pointerToken(std::string(200, 'k')), std::string(200, 'k'));
  EXPECT_EQ(pointerToken(std::string(201, 'k')), std::string(200, 'k') + "…");
}

TEST(InQuotesTest, CutsAfterSixtyCharactersNotBytes) {
  std::string sixty;
  for (int i = 0; i < 60; ++i) sixty += "é";
  EXPECT_EQ(inQuotes(sixty), '"' + sixty + '"');
  EXPECT_EQ(inQuotes(sixty + "x"), '"' + sixty + "…\"");
}

TEST(InQuotesTest, StaysOnOneLineReadInOrder) {
  EXPECT_EQ(inQuotes("a\nb\u2028\u202Ec"), R"("a\nb\u2028\u202ec")");
  EXPECT_EQ(inQuotes("a\\nb"), R"("a\\nb")") << "a backslash is none of ours";
  EXPECT_EQ(inQuotes(std::string(60, '\n')).find("…"), std::string::npos) << "sixty are shown";
}

TEST(InQuotesTest, MarksQuotesAndReplacesBrokenBytes) {
  EXPECT_EQ(inQuotes("say \"no\""), "\"say \\\"no\\\"\"");
  EXPECT_EQ(inQuotes("a\xFFz\xC3"), "\"a\uFFFDz\uFFFD\"");
  EXPECT_EQ(inQuotes(""), "\"\"");
}

}  // namespace
}  // namespace vemra::documents
