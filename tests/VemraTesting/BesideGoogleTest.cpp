// A host's test: it uses the whole of `vemra` and writes GoogleTest's names as usual.

#include "VemraPlatform/ui/View.hpp"
#include "VemraTesting/Screen.hpp"

#include <gtest/gtest.h>

using namespace vemra;

namespace {

class HostsTest : public ::testing::Test {
 protected:
  int presses = 0;
  vemra::testing::Screen screen{
      ui::Button("Press", [this] { ++presses; }).accessibilityIdentifier("press")};
};

TEST_F(HostsTest, MayUseTheHarnessBesideGoogleTest) {
  screen.press(vemra::testing::button("Press"));
  EXPECT_EQ(presses, 1) << ::testing::PrintToString(presses);
}

}  // namespace
