#include "apps/commandline/Farewell.hpp"
#include "apps/commandline/Words.hpp"

#include <sstream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

namespace vemra::commandline {
namespace {

using Words = std::vector<std::string>;

TEST(WordsTest, areThoseBehindTheProgramsName) {
  const char* const arguments[] = {"program", "a", "--b=c", ""};
  EXPECT_EQ(wordsOf(4, arguments), (Words{"a", "--b=c", ""}));
  EXPECT_EQ(wordsOf(1, arguments), Words{});
  EXPECT_EQ(wordsOf(0, arguments), Words{}) << "without even a name";
}

TEST(WordsTest, anOptionThatEndsInItsEqualsSignHasAnEmptyValue) {
  EXPECT_EQ(withEmptyValues({"--x=", "a", "--y=", "--x="}, {"--x", "--y"}),
            (Words{"--x", "", "a", "--y", "", "--x", ""}));
}

TEST(WordsTest, othersStayAsTheyAre) {
  const Words words = {"--x=a", "--x==", "--x", "--z=", "--xx=", "=", "", "x=", "--", "--x="};
  EXPECT_EQ(withEmptyValues(words, {"--x", "--y"}), words);
}

TEST(WordsTest, onlyTwoDashesEndTheOptions) {
  EXPECT_EQ(withEmptyValues({"", "-", "--x="}, {"--x"}), (Words{"", "-", "--x", ""}));
  EXPECT_EQ(withEmptyValues({"--", "--x="}, {"--x"}), (Words{"--", "--x="}));
}

TEST(WordsTest, theParserReadsThemInTheirOrder) {
  CLI::App app("test", "test");
  std::string option = "none";
  Words files;
  app.add_option("--x", option);
  app.add_option("FILE", files);
  parse(app, withEmptyValues({"--x=", "a", "b"}, {"--x"}));
  EXPECT_EQ(option, "");
  EXPECT_EQ(files, (Words{"a", "b"}));
}

TEST(FarewellTest, helpIsDoneAndAMistakeIsTwo) {
  const auto farewell = [](const Words& words) {
    CLI::App app("test", "test");
    try {
      parse(app, words);
    } catch (const CLI::ParseError& error) {
      return farewellOf(app, error);
    }
    return Farewell{-1, "", ""};
  };
  const Farewell help = farewell({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_NE(help.output, "");
  EXPECT_EQ(help.diagnostic, "");
  const Farewell mistake = farewell({"--nothing"});
  EXPECT_EQ(mistake.exitCode, 2);
  EXPECT_EQ(mistake.output, "");
  EXPECT_NE(mistake.diagnostic.find("--nothing"), std::string::npos) << mistake.diagnostic;
  std::ostringstream output;
  std::ostringstream diagnostics;
  EXPECT_EQ(say(mistake, output, diagnostics), 2);
  EXPECT_EQ(output.str(), "");
  EXPECT_EQ(diagnostics.str(), mistake.diagnostic);
  EXPECT_EQ(say(help, output, diagnostics), 0);
  EXPECT_EQ(output.str(), help.output);
  EXPECT_EQ(diagnostics.str(), mistake.diagnostic) << "nothing more";
}

}  // namespace
}  // namespace vemra::commandline
