#include "apps/gallery/GoalFaces.hpp"

#include "VemraGoalSurface/GoalResultView.hpp"

#include <utility>

namespace vemra::gallery {
namespace {

using Result = GetGoalSnapshotResponse;
using Person = GoalPersonCandidateDTO;

constexpr auto control = "vemra.goal.person.p1.outcome";

Result emptyResult() {
  Result result;
  result.goal = {.id = "g1", .title = "Find a design lead"};
  result.coverage = {.sources = {"Mail", "Calendar"},
                     .evidenceCount = 12,
                     .latestEvidenceAt = "2025-01-05T10:00:00Z"};
  return result;
}

Result resultWith(Person person) {
  Result result = emptyResult();
  result.people = {std::move(person)};
  return result;
}

Person ada(GoalWhyDTO why = GoalWhyDTO::connection(2)) {
  return {.personRef = "p1", .displayName = "Ada Winter", .why = std::move(why)};
}

Result resultWithPath(GoalWhyDTO why) {
  Result result = resultWith(ada());
  result.goal.targetPersonRef = "p9";
  result.paths = {{.personRefs = {"p1", "p4", "p9"}, .why = std::move(why)}};
  return result;
}

GoalOutcomeDTO outcome(std::string id, GoalOutcomeValue value) {
  return {.id = std::move(id), .goalID = "g1", .subjectRef = "p1", .value = value};
}

Result resultWithOutcomes(std::vector<GoalOutcomeDTO> outcomes) {
  Result result = resultWith(ada());
  result.outcomes = std::move(outcomes);
  return result;
}

ui::View screenOf(const Result& result) {
  const auto ignore = [](const auto&) {};
  return GoalResultView(GoalResultSnapshotV1(result), ignore, ignore, ignore, ignore);
}

std::string identifier(const char* part) {
  return std::string(control) + part;
}

void addPeople(Gallery& gallery) {
  const auto add = [&](const char* name, Person person, const char* description = "") {
    gallery.add({"People and reasons", name, screenOf(resultWith(std::move(person))), description});
  };
  add("Evidence", ada(GoalWhyDTO::evidence("Email", "Asked about design leads in March", "ev1")));
  Person withSource = ada(GoalWhyDTO::evidence("Email", "Asked about design leads", "ev1"));
  withSource.evidenceIDs = {"ev1", "ev2"};
  add("Evidence with a source", withSource, "The button opens the strongest piece of evidence.");
  add("A direct connection", ada(GoalWhyDTO::connection(1)));
  add("A connection over others", ada(GoalWhyDTO::connection(3)));
  add("Shared activity", ada(GoalWhyDTO::sharedActivity(4, 2)));
  add("A match of names", ada(GoalWhyDTO::nameMatch()));
  add("No particular reason", ada(GoalWhyDTO::generic()));
  add("Without a name", {.personRef = "p1", .why = GoalWhyDTO::connection(2)});
}

void addGaps(Gallery& gallery) {
  Result nothing = emptyResult();
  nothing.coverage = {};
  gallery.add({"Gaps", "No evidence yet", screenOf(nothing)});
  gallery.add({"Gaps", "Evidence, but no relevant person", screenOf(emptyResult())});
  gallery.add({"Gaps", "No target person", screenOf(resultWith(ada()))});
  Result noConnection = resultWith(ada());
  noConnection.goal.targetPersonRef = "p9";
  gallery.add({"Gaps", "No connection found", screenOf(noConnection)});
}

void addPaths(Gallery& gallery) {
  const auto add = [&](const char* name, GoalWhyDTO why) {
    gallery.add({"The supported path", name, screenOf(resultWithPath(std::move(why)))});
  };
  add("By evidence", GoalWhyDTO::evidence("Meeting", "Introduced each other", "ev1"));
  add("By a connection", GoalWhyDTO::connection(2));
  add("By shared activity", GoalWhyDTO::sharedActivity(1, 1));
  Result recorded = resultWithPath(GoalWhyDTO::connection(2));
  GoalOutcomeDTO introduced = outcome("o1", GoalOutcomeValue::introduced);
  introduced.subjectKind = GoalOutcomeSubjectKind::path;
  introduced.subjectRef = "p9";
  recorded.outcomes = {introduced};
  gallery.add({"The supported path", "With an outcome", screenOf(recorded)});
}

void addFooters(Gallery& gallery) {
  const auto add = [&](const char* name, GoalCoverageDTO coverage) {
    Result result = resultWith(ada());
    result.coverage = std::move(coverage);
    gallery.add({"Footer", name, screenOf(result)});
  };
  add("One source, one piece", {.sources = {"Mail"}, .evidenceCount = 1});
  add("With a date", {.sources = {"Mail", "Calendar"},
                      .evidenceCount = 12,
                      .latestEvidenceAt = "2025-01-05T10:00:00Z"});
  add("A date that cannot be read",
      {.sources = {"Mail"}, .evidenceCount = 3, .latestEvidenceAt = "yesterday"});
  add("Many sources", {.sources = {"Mail", "Calendar", "Messages", "Contacts", "Notes", "Documents",
                                   "Calls", "Photos"},
                       .evidenceCount = 1'234'567});
  add("None", {});
}

void addControl(Gallery& gallery) {
  using Screen = testing::Screen;
  const auto add = [&](const char* name, const Result& result, const char* description,
                       std::function<void(Screen&)> prepare = {}) {
    gallery.add({"Recording an outcome", name, screenOf(result), description, std::move(prepare)});
  };
  const Result untouched = resultWith(ada());
  add("Nothing recorded", untouched, "");
  add("The editor, just opened", untouched, "",
      [](Screen& screen) { screen.press(identifier(".start")); });
  add("A choice and a note", untouched, "", [](Screen& screen) {
    screen.press(identifier(".start"));
    screen.select(identifier(".picker"), "wasUseful");
    screen.type(identifier(".note"), "Knows the whole team");
  });
  add("Something else, without a note", untouched, "It cannot be saved until there is a note.",
      [](Screen& screen) {
        screen.press(identifier(".start"));
        screen.select(identifier(".picker"), "somethingElse");
      });
  for (const GoalOutcomeValue value : allGoalOutcomeValues) {
    const std::string name = "Recorded: " + std::string(caseName(value));
    add(name.c_str(), resultWithOutcomes({outcome("o1", value)}), "");
  }
  GoalOutcomeDTO noted = outcome("o1", GoalOutcomeValue::helped);
  noted.note = "Sent the portfolio to two people";
  add("Recorded with a note", resultWithOutcomes({noted}), "");
  GoalOutcomeDTO correction = outcome("o2", GoalOutcomeValue::notAFit);
  correction.correctsOutcomeID = "o1";
  add("Corrected", resultWithOutcomes({noted, correction}), "The later outcome counts.");
  add("The editor of a correction", resultWithOutcomes({noted}),
      "It starts from what was recorded.",
      [](Screen& screen) { screen.press(identifier(".correct")); });
}

void addTexts(Gallery& gallery) {
  const auto add = [&](const char* name, const char* title, const char* person,
                       const char* detail) {
    Result result = resultWith(ada(GoalWhyDTO::evidence("Email", detail, "ev1")));
    std::vector<Person> people(result.people.begin(), result.people.end());
    people[0].displayName = person;
    people[0].evidenceIDs = {"ev1"};
    result.people = std::move(people);
    result.goal.title = title;
    gallery.add({"Long and foreign texts", name, screenOf(result)});
  };
  add("Long words",
      "Donaudampfschifffahrtselektrizitätenhauptbetriebswerkbauunterbeamtengesellschaft",
      "Maximiliane-Friederike Rosenbaum-Oberhuber von und zu Tannenwald",
      "Rindfleischetikettierungsüberwachungsaufgabenübertragungsgesetz");
  add("Many words",
      "Find somebody who has led the design of a product for people who do not like software, and "
      "who "
      "would like to do it again, in a small team, far away from everything",
      "Ada",
      "Asked about it in March, in April and again in the first week of May, each time at length");
  add("Arabic", "البحث عن مدير تصميم", "سلمى حداد", "سألت عن ذلك في مارس");
  add("Hebrew and English", "למצוא ראש צוות design", "דנה Levi", "שאלה on March 3");
  add("Japanese", "デザインリーダーを探す", "山田花子", "三月にデザインについて質問した");
  add("Thai", "หาหัวหน้าฝ่ายออกแบบ", "สมชาย ใจดี", "ถามเรื่องนี้ในเดือนมีนาคม");
  add("Marks and symbols", "Z̷a̷l̷g̷o̷ and 👩‍👩‍👧‍👦",
      "Å̱̃ngström 🧑‍🎨", "नमस्ते, Ἀθῆναι, ﬁnd");
  add("Blanks and breaks", "  Two  \n  lines  ", " Ada ", "One\ttab and\nanother line");
}

void addMany(Gallery& gallery) {
  Result result = emptyResult();
  std::vector<Person> people;
  for (int number = 1; number <= 10'000; ++number) {
    people.push_back({.personRef = "p" + std::to_string(number),
                      .displayName = "Person " + std::to_string(number),
                      .why = GoalWhyDTO::connection(1 + number % 4)});
  }
  result.people = std::move(people);
  gallery.add({.section = "Many people",
               .name = "Ten thousand",
               .view = screenOf(result),
               .description = "Only the rows in view are described.",
               .height = 520});
}

}  // namespace

void addGoalFaces(Gallery& gallery) {
  addPeople(gallery);
  addGaps(gallery);
  addPaths(gallery);
  addFooters(gallery);
  addControl(gallery);
  addTexts(gallery);
  addMany(gallery);
}

}  // namespace vemra::gallery
