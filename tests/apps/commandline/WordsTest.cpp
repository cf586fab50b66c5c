#include "apps/commandline/Words.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::commandline {
namespace {

using Words = std::vector<std::string>;

TEST(WordsTest, AreTheArgumentsBehindTheProgramsName) {
  const char* const arguments[] = {"program", "a", "--b=c", ""};
  EXPECT_EQ(wordsOf(4, arguments), (Words{"a", "--b=c", ""}));
  EXPECT_EQ(wordsOf(1, arguments), Words{});
  EXPECT_EQ(wordsOf(0, arguments), Words{}) << "without even a name";
}

TEST(WordsTest, AnOptionThatEndsInItsEqualsSignHasAnEmptyValue) {
  EXPECT_EQ(withEmptyValues({"--x=", "a", "--y=", "--x="}, {"--x", "--y"}),
            (Words{"--x", "", "a", "--y", "", "--x", ""}));
}

TEST(WordsTest, OtherWordsStayUnchanged) {
  const Words words = {"--x=a", "--x==", "--x", "--z=", "--xx=", "=", "", "x=", "--", "--x="};
  EXPECT_EQ(withEmptyValues(words, {"--x", "--y"}), words);
}

TEST(WordsTest, OnlyTwoDashesEndTheOptions) {
  EXPECT_EQ(withEmptyValues({"", "-", "--x="}, {"--x"}), (Words{"", "-", "--x", ""}));
  EXPECT_EQ(withEmptyValues({"--", "--x="}, {"--x"}), (Words{"--", "--x="}));
}

}  // namespace
}  // namespace vemra::commandline
