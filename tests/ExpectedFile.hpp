#pragma once

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace vemra::testing {

/// Compares a text with the file of that name in tests/expected, byte for byte. With
/// VEMRA_UPDATE_EXPECTED=1 in the environment it writes the file first.
inline void expectAsInFile(const std::string& actual, const std::string& name) {
  const std::string path = std::string(VEMRA_REPOSITORY) + "/tests/expected/" + name;
  const char* const update = std::getenv("VEMRA_UPDATE_EXPECTED");
  if (update && std::string_view(update) == "1") {
    std::ofstream out(path, std::ios::binary);
    ASSERT_TRUE(out << actual << std::flush) << path << " cannot be written";
  }
  std::ifstream file(path, std::ios::binary);
  ASSERT_TRUE(file) << path << " is missing; VEMRA_UPDATE_EXPECTED=1 writes it";
  std::stringstream expected;
  expected << file.rdbuf();
  EXPECT_EQ(actual, expected.str()) << path << "; VEMRA_UPDATE_EXPECTED=1 rewrites it";
}

}  // namespace vemra::testing
