#include "tests/apps/inspect/CaseText.hpp"
#include "tests/apps/inspect/Ran.hpp"

namespace vemra::inspect {
namespace {

class PicturelessTest : public ProgramTest {};

TEST_F(PicturelessTest, ReportsThatNoPictureIsDrawn) {
  file("case.json", withSteps(nothing, ""));
  const Ran ran = run("case.json --png out.png");
  EXPECT_EQ(ran.exitCode, 2);
  EXPECT_EQ(ran.output, "");
  EXPECT_NE(ran.diagnostics.find("draws no pictures"), std::string::npos) << ran.diagnostics;
  EXPECT_EQ(content("out.png"), "");
}

}  // namespace
}  // namespace vemra::inspect
