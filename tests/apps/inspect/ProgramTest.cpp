#include "tests/apps/inspect/CaseText.hpp"
#include "tests/apps/inspect/Ran.hpp"

namespace vemra::inspect {
namespace {

using nlohmann::ordered_json;

const std::string onPerson = "vemra.goal.person.p1.outcome.";

TEST_F(ProgramTest, WritesOneDocument) {
  const ordered_json document = inspect(withSteps(oneOfEach, ""));
  EXPECT_EQ(document["steps"], ordered_json::array());
  EXPECT_EQ(document["calls"], ordered_json::array());
  EXPECT_EQ(document["tree"]["element"], "ScrollView");
  std::vector<std::string> keys;
  for (const auto& entry : document.items()) keys.push_back(entry.key());
  EXPECT_EQ(keys, (std::vector<std::string>{"steps", "calls", "tree"}));
}

TEST_F(ProgramTest, WritesTheCallbacksOfTheScreen) {
  const auto document = inspect(withSteps(oneOfEach, R"({"press": {"title": "Ada"}},
      {"press": "vemra.goal.person.p1.show-source"}, {"press": "vemra.goal.path.see-in-starfold"},)" +
                                                         press(onPerson + "correct") + R"(,
      {"select": "vemra.goal.person.p1.outcome.picker", "value": "somethingElse"},
      {"type": "vemra.goal.person.p1.outcome.note", "text": " met at the fair\n"},
      {"submit": "vemra.goal.person.p1.outcome.note"},)" +
                                                         press(onPerson + "save")));
  for (const auto& step : document["steps"]) EXPECT_EQ(step.dump(), R"({"ok":true})");
  EXPECT_EQ(document["steps"].size(), 8U);
  EXPECT_EQ(document["calls"].dump(1), ordered_json::parse(R"json([
    {"callback": "onOpenPerson", "argument": "p1"},
    {"callback": "onShowEvidence", "argument": "ev9"},
    {"callback": "onFocusPathInStarfold",
     "argument": {"personRefs": ["p1", "p9"], "why": {"kind": "nameMatch"}}},
    {"callback": "onRecordOutcome",
     "argument": {"subjectKind": "person", "subjectRef": "p1", "outcome": "somethingElse",
                  "note": "met at the fair", "correctsOutcomeID": "o1"}}
  ])json")
                                           .dump(1));
}

TEST_F(ProgramTest, WritesWhatAPersonSeesInAViewport) {
  const Ran ran = run("--viewport 44x24 -",
                      withSteps(oneOfEach, press(onPerson + "correct") + ", " + press("nothing")));
  EXPECT_EQ(ran.output,
            "\n"
            "   Find a design lead\n"
            "\n"
            "   People worth considering\n"
            "\n"
            "   <Ada>\n"
            "   Connected through 1 shared\n"
            "   relationship\n"
            "   [Show source]\n"
            "   [Helped          v]\n"
            "   [Note (optional): a note_____________]\n"
            "   [Save]  [Cancel]\n"
            "\n"
            "   Supported path\n"
            "\n"
            "   Matches on name\n"
            "   [See in Starfold]\n"
            "   [Record outcome]\n"
            "\n"
            "   Based on 12 piece(s) of evidence from\n"
            "   Mail, through Jan 5, 2025.\n"
            "\n"
            "\n"
            "\n");
  EXPECT_EQ(ran.diagnostics, "-: step 2: no element with identifier \"nothing\"\n");
  EXPECT_EQ(ran.exitCode, 1);
}

TEST_F(ProgramTest, WritesNilsOfARecordingAsNull) {
  const std::string result = replacing(oneOfEach, R"(["p1", "p9"])", "[]");
  const auto document = inspect(withSteps(result, press("vemra.goal.path.outcome.start") + "," +
                                                      press("vemra.goal.path.outcome.save")));
  EXPECT_EQ(document["calls"][0]["argument"].dump(),
            R"({"subjectKind":"path","subjectRef":null,"outcome":"wasUseful","note":null,)"
            R"("correctsOutcomeID":null})");
}

TEST_F(ProgramTest, WritesAnEngineFieldOfThePathOnlyWhenItIsSet) {
  const std::string result = replacing(oneOfEach, R"("why": {"kind": "nameMatch"})",
                                       R"("strength": -7, "why": {"kind": "nameMatch"})");
  const auto document = inspect(withSteps(result, press("vemra.goal.path.see-in-starfold")));
  EXPECT_EQ(document["calls"][0]["argument"].dump(),
            R"({"personRefs":["p1","p9"],"why":{"kind":"nameMatch"},"strength":-7})");
}

TEST_F(ProgramTest, ReportsAStepThatCannotBeCarriedOutAndContinues) {
  const Ran ran = run(
      "-", withSteps(oneOfEach, press("x") + "," + press(onPerson + "correct") + R"(,
      {"select": "vemra.goal.person.p1.outcome.picker", "value": "somethingElse"},
      {"type": "vemra.goal.person.p1.outcome.note", "text": "  "},)" +
                                    press(onPerson + "save") + "," + press(onPerson + "note") + R"(,
      {"type": "vemra.goal.person.p1.outcome.picker", "text": "a"},
      {"select": "vemra.goal.person.p1.outcome.note", "value": "helped"},
      {"submit": "vemra.goal.person.p1.outcome.save"},
      {"press": {"title": "Ada", "index": 1}}, {"press": {"title": "ada"}},
      {"press": {"title": "Find a design lead"}},
      {"press": {"title": "Ada"}})"));
  EXPECT_EQ(ran.exitCode, 1);
  EXPECT_EQ(ran.diagnostics, "");
  const ordered_json document = ran.json();
  const auto& steps = document["steps"];
  ASSERT_EQ(steps.size(), 13U);
  EXPECT_EQ(steps[0].dump(), R"({"error":"no element with identifier \"x\""})");
  for (std::size_t ok : {1U, 2U, 3U, 12U}) EXPECT_EQ(steps[ok].dump(), R"({"ok":true})") << ok;
  EXPECT_EQ(steps[4]["error"],
            "element with identifier \"vemra.goal.person.p1.outcome.save\" is disabled");
  for (std::size_t failed : {5U, 6U, 7U, 8U, 9U, 10U, 11U}) {
    EXPECT_TRUE(steps[failed].contains("error")) << failed;
    EXPECT_EQ(steps[failed].size(), 1U) << failed;
  }
  EXPECT_EQ(document["calls"].size(), 1U) << "only the last press reached the host";
  EXPECT_NE(document["tree"].dump().find(R"("noteText":"  ")"), std::string::npos)
      << "a step that fails changes nothing";
}

TEST_F(ProgramTest, CountsDisabledButtonsAmongThoseOfATitle) {
  const std::string two = people(R"({"personRef": "p1", "why": {"kind": "generic"}},
                                    {"personRef": "p2", "why": {"kind": "generic"}})");
  const Ran ran = run("-", withSteps(two, press("vemra.goal.person.p1.outcome.start") + "," +
                                              press("vemra.goal.person.p2.outcome.start") + R"(,
      {"select": "vemra.goal.person.p1.outcome.picker", "value": "somethingElse"},
      {"press": {"title": "Save", "index": 0}}, {"press": {"title": "Save", "index": 1}})"));
  EXPECT_EQ(ran.exitCode, 1);
  const auto document = ran.json();
  EXPECT_TRUE(document["steps"][3].contains("error")) << "the first is disabled, not skipped";
  EXPECT_TRUE(document["steps"][4].contains("ok"));
  ASSERT_EQ(document["calls"].size(), 1U);
  EXPECT_EQ(document["calls"][0]["argument"]["subjectRef"], "p2");
}

TEST_F(ProgramTest, TakesAButtonsShownTitle) {
  const std::string more = R"(, "strings": {"Show source": "Quelle zeigen"}, "steps": [)";
  EXPECT_EQ(
      run("-", caseOf(oneOfEach, more + R"({"press": {"title": "Quelle zeigen"}}])")).exitCode, 0);
  EXPECT_EQ(run("-", caseOf(oneOfEach, more + R"({"press": {"title": "Show source"}}])")).exitCode,
            1);
}

TEST_F(ProgramTest, PressesTheFirstOfTwoElementsWithOneIdentifier) {
  const std::string two =
      people(R"({"personRef": "p1", "why": {"kind": "generic"}, "evidenceIDs": ["first"]},
                {"personRef": "p1", "why": {"kind": "generic"}, "evidenceIDs": ["second"]})");
  const auto document = inspect(withSteps(two, press("vemra.goal.person.p1.show-source")));
  EXPECT_EQ(document["calls"].dump(), R"([{"callback":"onShowEvidence","argument":"first"}])");
}

TEST_F(ProgramTest, TypesSelectsAndSubmitsInTheFirstOfTwoElementsWithOneIdentifier) {
  const std::string two = people(R"({"personRef": "p1", "why": {"kind": "generic"}},
                                    {"personRef": "p1", "why": {"kind": "generic"}})");
  const Ran ran = run("-", withSteps(two, R"({"press": {"title": "Record outcome", "index": 0}},
      {"press": {"title": "Record outcome", "index": 0}},
      {"select": "vemra.goal.person.p1.outcome.picker", "value": "helped"},
      {"type": "vemra.goal.person.p1.outcome.note", "text": "first"},
      {"submit": "vemra.goal.person.p1.outcome.note"}, {"press": {"title": "Save"}},
      {"press": {"title": "Save"}})"));
  EXPECT_EQ(ran.exitCode, 0) << ran.output.substr(0, 400);
  const auto calls = ran.json()["calls"];
  ASSERT_EQ(calls.size(), 2U);
  EXPECT_EQ(calls[0]["argument"]["outcome"], "helped");
  EXPECT_EQ(calls[0]["argument"]["note"], "first");
  EXPECT_EQ(calls[1]["argument"]["outcome"], "wasUseful");
  EXPECT_EQ(calls[1]["argument"]["note"], nullptr);
}

TEST_F(ProgramTest, MatchesIdentifiersAndTitlesByteForByte) {
  const std::string accented = people(R"({"personRef": "\u00e9", "displayName": "\u00e9",
                                          "why": {"kind": "generic"}, "evidenceIDs": ["e"]})");
  const Ran ran = run("-", withSteps(accented, R"({"press": "vemra.goal.person.\u00e9.show-source"},
      {"press": "vemra.goal.person.e\u0301.show-source"}, {"press": {"title": "\u00e9"}},
      {"press": {"title": "e\u0301"}})"));
  EXPECT_EQ(ran.exitCode, 1);
  const auto steps = ran.json()["steps"];
  for (std::size_t i = 0; i < 4; ++i) EXPECT_TRUE(steps[i].contains(i % 2 ? "error" : "ok")) << i;
}

TEST_F(ProgramTest, TakesANewResultFromTheHost) {
  const std::string later = replacing(oneOfEach, "\"o1\"", "\"o2\"");
  const auto document = inspect(withSteps(oneOfEach, press(onPerson + "correct") + R"(,
        {"type": "vemra.goal.person.p1.outcome.note", "text": "typed"},
        {"result": )" + later + "}," + press(onPerson + "save") +
                                                         R"(, {"result": )" + nothing + "}"));
  EXPECT_EQ(document["calls"][0]["argument"]["note"], "typed") << "the open editor stays";
  EXPECT_EQ(document["calls"][0]["argument"]["correctsOutcomeID"], "o2") << "the new record";
  EXPECT_NE(document["tree"].dump().find("No relevant people found yet."), std::string::npos);
}

TEST_F(ProgramTest, KeepsTypedLineBreaks) {
  const auto document = inspect(withSteps(oneOfEach, press(onPerson + "correct") + R"(,
        {"type": "vemra.goal.person.p1.outcome.note", "text": "one\ntwo\r\n\u2028three"},)" +
                                                         press(onPerson + "save")));
  EXPECT_EQ(document["calls"][0]["argument"]["note"], "one\ntwo\r\n\u2028three");
}

TEST_F(ProgramTest, TracesTheTreeAfterEachStep) {
  const std::string text = withSteps(
      oneOfEach, press(onPerson + "correct") + "," + press("x") + "," + press(onPerson + "cancel"));
  for (const char* arguments : {"--trace -", "- --trace"}) {
    const Ran ran = run(arguments, text);
    EXPECT_EQ(ran.exitCode, 1);
    const auto document = ran.json();
    const auto& steps = document["steps"];
    ASSERT_EQ(steps.size(), 3U);
    const auto isEditing = [](const ordered_json& tree) {
      return tree.dump().find(R"("isEditing":true)") != std::string::npos;
    };
    EXPECT_TRUE(isEditing(steps[0]["tree"]));
    EXPECT_TRUE(isEditing(steps[1]["tree"])) << "a step that failed is traced too";
    EXPECT_EQ(steps[2]["tree"], document["tree"]);
    EXPECT_FALSE(isEditing(document["tree"]));
  }
  const auto untraced = run("-", text).json();
  for (const auto& step : untraced["steps"]) EXPECT_FALSE(step.contains("tree"));
}

TEST_F(ProgramTest, AnOutputThatCannotBeWrittenIsReported) {
  file("case.json", caseOf(nothing));
  const Ran ran = inShell("exec \"$0\" case.json >/dev/full");
  EXPECT_EQ(ran.exitCode, 1);
  EXPECT_EQ(ran.diagnostics, "vemra-inspect: standard output cannot be written\n");
}

TEST_F(ProgramTest, ReadsAFileOrStandardInputAndNamesIt) {
  file("my case.json", withSteps(nothing, ""));
  EXPECT_EQ(run("'my case.json'").exitCode, 0);
  EXPECT_EQ(run("-", withSteps(nothing, "")).exitCode, 0);
  file("bad.json", "{\"result\": 1}");
  EXPECT_EQ(run("bad.json").diagnostics, "bad.json: /result: expected an object; found 1\n");
  EXPECT_EQ(run("-", "{\"result\": 1}").diagnostics, "-: /result: expected an object; found 1\n");
  EXPECT_EQ(run("missing.json").diagnostics,
            "missing.json: expected a file that can be read; found an error: No such file or "
            "directory\n");
  EXPECT_EQ(run(".").diagnostics,
            ".: expected a file that can be read; found an error: Is a directory\n");
}

TEST_F(ProgramTest, WritesNothingToStandardOutputWhenTheInputIsUnusable) {
  file("case.json", withSteps(nothing, ""));
  for (const char* arguments :
       {"", "a b", "--colour case.json", "missing.json", ".", "case.json --png"}) {
    const Ran ran = run(arguments);
    EXPECT_EQ(ran.exitCode, 2) << arguments;
    EXPECT_EQ(ran.output, "") << arguments;
    EXPECT_NE(ran.diagnostics, "") << arguments;
  }
  for (const std::string& text :
       {std::string(), std::string("{"), std::string(100'000, '['), std::string("\xEF\xBB\xBF{}"),
        std::string(1, '\0'), caseOf(nothing, R"(, "locale": "xx")"),
        caseOf(nothing, R"(, "timeZone": "xx")")}) {
    const Ran ran = run("-", text);
    EXPECT_EQ(ran.exitCode, 2) << text.substr(0, 40);
    EXPECT_EQ(ran.output, "");
    EXPECT_TRUE(ran.diagnostics.starts_with("-: ")) << ran.diagnostics;
  }
}

TEST_F(ProgramTest, FindsABadStepBeforeTheFirstOneRuns) {
  for (const char* bad :
       {R"({"select": "x", "value": "nope"})", R"({"tap": "x"})", R"({"result": {}})"}) {
    const Ran ran =
        run("-", withSteps(oneOfEach, R"({"press": {"title": "Ada"}}, )" + std::string(bad)));
    EXPECT_EQ(ran.exitCode, 2) << bad;
    EXPECT_EQ(ran.output, "") << bad;
    EXPECT_TRUE(ran.diagnostics.starts_with("-: /steps/1")) << ran.diagnostics;
  }
}

TEST_F(ProgramTest, EndsByASignalWhenAHopCountOverflows) {
  const std::string result =
      replacing(oneOfEach, "\"hopCount\": 2", "\"hopCount\": -9223372036854775808");
  const Ran first = run("-", withSteps(result, ""));
  EXPECT_NE(first.signal, 0);
  EXPECT_EQ(first.output, "");
  const Ran later = run("- --trace", withSteps(oneOfEach, R"({"result": )" + result + "}"));
  EXPECT_NE(later.signal, 0);
  EXPECT_EQ(later.output, "");
}

TEST_F(ProgramTest, TakesLocaleAndTimeZoneFromTheEnvironment) {
  const auto footer = [&](const std::string& variables, const std::string& more = "") {
    const Ran ran = run("-", caseOf(oneOfEach, more), "-i " + variables);
    EXPECT_EQ(ran.exitCode, 0) << ran.diagnostics;
    const std::string text =
        ran.json()["tree"]["children"][0]["children"][3]["children"][0]["content"]["verbatim"];
    const std::string_view start = "Based on 12 piece(s) of evidence from Mail, through ";
    EXPECT_TRUE(text.starts_with(start)) << text;
    return text.substr(start.size());
  };
  EXPECT_EQ(footer("LC_ALL=en_US.UTF-8 TZ=UTC"), "Jan 5, 2025.");
  EXPECT_EQ(footer("LC_ALL=de_DE.UTF-8 TZ=Europe/Berlin"), "6. Jan. 2025.");
  EXPECT_EQ(footer("LC_TIME=en_GB.UTF-8 LANG=de_DE.UTF-8 TZ=UTC"), "5 Jan 2025.");
  EXPECT_EQ(footer("LC_ALL= LC_TIME= LANG=en_GB TZ=UTC"), "5 Jan 2025.");
  EXPECT_EQ(footer("LC_ALL=en_GB LC_TIME=en_US TZ=UTC"), "5 Jan 2025.");
  EXPECT_EQ(footer("LC_ALL=en_GB TZ=UTC", R"(, "locale": "en_US", "timeZone": "Asia/Tokyo")"),
            "Jan 6, 2025.")
      << "the case's own come first";
  EXPECT_NE(footer("LC_ALL=xx_YY.UTF-8 TZ=Mars/Olympus"), "")
      << "an unknown name in the environment is no error";
}

}  // namespace
}  // namespace vemra::inspect
