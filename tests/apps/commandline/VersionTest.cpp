#include "apps/commandline/Farewell.hpp"
#include "apps/commandline/Version.hpp"
#include "apps/commandline/Words.hpp"

#include <fstream>

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

namespace vemra::commandline {
namespace {

TEST(VersionTest, IsTheOneOfTheRepository) {
  std::ifstream file(VEMRA_REPOSITORY "/VERSION");
  std::string line;
  ASSERT_TRUE(std::getline(file, line));
  EXPECT_EQ(version(), line);
  EXPECT_FALSE(std::getline(file, line)) << "one line";
}

TEST(VersionTest, IsWrittenBehindTheProgramsNameWithoutWhatElseIsRequired) {
  CLI::App app("A program", "program");
  std::string file;
  app.add_option("FILE", file)->required();
  offerVersion(app);
  try {
    parse(app, {"--version"});
    FAIL() << "--version ends the command line";
  } catch (const CLI::ParseError& error) {
    const Farewell farewell = farewellOf(app, error);
    EXPECT_EQ(farewell.exitCode, 0);
    EXPECT_EQ(farewell.output, "program " + version() + "\n");
    EXPECT_EQ(farewell.diagnostic, "");
  }
}

}  // namespace
}  // namespace vemra::commandline
