#include "apps/commandline/Version.hpp"
#include "apps/inspect/Options.hpp"
#include "tests/apps/OptionsInPages.hpp"

#include <gtest/gtest.h>

namespace vemra::inspect {
namespace {

using commandline::EarlyExit;

std::variant<Options, EarlyExit> readArguments(std::vector<const char*> arguments,
                                               Pictures pictures = Pictures::drawn) {
  arguments.insert(arguments.begin(), "vemra-inspect");
  return readOptions(static_cast<int>(arguments.size()), arguments.data(), pictures);
}

TEST(OptionsTest, TakesOptionsBeforeAndAfterTheFile) {
  for (const auto& arguments : std::vector<std::vector<const char*>>{
           {"--trace", "--outline", "--png", "p.png", "case.json"},
           {"case.json", "--png", "p.png", "--outline", "--trace"},
           {"--png=p.png", "case.json", "--trace", "--outline"}}) {
    const auto options = std::get<Options>(readArguments(arguments));
    EXPECT_EQ(options.file, "case.json");
    EXPECT_TRUE(options.trace);
    EXPECT_TRUE(options.outline);
    EXPECT_EQ(options.png, "p.png");
  }
}

TEST(OptionsTest, IsPlainWithoutOptions) {
  const auto options = std::get<Options>(readArguments({"-"}));
  EXPECT_EQ(options.file, "-");
  EXPECT_FALSE(options.trace);
  EXPECT_FALSE(options.outline);
  EXPECT_EQ(options.png, std::nullopt);
}

TEST(OptionsTest, TakesTheSizeOfAViewport) {
  const auto options = std::get<Options>(readArguments({"--viewport", "80x24", "case.json"}));
  EXPECT_EQ(options.viewport, (page::Size{80, 24}));
  for (const char* edge : {"20x5", "500x200"}) {
    EXPECT_TRUE(std::holds_alternative<Options>(readArguments({"--viewport", edge, "c.json"})));
  }
  EXPECT_EQ(std::get<Options>(readArguments({"case.json"})).viewport, std::nullopt);
}

TEST(OptionsTest, RefusesAnInvalidSizeOfAViewport) {
  for (const char* size : {"", "80", "80x", "x24", "80X24", "80 x 24", "19x24", "80x4", "501x24",
                           "80x201", "-80x24", "+80x24", "80x24x", "99999999999x24", "0x50x18"}) {
    const auto read = readArguments({"case.json", "--viewport", size});
    const auto* const earlyExit = std::get_if<EarlyExit>(&read);
    ASSERT_TRUE(earlyExit) << size;
    EXPECT_EQ(earlyExit->exitCode, 2) << size;
  }
}

TEST(OptionsTest, AViewportReplacesTheOtherReports) {
  for (const char* other : {"--outline", "--trace"}) {
    EXPECT_TRUE(std::holds_alternative<EarlyExit>(
        readArguments({"case.json", "--viewport", "80x24", other})));
  }
  EXPECT_TRUE(std::holds_alternative<Options>(
      readArguments({"case.json", "--viewport", "80x24", "--png", "p.png"})));
}

TEST(OptionsTest, TakesDashAmongOptions) {
  EXPECT_EQ(std::get<Options>(readArguments({"--trace", "-", "--outline"})).file, "-");
  EXPECT_EQ(std::get<Options>(readArguments({"-", "--trace"})).file, "-");
}

TEST(OptionsTest, TakesAFileThatLooksLikeAnOptionBehindTwoDashes) {
  EXPECT_EQ(std::get<Options>(readArguments({"--", "--trace"})).file, "--trace");
}

TEST(OptionsTest, TreatsAFlagGivenTwiceAsGivenOnce) {
  const auto options =
      std::get<Options>(readArguments({"--trace", "a.json", "--trace", "--outline", "--outline"}));
  EXPECT_TRUE(options.trace);
  EXPECT_TRUE(options.outline);
}

TEST(OptionsTest, TakesNamesUnchanged) {
  for (const char* name : {"[a].json", "a=b", "a b", "é", "%{x}", "\"q\"", "'q'", "{}"}) {
    const auto options = std::get<Options>(readArguments({name, "--png", name}));
    EXPECT_EQ(options.file, name);
    EXPECT_EQ(options.png, name);
  }
  EXPECT_EQ(std::get<Options>(readArguments({"--png", "./-", "--", "--png="})).file, "--png=");
}

TEST(OptionsTest, RefusesOtherCommandLines) {
  const std::pair<std::vector<const char*>, const char*> lines[] = {
      {{}, "CASE"},
      {{"--trace"}, "CASE"},
      {{"a.json", "b.json"}, "b.json"},
      {{"-", "-"}, "-"},
      {{"a.json", "--colour"}, "--colour"},
      {{"a.json", "-x"}, "-x"},
      {{"a.json", "-trace"}, "-trace"},
      {{"a.json", "--Trace"}, "--Trace"},
      {{"a.json", "--trac"}, "--trac"},
      {{"a.json", "---trace"}, "---trace"},
      {{"a.json", "--trace=1"}, "--trace"},
      {{"a.json", "--trace="}, "--trace"},
      {{"a.json", "--outline=1"}, "--outline"},
      {{"a.json", "--png"}, "--png"},
      {{"a.json", "--png", "--trace"}, "--png"},
      {{"--png", "a.json"}, "CASE"},
      {{"a.json", "--png", ""}, "--png"},
      {{"a.json", "--png="}, "--png"},
      {{"--png=", "a.json"}, "--png"},
      {{"a.json", "--png", "-"}, "--png"},
      {{"a.json", "--png", "a.png", "--png", "b.png"}, "--png"},
      {{"a.json", "--png=a.png", "--png", "a.png"}, "--png"},
  };
  for (const auto& [arguments, named] : lines) {
    const auto answer = readArguments(arguments);
    ASSERT_TRUE(std::holds_alternative<EarlyExit>(answer)) << ::testing::PrintToString(arguments);
    const auto& earlyExit = std::get<EarlyExit>(answer);
    EXPECT_EQ(earlyExit.exitCode, 2) << ::testing::PrintToString(arguments);
    EXPECT_EQ(earlyExit.output, "") << ::testing::PrintToString(arguments);
    EXPECT_NE(earlyExit.diagnostic.find(named), std::string::npos)
        << ::testing::PrintToString(arguments) << ": " << earlyExit.diagnostic;
  }
}

TEST(OptionsTest, WritesTheVersion) {
  const auto earlyExit = std::get<EarlyExit>(readArguments({"--version"}));
  EXPECT_EQ(earlyExit.exitCode, 0);
  EXPECT_EQ(earlyExit.output, "vemra-inspect " + commandline::version() + "\n");
}

TEST(OptionsTest, AreThoseOfTheManualPageAndTheCompletion) {
  using commandline::sample::fileText, commandline::sample::optionsIn;
  const auto options = optionsIn(std::get<EarlyExit>(readArguments({"--help"})).output);
  EXPECT_EQ(options.count("--png"), 1u);
  EXPECT_EQ(optionsIn(fileText("packaging/man/vemra-inspect.1.in")), options);
  EXPECT_EQ(optionsIn(fileText("packaging/completions/vemra-inspect")), options);
}

TEST(OptionsTest, Helps) {
  const auto earlyExit = std::get<EarlyExit>(readArguments({"--help"}));
  EXPECT_EQ(earlyExit.exitCode, 0);
  EXPECT_EQ(earlyExit.diagnostic, "");
  for (const char* part : {"vemra-inspect", "CASE", "--trace", "--outline", "--png"}) {
    EXPECT_NE(earlyExit.output.find(part), std::string::npos) << earlyExit.output;
  }
}

TEST(OptionsTest, RefusesAPictureThatCannotBeDrawn) {
  const auto earlyExit =
      std::get<EarlyExit>(readArguments({"a.json", "--png", "p.png"}, Pictures::notDrawn));
  EXPECT_EQ(earlyExit.exitCode, 2);
  EXPECT_NE(earlyExit.diagnostic.find("draws no pictures"), std::string::npos);
}

}  // namespace
}  // namespace vemra::inspect
