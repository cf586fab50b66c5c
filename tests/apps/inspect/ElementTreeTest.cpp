#include "tests/apps/inspect/CaseText.hpp"
#include "tests/apps/inspect/Ran.hpp"

namespace vemra::inspect {
namespace {

using nlohmann::ordered_json;

/// The first element, in tree order, with that value at that key; null when there is none.
ordered_json find(const ordered_json& element, const std::string& key, const ordered_json& value) {
  if (element.contains(key) && element[key] == value) return element;
  if (element.contains("children")) {
    for (const auto& child : element["children"]) {
      ordered_json found = find(child, key, value);
      if (!found.is_null()) return found;
    }
  }
  return nullptr;
}

/// The same document with sorted keys and one element on each line, so that a difference is
/// readable.
std::string lines(const ordered_json& json) {
  return json.dump(1);
}

class ElementTreeTest : public ProgramTest {
 protected:
  ordered_json tree(const std::string& result, const std::string& steps = "") {
    return inspect(withSteps(result, steps))["tree"];
  }
};

TEST_F(ElementTreeTest, OfAnEmptyResult) {
  EXPECT_EQ(lines(tree(nothing)), lines(ordered_json::parse(R"json(
    {"element": "ScrollView", "axis": "vertical", "showsIndicators": true, "modifiers": [], "children": [
      {"element": "VStack", "alignment": "leading", "spacing": 20,
       "modifiers": [{"padding": 24, "edges": "all"}], "children": [
        {"element": "Text", "content": {"verbatim": ""},
         "modifiers": [{"font": "title2"}, {"fontWeight": "semibold"}]},
        {"element": "VStack", "alignment": "leading", "spacing": 10, "modifiers": [], "children": [
          {"element": "Text",
           "content": {"key": "People worth considering", "text": "People worth considering"},
           "modifiers": [{"font": "headline"}]},
          {"element": "Text", "content": {"verbatim": "No relevant people found yet."},
           "modifiers": [{"foregroundStyle": "secondary"}]}
        ]},
        {"element": "VStack", "alignment": "leading", "spacing": 10, "modifiers": [], "children": [
          {"element": "Text", "content": {"key": "Supported path", "text": "Supported path"},
           "modifiers": [{"font": "headline"}]},
          {"element": "Text",
           "content": {"verbatim": "This goal doesn't name someone to find a path to."},
           "modifiers": [{"foregroundStyle": "secondary"}]}
        ]},
        {"element": "Group", "modifiers": [{"font": "caption"}, {"foregroundStyle": "secondary"}],
         "children": [
          {"element": "Text",
           "content": {"key": "No source evidence yet.", "text": "No source evidence yet."},
           "modifiers": []}
        ]}
      ]}
    ]})json")));
}

TEST_F(ElementTreeTest, OfARowWithARecordedCorrection) {
  const ordered_json rows = find(tree(oneOfEach), "element", "ForEach");
  EXPECT_EQ(lines(rows), lines(ordered_json::parse(R"json(
    {"element": "ForEach", "modifiers": [], "children": [
      {"element": "VStack", "id": "p1", "alignment": "leading", "spacing": 4,
       "modifiers": [{"padding": 4, "edges": "vertical"}], "children": [
        {"element": "Button", "title": {"verbatim": "Ada"},
         "modifiers": [{"buttonStyle": "plain"}, {"font": "body", "weight": "medium"}]},
        {"element": "Text", "content": {"verbatim": "Connected through 1 shared relationship"},
         "modifiers": [{"font": "subheadline"}, {"foregroundStyle": "secondary"}]},
        {"element": "Button", "title": {"key": "Show source", "text": "Show source"},
         "modifiers": [{"font": "caption"},
                       {"accessibilityIdentifier": "vemra.goal.person.p1.show-source"}]},
        {"element": "GoalOutcomeRecordingControl", "subjectKind": "person", "subjectRef": "p1",
         "effectiveOutcome": "o1", "identifierPrefix": "vemra.goal.person.p1",
         "state": {"isEditing": false, "selectedValue": "wasUseful", "noteText": ""},
         "modifiers": [], "children": [
          {"element": "VStack", "alignment": "leading", "spacing": 2, "modifiers": [], "children": [
            {"element": "HStack", "alignment": "center", "spacing": 8, "modifiers": [], "children": [
              {"element": "Text", "content": {"verbatim": "Helped"},
               "modifiers": [{"font": "caption"}, {"foregroundStyle": "secondary"}]},
              {"element": "Text", "content": {"key": "· corrected", "text": "· corrected"},
               "modifiers": [{"font": "caption2"}, {"foregroundStyle": "tertiary"},
                 {"accessibilityIdentifier": "vemra.goal.person.p1.outcome.corrected-marker"}]},
              {"element": "Button", "title": {"key": "Correct", "text": "Correct"},
               "modifiers": [{"font": "caption"},
                 {"accessibilityIdentifier": "vemra.goal.person.p1.outcome.correct"}]}
            ]},
            {"element": "Text", "content": {"verbatim": "a note"},
             "modifiers": [{"font": "caption"}, {"foregroundStyle": "secondary"}]}
          ]}
        ]}
      ]}
    ]})json")));
}

TEST_F(ElementTreeTest, OfAnOpenEditor) {
  const ordered_json control = find(tree(oneOfEach, R"({"press": "vemra.goal.path.outcome.start"},
            {"select": "vemra.goal.path.outcome.picker", "value": "somethingElse"},
            {"type": "vemra.goal.path.outcome.note", "text": " \n"})"),
                                    "identifierPrefix", "vemra.goal.path");
  EXPECT_EQ(lines(control), lines(ordered_json::parse(R"json(
    {"element": "GoalOutcomeRecordingControl", "subjectKind": "path", "subjectRef": "p9",
     "effectiveOutcome": null, "identifierPrefix": "vemra.goal.path",
     "state": {"isEditing": true, "selectedValue": "somethingElse", "noteText": " \n"},
     "modifiers": [], "children": [
      {"element": "VStack", "alignment": "leading", "spacing": 6, "modifiers": [], "children": [
        {"element": "Picker", "title": {"key": "Outcome", "text": "Outcome"},
         "selection": "somethingElse",
         "modifiers": [{"labelsHidden": true}, {"pickerStyle": "menu"},
                       {"accessibilityIdentifier": "vemra.goal.path.outcome.picker"}],
         "children": [{"element": "ForEach", "modifiers": [], "children": [
          {"element": "Text", "id": "reachedOut", "content": {"verbatim": "Reached out"},
           "modifiers": [{"tag": "reachedOut"}]},
          {"element": "Text", "id": "invited", "content": {"verbatim": "Invited"},
           "modifiers": [{"tag": "invited"}]},
          {"element": "Text", "id": "introduced", "content": {"verbatim": "Introduced"},
           "modifiers": [{"tag": "introduced"}]},
          {"element": "Text", "id": "helped", "content": {"verbatim": "Helped"},
           "modifiers": [{"tag": "helped"}]},
          {"element": "Text", "id": "wasUseful", "content": {"verbatim": "Was useful"},
           "modifiers": [{"tag": "wasUseful"}]},
          {"element": "Text", "id": "notAFit", "content": {"verbatim": "Not a fit"},
           "modifiers": [{"tag": "notAFit"}]},
          {"element": "Text", "id": "noActionTaken", "content": {"verbatim": "No action taken"},
           "modifiers": [{"tag": "noActionTaken"}]},
          {"element": "Text", "id": "somethingElse", "content": {"verbatim": "Something else"},
           "modifiers": [{"tag": "somethingElse"}]}
        ]}]},
        {"element": "TextField", "title": {"key": "Note (optional)", "text": "Note (optional)"},
         "text": " \n",
         "modifiers": [{"textFieldStyle": "roundedBorder"},
                       {"accessibilityIdentifier": "vemra.goal.path.outcome.note"}]},
        {"element": "HStack", "alignment": "center", "spacing": 12,
         "modifiers": [{"font": "caption"}], "children": [
          {"element": "Button", "title": {"key": "Save", "text": "Save"},
           "modifiers": [{"disabled": true},
                         {"accessibilityIdentifier": "vemra.goal.path.outcome.save"}]},
          {"element": "Button", "title": {"key": "Cancel", "text": "Cancel"},
           "modifiers": [{"accessibilityIdentifier": "vemra.goal.path.outcome.cancel"}]}
        ]}
      ]}
    ]})json")));
}

TEST_F(ElementTreeTest, WritesDisabledFalseForAnEnabledButton) {
  const auto save = find(tree(oneOfEach, R"({"press": "vemra.goal.path.outcome.start"})"), "title",
                         {{"key", "Save"}, {"text", "Save"}});
  EXPECT_EQ(save["modifiers"][0].dump(), R"({"disabled":false})");
}

TEST_F(ElementTreeTest, NumbersNoEqualRowsAndKeepsTheBytesOfTheirIds) {
  const std::string twice = people(R"(
      {"personRef": "\u00e9", "why": {"kind": "generic"}}, {"personRef": "e\u0301", "why": {"kind": "generic"}},
      {"personRef": "", "why": {"kind": "generic"}}, {"personRef": "", "why": {"kind": "generic"}})");
  std::vector<std::string> ids;
  const auto rows = find(tree(twice), "element", "ForEach");
  for (const auto& row : rows["children"]) ids.push_back(row["id"]);
  EXPECT_EQ(ids, (std::vector<std::string>{"\u00E9", "e\u0301", "", ""}));
}

TEST_F(ElementTreeTest, ShowsTranslationsBesideTheirKeys) {
  const auto document = inspect(caseOf(oneOfEach, R"(, "locale": "en_US", "timeZone": "UTC",
      "strings": {"Show source": "Quelle zeigen", "Supported path": "", "Ada": "not a key",
                  "Find a design lead": "not a key", "Helped": "not a key"})"));
  const auto& shown = document["tree"];
  EXPECT_EQ(find(shown, "title", {{"key", "Show source"}, {"text", "Quelle zeigen"}}).is_null(),
            false);
  EXPECT_EQ(find(shown, "content", {{"key", "Supported path"}, {"text", ""}}).is_null(), false);
  EXPECT_EQ(shown.dump().find("not a key"), std::string::npos)
      << "texts from data are never looked up";
}

TEST_F(ElementTreeTest, OmitsAbsentViews) {
  const auto row = find(tree(replacing(oneOfEach, "\"ev9\", \"ev3\"", "")), "id", "p1");
  EXPECT_EQ(row["children"].size(), 3U) << lines(row);
}

}  // namespace
}  // namespace vemra::inspect
