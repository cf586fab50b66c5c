#include "VemraPlatform/ui/Environment.hpp"
#include "apps/commandline/Version.hpp"
#include "apps/documents/DocumentError.hpp"
#include "apps/inspect/Case.hpp"
#include "apps/inspect/Inspection.hpp"
#include "tests/apps/inspect/CaseText.hpp"
#include "tests/apps/inspect/Ran.hpp"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::inspect {
namespace {

/// What a program that records adds to a case.
class RecordedCaseTest : public ProgramTest {
 protected:
  static std::string recordedBy(const std::string& version) {
    return R"(, "recorded": {"program": "vemra-desk", "version": ")" + version +
           R"(", "texts": "plain"})";
  }
  /// The reason why a step makes the input unusable.
  static std::string errorOf(const std::string& steps) {
    try {
      readCase(withSteps(oneOfEach, steps), "case.json", {});
    } catch (const documents::DocumentError& error) {
      return error.what();
    }
    return "none";
  }
  /// What came of the steps: "" for one that was carried out.
  static std::vector<std::string> resultsOf(const std::string& result, const std::string& steps) {
    const Case inspected = readCase(withSteps(result, steps), "case.json", {});
    Inspection inspection(inspected);
    std::vector<std::string> results;
    for (const Step& step : inspected.steps) {
      results.push_back(inspection.carryOut(step).value_or(""));
    }
    return results;
  }
};

TEST_F(RecordedCaseTest, AResultOnOneMoreScreenLeavesTheFirstAsItIs) {
  const Case inspected = readCase(
      withSteps(oneOfEach, press("vemra.goal.person.p1.outcome.correct") +
                               R"(, {"screen": 1, "result": )" + nothing + R"(}, {"screen": 0})"),
      "case.json", {});
  Inspection inspection(inspected);
  const std::string note = "vemra.goal.person.p1.outcome.note";
  inspection.carryOut(inspected.steps[0]);
  EXPECT_TRUE(inspection.screen().has(note));
  inspection.carryOut(inspected.steps[1]);
  EXPECT_FALSE(inspection.screen().has(note)) << "another screen";
  inspection.carryOut(inspected.steps[2]);
  EXPECT_TRUE(inspection.screen().has(note)) << "the open editor is still there";
}

TEST_F(RecordedCaseTest, TheIndexCountsTheElementsThatShareAnIdentifier) {
  const std::string twins = R"json({"goal": {"id": "", "title": ""},
    "people": [{"personRef": "p", "why": {"kind": "generic"}},
               {"personRef": "p", "why": {"kind": "generic"}}],
    "paths": [], "group": [], "coverage": {"sources": [], "evidenceCount": 0}, "outcomes": []})json";
  const std::string start = R"({"press": {"identifier": "vemra.goal.person.p.outcome.start", )";
  EXPECT_EQ(resultsOf(twins, start + R"("index": 1}}, )" +
                                 R"({"type": "vemra.goal.person.p.outcome.note", "text": "a", )"
                                 R"("index": 0}, )" +
                                 start + R"("index": 1}})"),
            (std::vector<std::string>{
                "", "",
                "no element with identifier \"vemra.goal.person.p.outcome.start\" at index 1: "
                "there are 1"}));
}

TEST_F(RecordedCaseTest, ACallStepNamesTheNextCallThatNoStepHasNamed) {
  const std::string name = R"({"press": {"title": "Ada"}}, )";
  const std::string opened = R"({"call": {"argument": "p1", "callback": "onOpenPerson"}})";
  EXPECT_EQ(resultsOf(oneOfEach, name + opened), (std::vector<std::string>{"", ""}));
  EXPECT_EQ(resultsOf(oneOfEach, opened),
            (std::vector<std::string>{"expected the call {\"callback\": \"onOpenPerson\", "
                                      "\"argument\": \"p1\"}; found none"}));
  EXPECT_EQ(
      resultsOf(oneOfEach, name + R"({"call": {"callback": "onShowEvidence", "argument": "p1"}})"),
      (std::vector<std::string>{
          "",
          "expected the call {\"callback\": \"onShowEvidence\", \"argument\": \"p1\"}; "
          "found {\"callback\": \"onOpenPerson\", \"argument\": \"p1\"}"}));
}

TEST_F(RecordedCaseTest, ACallThatNoStepOfARecordingNamesIsAnError) {
  const std::string twice = R"("steps": [{"press": {"title": "Ada"}}, {"press": {"title": "Ada"}})";
  const std::string opened = R"({"callback": "onOpenPerson", "argument": "p1"})";
  const std::string recorded = recordedBy(commandline::version()) + ", " + twice;
  const std::string message = "-: after the last step: expected no further call; found ";
  for (const char* const options : {"-", "--outline -", "--viewport 80x24 -"}) {
    const Ran none = run(options, caseOf(oneOfEach, recorded + "]"));
    EXPECT_EQ(none.exitCode, 1) << options;
    EXPECT_EQ(none.diagnostics, message + opened + " and 1 more\n");
    const Ran one = run(options, caseOf(oneOfEach, recorded + R"(, {"call": )" + opened + "}]"));
    EXPECT_EQ(one.exitCode, 1) << options;
    EXPECT_EQ(one.diagnostics, message + opened + "\n");
  }
  const std::string call = R"(, {"call": )" + opened + "}";
  EXPECT_EQ(run("-", caseOf(oneOfEach, recorded + call + call + "]")).exitCode, 0);
  EXPECT_EQ(run("-", caseOf(oneOfEach, ", " + twice + call + "]")).exitCode, 1)
      << "a case that names one call names all";
  EXPECT_EQ(run("-", caseOf(oneOfEach, ", " + twice + "]")).exitCode, 0)
      << "a case that names none is no recording";
}

TEST_F(RecordedCaseTest, EveryCallOfAReportIsACallStep) {
  const std::string act =
      R"({"press": {"title": "Ada"}}, {"press": "vemra.goal.person.p1.show-source"},)"
      R"({"press": "vemra.goal.path.see-in-starfold"},)"
      R"({"press": "vemra.goal.person.p1.outcome.correct"},)"
      R"({"press": "vemra.goal.person.p1.outcome.save"})";
  std::string steps = act;
  const auto acted = inspect(withSteps(oneOfEach, act));
  for (const auto& call : acted["calls"]) {
    steps += R"(, {"call": )" + call.dump() + '}';
  }
  const auto report = inspect(withSteps(oneOfEach, steps));
  EXPECT_EQ(report["calls"].size(), 4U);
  EXPECT_EQ(report["steps"].size(), 9U);
}

TEST_F(RecordedCaseTest, WrongStepsOfARecordingAreInputErrors) {
  const std::pair<std::string, std::string> cases[] = {
      {R"({"screen": 1})", "/steps/0/screen: expected a screen from 0 to 0; found 1"},
      {R"({"screen": 2, "result": )" + nothing + "}",
       "/steps/0/screen: expected a screen from 0 to 1; found 2"},
      {R"({"screen": -1})", "/steps/0/screen: expected an integer from 0; found -1"},
      {R"({"screen": 0, "press": "a"})",
       "/steps/0/screen: expected one act a step; found \"screen\" beside \"press\""},
      {R"({"press": "a", "index": 0})",
       "/steps/0/index: expected no such key beside \"press\"; found \"index\""},
      {R"({"press": {"title": "a", "identifier": "b"}})",
       "/steps/0/press/identifier: expected no identifier beside a title; found both"},
      {R"({"call": {"callback": "onClose", "argument": "a"}})",
       "/steps/0/call/callback: expected one of onOpenPerson, onShowEvidence, "
       "onFocusPathInStarfold, onRecordOutcome; found \"onClose\""},
      {R"({"call": {"callback": "onOpenPerson", "argument": {}}})",
       "/steps/0/call/argument: expected the argument of onOpenPerson; found the argument of "
       "another callback"},
      {R"({"call": {"callback": "onRecordOutcome", "argument": "a"}})",
       "/steps/0/call/argument: expected the argument of onRecordOutcome; found the argument of "
       "another callback"},
  };
  for (const auto& [step, message] : cases) EXPECT_EQ(errorOf(step), "case.json: " + message);
}

TEST_F(RecordedCaseTest, ACaseOfAnotherVersionSaysWhich) {
  const std::string line =
      "recorded by vemra-desk 0.0.1, this is version " + commandline::version() + '\n';
  const Ran ran = run("--outline -", caseOf(nothing, recordedBy("0.0.1")));
  EXPECT_EQ(ran.exitCode, 0);
  EXPECT_EQ(ran.diagnostics, "-: " + line);

  const Ran broken = run("-", "{" + recordedBy("0.0.1").substr(2) + R"(, "result": )" + nothing +
                                  R"(, "sound": "on"})");
  EXPECT_EQ(broken.exitCode, 2);
  EXPECT_EQ(broken.output, "");
  EXPECT_EQ(broken.diagnostics,
            "-: /sound: expected one of the keys result, locale, timeZone, "
            "strings, steps, recorded; found \"sound\"; " +
                line);
  EXPECT_EQ(run("-", caseOf(nothing, recordedBy(commandline::version()))).diagnostics, "");
}

}  // namespace
}  // namespace vemra::inspect
