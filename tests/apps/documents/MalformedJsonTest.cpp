#include "tests/apps/documents/Malformed.hpp"
#include "tests/apps/documents/SampleResult.hpp"

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

class MalformedJsonTest : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedJsonTest, NamesFilePlaceAndExpectation) {
  const auto& [what, by, message] = GetParam();
  EXPECT_EQ(errorIn(replacing(sampleResult, what, by)), message);
}

// The tests of the reader list the ways in which a document can be broken.
const Malformed syntax[] = {
    {"{\n  \"goal\"", "\xEF\xBB\xBF{\n  \"goal\"",
     "case.json: line 1, column 1: expected UTF-8 without a byte-order mark; found U+FEFF"},
    {"Ada", "Ad\xC3",
     "case.json: /people/0/displayName: line 7, column 43: expected UTF-8; found the byte 0xC3"},
    {"\"personRef\": \"p1\"", "\"person\xFFRef\": \"p1\"",
     "case.json: /people/0: line 7, column 13: expected UTF-8; found the byte 0xFF"},
    {"\"people\": [", "\"people\": \xFF[",
     "case.json: /people: line 6, column 13: expected UTF-8; found the byte 0xFF"},
    {"\"hopCount\": 2", "\"hopCount\": 2x",
     "case.json: /people/0/why: line 7, column 90: expected \",\" or \"}\"; found \"x\""},
    {"\"hopCount\": 2", "\"hopCount\": ",
     "case.json: /people/0/why/hopCount: line 7, column 89: expected an integer from "
     "-9223372036854775808 to 9223372036854775807, without fraction or exponent; found \"}\""},
    {"\"displayName\": null", "\"displayName\": Null",
     "case.json: /people/1/displayName: line 9, column 40: expected a string or null; found "
     "\"Null\""},
};
INSTANTIATE_TEST_SUITE_P(syntax, MalformedJsonTest, testing::ValuesIn(syntax));

TEST(MalformedJsonTest, RefusesTextBehindTheDocument) {
  EXPECT_EQ(errorIn(sampleResult + " \n"), "");
  EXPECT_EQ(errorIn(sampleResult + "x"),
            "case.json: line 24, column 2: expected the end of the document; found \"x\"");
  EXPECT_EQ(errorIn(sampleResult + "\n{}"),
            "case.json: line 25, column 1: expected the end of the document; found \"{\"");
  EXPECT_EQ(errorIn(sampleResult + std::string(1, '\0')),
            "case.json: line 24, column 2: expected the end of the document; found \"\\x00\"");
  EXPECT_EQ(errorIn(sampleResult + "\xFF"),
            "case.json: line 24, column 2: expected UTF-8; found the byte 0xFF");
}

TEST(MalformedJsonTest, RefusesEveryBeginningOfADocument) {
  for (std::size_t length = 0; length < sampleResult.size(); ++length) {
    const std::string error = errorIn(std::string_view(sampleResult).substr(0, length));
    EXPECT_TRUE(error.ends_with("; found the end of the file") ||
                // A number or word that is cut short is reported in its short form.
                error.find("expected null; found") != std::string::npos)
        << length << ": " << error;
  }
}

TEST(MalformedJsonTest, RefusesAnEmptyText) {
  EXPECT_EQ(errorIn(""),
            "case.json: line 1, column 1: expected an object; found the end of the file");
  EXPECT_EQ(errorIn(" \n"),
            "case.json: line 2, column 1: expected an object; found the end of the file");
}

}  // namespace
}  // namespace vemra::documents
