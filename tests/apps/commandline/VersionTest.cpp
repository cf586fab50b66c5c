#include "apps/commandline/Version.hpp"

#include <fstream>

#include <gtest/gtest.h>

namespace vemra::commandline {
namespace {

TEST(VersionTest, IsTheVersionOfTheRepository) {
  std::ifstream file(VEMRA_REPOSITORY "/VERSION");
  std::string line;
  ASSERT_TRUE(std::getline(file, line));
  EXPECT_EQ(version(), line);
  EXPECT_FALSE(std::getline(file, line)) << "one line";
}

}  // namespace
}  // namespace vemra::commandline
