#include "scripts/mutation/Switch.hpp"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

// Linked into every test program of the build that `scripts/mutate` makes. Passes the name of the running
// test to the switch, and to the programs that the test starts.
namespace {

class Listener : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo& test) override { begin(name(test)); }
  void OnTestEnd(const testing::TestInfo&) override { begin(""); }

  static std::string name(const testing::TestInfo& test) {
    return std::string(test.test_suite_name()) + "." + test.name();
  }
  static void begin(const std::string& name) {
    if (std::getenv("VEMRA_MUTANTS_REACHED") == nullptr) return;
    ::setenv("VEMRA_MUTANTS_TEST", name.c_str(), 1);
    vemra_mutants::beginTest(name.c_str());
  }
};

[[maybe_unused]] const bool listening = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new Listener);
  return true;
}();

}  // namespace
