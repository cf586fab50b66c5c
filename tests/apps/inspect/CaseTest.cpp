#include "apps/documents/DocumentError.hpp"
#include "apps/inspect/Case.hpp"
#include "tests/apps/inspect/CaseText.hpp"

#include <gtest/gtest.h>

namespace vemra::inspect {
namespace {

ui::Environment anywhere() {
  ui::Environment environment;
  environment.locale = "fr_FR";
  environment.timeZone = "Asia/Tokyo";
  return environment;
}

Case read(const std::string& text) {
  return readCase(text, "case.json", anywhere());
}

std::string errorIn(const std::string& text) {
  try {
    read(text);
  } catch (const documents::DocumentError& error) {
    return error.what();
  }
  return "";
}

std::string stepError(const std::string& step) {
  return errorIn(withSteps(nothing, step));
}

TEST(CaseTest, NeedsOnlyTheResult) {
  const Case plain = read(caseOf(oneOfEach));
  EXPECT_EQ(plain.result.goal.title, "Find a design lead");
  EXPECT_EQ(plain.environment.locale, "fr_FR") << "the default";
  EXPECT_EQ(plain.environment.timeZone, "Asia/Tokyo") << "the default";
  EXPECT_EQ(plain.environment.strings, nullptr) << "every key is shown as it is";
  EXPECT_TRUE(plain.steps.empty());
  EXPECT_EQ(errorIn("{}"), "case.json: expected the key \"result\"; found none");
}

TEST(CaseTest, TakesLocaleAndTimeZone) {
  const Case placed = read(caseOf(nothing, R"(, "locale": "de_DE", "timeZone": "Europe/Berlin")"));
  EXPECT_EQ(placed.environment.locale, "de_DE");
  EXPECT_EQ(placed.environment.timeZone, "Europe/Berlin");
}

TEST(CaseTest, RefusesUnknownLocalesAndTimeZones) {
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "locale": "xx_YY")")),
            "case.json: /locale: expected a locale that is known; found \"xx_YY\"");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "locale": "")")),
            "case.json: /locale: expected a locale that is known; found \"\"");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "locale": "en_US.UTF-8")")),
            "case.json: /locale: expected a locale that is known; found \"en_US.UTF-8\"");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "locale": null)")),
            "case.json: /locale: expected a string; found null");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "timeZone": "Mars/Olympus")")),
            "case.json: /timeZone: expected a time zone that is known; found \"Mars/Olympus\"");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "timeZone": "")")),
            "case.json: /timeZone: expected a time zone that is known; found \"\"");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "timeZone": null)")),
            "case.json: /timeZone: expected a string; found null");
}

TEST(CaseTest, TakesAStringsTable) {
  const Case translated =
      read(caseOf(nothing,
                  ", \"strings\": {\"Show source\": \"Quelle\", \"Save\": \"\", "
                  "\"caf\u00E9\": \"one scalar\"}"));
  ASSERT_NE(translated.environment.strings, nullptr);
  const ui::StringsTable& strings = *translated.environment.strings;
  EXPECT_EQ(strings.lookup("Show source"), "Quelle");
  EXPECT_EQ(strings.lookup("Save"), "") << "an empty translation is one";
  EXPECT_EQ(strings.lookup("Cancel"), std::nullopt);
  EXPECT_EQ(strings.lookup("show source"), std::nullopt);
  EXPECT_EQ(strings.lookup("cafe\u0301"), "one scalar") << "canonically equal";
}

TEST(CaseTest, RefusesTwoTranslationsOfOneKey) {
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "strings": {"Save": "a", "Save": "b"})")),
            "case.json: /strings/Save: expected each key once; found \"Save\" again");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "strings": {"\u00e9": "a", "e\u0301": "b"})")),
            "case.json: /strings/e\u0301: expected keys that are not canonically equal; found "
            "\"e\u0301\" again");
}

// For any hashes of this run: of many repetitions, the first one in the document is reported.
TEST(CaseTest, NamesTheFirstRepetitionOfMany) {
  std::string strings;
  for (int i = 0; i < 50; ++i) strings += "\"a" + std::to_string(i) + "\": \"\", ";
  for (int i = 49; i >= 0; --i) strings += "\"a" + std::to_string(i) + "\": \"\", ";
  strings += "\"end\": \"\"";
  EXPECT_EQ(errorIn(caseOf(nothing, ", \"strings\": {" + strings + "}")),
            "case.json: /strings/a49: expected each key once; found \"a49\" again");
}

TEST(CaseTest, RefusesOtherTables) {
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "strings": {"Save": null})")),
            "case.json: /strings/Save: expected a string; found null");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "strings": [])")),
            "case.json: /strings: expected an object; found an array");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "strings": null)")),
            "case.json: /strings: expected an object; found null");
}

TEST(CaseTest, PointsIntoTheResult) {
  EXPECT_EQ(errorIn(caseOf(R"({"goal": {"id": "g", "title": 3}})")),
            "case.json: /result/goal/title: expected a string; found 3");
  EXPECT_EQ(errorIn(replacing(caseOf(oneOfEach), "\"connection\"", "\"x\"")),
            "case.json: /result/people/0/why/kind: expected one of evidence, connection, "
            "sharedActivity, nameMatch, generic; found \"x\"");
}

TEST(CaseTest, RefusesOtherKeysAndTypes) {
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "step": [])")),
            "case.json: /step: expected one of the keys result, locale, timeZone, strings, steps, "
            "recorded; "
            "found \"step\"");
  EXPECT_EQ(errorIn(caseOf(nothing, ", \"result\": " + nothing)),
            "case.json: /result: expected each key once; found \"result\" again");
  EXPECT_EQ(errorIn(nothing),
            "case.json: /goal: expected one of the keys result, locale, timeZone, strings, steps, "
            "recorded; "
            "found \"goal\"");
  EXPECT_EQ(errorIn(caseOf(nothing) + "{}"),
            "case.json: line 2, column 94: expected the end of the document; found \"{\"");
}

TEST(StepTest, ReadsEveryForm) {
  const auto steps = read(withSteps(nothing, R"(
      {"press": "a"}, {"press": {"title": "Ada", "index": 2}}, {"press": {"title": ""}},
      {"select": "b", "value": "somethingElse"}, {"value": "reachedOut", "select": ""},
      {"type": "c", "text": " a\n b "}, {"text": "", "type": "c"}, {"submit": "d"},
      {"result": )" + oneOfEach + "}"))
                         .steps;
  ASSERT_EQ(steps.size(), 9U);
  EXPECT_EQ(std::get<PressIdentifier>(steps[0]).identifier, "a");
  EXPECT_EQ(std::get<PressTitle>(steps[1]).title, "Ada");
  EXPECT_EQ(std::get<PressTitle>(steps[1]).index, 2U);
  EXPECT_EQ(std::get<PressTitle>(steps[2]).title, "");
  EXPECT_EQ(std::get<PressTitle>(steps[2]).index, 0U);
  EXPECT_EQ(std::get<Select>(steps[3]).identifier, "b");
  EXPECT_EQ(std::get<Select>(steps[3]).value, GoalOutcomeValue::somethingElse);
  EXPECT_EQ(std::get<Select>(steps[4]).value, GoalOutcomeValue::reachedOut);
  EXPECT_EQ(std::get<Type>(steps[5]).identifier, "c");
  EXPECT_EQ(std::get<Type>(steps[5]).text, " a\n b ");
  EXPECT_EQ(std::get<Type>(steps[6]).text, "");
  EXPECT_EQ(std::get<Submit>(steps[7]).identifier, "d");
  EXPECT_EQ(std::get<NewResult>(steps[8]).result->goal.id, "g1");
}

TEST(StepTest, RefusesEveryOtherForm) {
  const std::pair<const char*, const char*> cases[] = {
      {"{}",
       "/steps/0: expected one of the keys press, select, type, submit, result, screen, call; "
       "found none"},
      {"[]", "/steps/0: expected an object; found an array"},
      {"\"press\"", "/steps/0: expected an object; found \"press\""},
      {"null", "/steps/0: expected an object; found null"},
      {R"({"tap": "a"})",
       "/steps/0/tap: expected one of the keys press, select, value, type, text, submit, result, "
       "screen, index, call; found \"tap\""},
      {R"({"press": null})",
       "/steps/0/press: expected an identifier or an object with a title; found null"},
      {R"({"press": 1})",
       "/steps/0/press: expected an identifier or an object with a title; found 1"},
      {R"({"press": ["a"]})",
       "/steps/0/press: expected an identifier or an object with a title; found an array"},
      {R"({"press": {}})", "/steps/0/press: expected the key \"title\"; found none"},
      {R"({"press": {"index": 0}})", "/steps/0/press: expected the key \"title\"; found none"},
      {R"({"press": {"title": "a", "index": -1}})",
       "/steps/0/press/index: expected an integer from 0; found -1"},
      {R"({"press": {"title": "a", "index": 1.0}})",
       "/steps/0/press/index: expected an integer from -9223372036854775808 to "
       "9223372036854775807, without fraction or exponent; found 1.0"},
      {R"({"press": {"title": "a", "index": null}})",
       "/steps/0/press/index: expected an integer from -9223372036854775808 to "
       "9223372036854775807, without fraction or exponent; found null"},
      {R"({"press": {"title": "a", "role": "b"}})",
       "/steps/0/press/role: expected one of the keys title, index, identifier; found \"role\""},
      {R"({"press": "a", "press": "b"})",
       "/steps/0/press: expected each key once; found \"press\" again"},
      {R"({"press": "a", "submit": "b"})",
       "/steps/0/submit: expected one act a step; found \"submit\" beside \"press\""},
      {R"({"press": "a", "value": "helped"})",
       "/steps/0/value: expected no such key beside \"press\"; found \"value\""},
      {R"({"press": "a", "text": ""})",
       "/steps/0/text: expected no such key beside \"press\"; found \"text\""},
      {R"({"select": "a"})", "/steps/0: expected the key \"value\"; found none"},
      {R"({"value": "helped"})",
       "/steps/0: expected one of the keys press, select, type, submit, result, screen, call; "
       "found none"},
      {R"({"select": "a", "value": "Helped"})",
       "/steps/0/value: expected one of reachedOut, invited, introduced, helped, wasUseful, "
       "notAFit, noActionTaken, somethingElse; found \"Helped\""},
      {R"({"select": "a", "value": null})",
       "/steps/0/value: expected one of reachedOut, invited, introduced, helped, wasUseful, "
       "notAFit, noActionTaken, somethingElse; found null"},
      {R"({"select": 1, "value": "helped"})", "/steps/0/select: expected a string; found 1"},
      {R"({"select": {"title": "Outcome"}, "value": "helped"})",
       "/steps/0/select: expected a string; found an object"},
      {R"({"select": "a", "value": "helped", "text": "b"})",
       "/steps/0/text: expected no such key beside \"select\"; found \"text\""},
      {R"({"type": "a"})", "/steps/0: expected the key \"text\"; found none"},
      {R"({"type": "a", "text": null})", "/steps/0/text: expected a string; found null"},
      {R"({"type": "a", "text": "b", "value": "helped"})",
       "/steps/0/value: expected no such key beside \"type\"; found \"value\""},
      {R"({"type": "a", "text": "b", "submit": "a"})",
       "/steps/0/submit: expected one act a step; found \"submit\" beside \"type\""},
      {R"({"submit": true})", "/steps/0/submit: expected a string; found true"},
      {R"({"submit": "a", "text": "b"})",
       "/steps/0/text: expected no such key beside \"submit\"; found \"text\""},
      {R"({"result": null})", "/steps/0/result: expected an object; found null"},
      {R"({"result": {}})", "/steps/0/result: expected the key \"goal\"; found none"},
      {R"({"result": {"goal": {"id": 1}}})", "/steps/0/result/goal/id: expected a string; found 1"},
  };
  for (const auto& [step, message] : cases) {
    EXPECT_EQ(stepError(step), std::string("case.json: ") + message) << step;
  }
  EXPECT_EQ(stepError(R"({"press": "a"}, {"submit": 2})"),
            "case.json: /steps/1/submit: expected a string; found 2");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "steps": {})")),
            "case.json: /steps: expected an array; found an object");
  EXPECT_EQ(errorIn(caseOf(nothing, R"(, "steps": null)")),
            "case.json: /steps: expected an array; found null");
}

}  // namespace
}  // namespace vemra::inspect
