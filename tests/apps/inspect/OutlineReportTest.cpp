#include "tests/apps/inspect/CaseText.hpp"
#include "tests/apps/inspect/Ran.hpp"

namespace vemra::inspect {
namespace {

class OutlineReportTest : public ProgramTest {};

TEST_F(OutlineReportTest, WritesStepsCallsAndTheTree) {
  const Ran ran =
      run("- --outline", withSteps(oneOfEach, press("x") + R"(, {"press": {"title": "Ada"}})"));
  EXPECT_EQ(ran.exitCode, 1);
  const std::string start =
      "step 1: press \"x\": error: no element with identifier \"x\"\n"
      "step 2: press button \"Ada\" at index 0: done\n"
      "call: {\"callback\": \"onOpenPerson\", \"argument\": \"p1\"}\n\n"
      "GoalResultView\n  ScrollView\n    VStack leading 20 .padding(24)\n";
  EXPECT_EQ(ran.output.substr(0, start.size()), start);
  const Ran traced = run("--trace --outline -", withSteps(oneOfEach, press("x")));
  EXPECT_NE(traced.output.find("\n\nGoalResultView\n"), std::string::npos) << traced.output;
}

TEST_F(OutlineReportTest, WritesEveryKindOfStepInWords) {
  const std::string control = "vemra.goal.person.p1.outcome.";
  const Ran ran =
      run("- --outline",
          withSteps(oneOfEach, press(control + "correct") + R"(, {"select": ")" + control +
                                   R"(picker", "value": "notAFit"}, {"type": ")" + control +
                                   R"(note", "text": "a \"word\""}, {"submit": ")" + control +
                                   R"(note"}, {"result": )" + nothing + R"(}, {"submit": "x"})"));
  EXPECT_EQ(ran.exitCode, 1) << ran.diagnostics;
  const std::string said = ran.output.substr(0, ran.output.find("\n\n"));
  EXPECT_EQ(said, "step 1: press \"" + control + "correct\": done\n" +
                      "step 2: select notAFit in \"" + control + "picker\": done\n" +
                      "step 3: type \"a \\\"word\\\"\" into \"" + control + "note\": done\n" +
                      "step 4: submit \"" + control + "note\": done\n" +
                      "step 5: hand in a new result: done\n"
                      "step 6: submit \"x\": error: no element with identifier \"x\"");
}

TEST_F(OutlineReportTest, AStepIsOneLineWhateverItContains) {
  const Ran ran =
      run("- --outline", withSteps(oneOfEach, press(R"(a\nstep 9: press \"b\": done)")));
  const std::string line = R"(step 1: press "a\nstep 9: press \"b\": done": )"
                           R"(error: no element with identifier "a\nstep 9: press \"b\": done")";
  EXPECT_EQ(ran.output.substr(0, ran.output.find('\n')), line);
}

TEST_F(OutlineReportTest, WritesTheTreeOnceAtTheEndOrAfterEachStep) {
  const auto treesIn = [](const std::string& text) {
    int trees = 0;
    for (std::size_t at = 0; (at = text.find("GoalResultView\n", at)) != std::string::npos; ++at) {
      ++trees;
    }
    return trees;
  };
  const std::string none = run("- --outline", caseOf(nothing)).output;
  EXPECT_TRUE(none.starts_with("GoalResultView\n")) << none;
  EXPECT_EQ(treesIn(none), 1);
  EXPECT_EQ(run("- --outline --trace", caseOf(nothing)).output, none)
      << "there is no step to trace";

  const std::string twoSteps = withSteps(nothing, press("x") + ", " + press("y"));
  const std::string plain = run("- --outline", twoSteps).output;
  EXPECT_EQ(treesIn(plain), 1);
  EXPECT_NE(plain.find("\n\nGoalResultView\n"), std::string::npos) << plain;
  const std::string traced = run("- --outline --trace", twoSteps).output;
  EXPECT_EQ(treesIn(traced), 2) << traced;
  EXPECT_FALSE(traced.ends_with("\n\n\n")) << traced;
}

}  // namespace
}  // namespace vemra::inspect
