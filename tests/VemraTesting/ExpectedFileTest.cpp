#include "tests/ExpectedFile.hpp"

#include <optional>
#include <stdlib.h>
#include <string>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace vemra::testing {

namespace {

constexpr const char* variable = "VEMRA_UPDATE_EXPECTED";

/// Sets or clears the switch, and restores its previous value at the end.
class ExpectedFileTest : public ::testing::Test {
 protected:
  ExpectedFileTest() {
    if (const char* value = ::getenv(variable)) before_ = value;
  }
  ~ExpectedFileTest() override {
    before_ ? ::setenv(variable, before_->c_str(), 1) : ::unsetenv(variable);
  }

 private:
  std::optional<std::string> before_;
};

}  // namespace

TEST_F(ExpectedFileTest, ADifferentTextIsAFailure) {
  ::unsetenv(variable);
  EXPECT_NONFATAL_FAILURE(expectAsInFile("another text", "outline.txt"), "another text");
}

TEST_F(ExpectedFileTest, AMissingFileIsAFailure) {
  ::unsetenv(variable);
  EXPECT_FATAL_FAILURE(expectAsInFile("", "none.txt"), "none.txt is missing");
}

TEST_F(ExpectedFileTest, AFileThatCannotBeWrittenIsAFailure) {
  ::setenv(variable, "1", 1);
  EXPECT_FATAL_FAILURE(expectAsInFile("text", "no/such/folder.txt"), "cannot be written");
}

}  // namespace vemra::testing
