// References that are equal, or equal as text and different as bytes.

#include "tests/VemraGoalSurface/Shape.hpp"
#include "tests/journeys/MemoryHost.hpp"

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using testing::button;
using testing::byIdentifier;
using ::testing::ElementsAre;

struct Pair {
  const char* name;
  std::string first;
  std::string second;
};

/// Two people with equal references.
class EqualReferences : public ::testing::TestWithParam<Pair> {
 protected:
  static Result twoPeople() {
    Result result = ordinaryResult();
    result.paths = {};
    GoalPersonCandidateDTO bo = person(GetParam().second, "Bo", {"ev-bo"});
    bo.why = GoalWhyDTO::generic();
    result.people = {person(GetParam().first, "Ada", {"ev-ada"}), bo};
    return result;
  }

  /// The element of that name in the control of the person at `index`. When the identifiers of the
  /// two people are equal, selects it by its order, as long as the first person's control has it
  /// too.
  static testing::Query inControl(std::size_t index, const std::string& name) {
    const auto& [pair, first, second] = GetParam();
    return byIdentifier("vemra.goal.person." + (index == 0 ? first : second) + ".outcome." + name,
                        first == second ? index : 0);
  }

  MemoryHost host{twoPeople()};
};

INSTANTIATE_TEST_SUITE_P(References, EqualReferences,
                         ::testing::Values(Pair{"sameBytes", "p1", "p1"}, Pair{"emptyOnes", "", ""},
                                           Pair{"twoNormalForms", composed, decomposed},
                                           Pair{"twoNormalFormsTheOtherWay", decomposed, composed}),
                         [](const auto& sample) { return sample.param.name; });

TEST_P(EqualReferences, ShowBothPeopleEachWithTheirOwnContent) {
  EXPECT_THAT(
      host.screen.shownTexts(),
      ElementsAre("Find a design lead", "People worth considering",           //
                  "Ada", "Matches on name", "Show source", "Record outcome",  //
                  "Bo", "Candidate person", "Show source", "Record outcome", "Supported path",
                  "No supported path to them yet.", "Based on 12 piece(s) of evidence from Mail."));
  EXPECT_THAT(host.screen.identifiers(),
              ElementsAre("vemra.goal.person." + GetParam().first + ".show-source",
                          "vemra.goal.person." + GetParam().first + ".outcome.start",
                          "vemra.goal.person." + GetParam().second + ".show-source",
                          "vemra.goal.person." + GetParam().second + ".outcome.start"));
}

TEST_P(EqualReferences, CallBackWithTheBytesOfTheirOwnRow) {
  host.screen.press(button("Ada"));
  host.screen.press(button("Bo"));
  host.screen.press(button("Show source", 0));
  host.screen.press(button("Show source", 1));
  EXPECT_THAT(host.log,
              ElementsAre("open \"" + GetParam().first + '"', "open \"" + GetParam().second + '"',
                          "evidence \"ev-ada\"", "evidence \"ev-bo\""));
}

TEST_P(EqualReferences, HaveEditorsOfTheirOwnAndOneOutcome) {
  host.screen.press(inControl(1, "start"));
  EXPECT_EQ(face(host.screen, 0).size(), 1u);
  EXPECT_EQ(face(host.screen, 1).at(0), "VStack leading 6");
  host.screen.press(inControl(0, "start"));
  host.screen.press(inControl(1, "save"));
  EXPECT_THAT(host.log,
              ElementsAre("person \"" + GetParam().second + "\" wasUseful note=nil corrects=nil"));
  EXPECT_EQ(face(host.screen, 0).at(0), "VStack leading 6") << "the first is still editing";
  EXPECT_EQ(face(host.screen, 1).at(0), "VStack leading 2") << "the second is recorded";
  host.screen.press(inControl(0, "save"));
  EXPECT_EQ(host.log.back(),
            "person \"" + GetParam().first + "\" wasUseful note=nil corrects=\"o1\"");
}

TEST_P(EqualReferences, AreDistinguishedByTheirOrder) {
  host.screen.press(inControl(0, "start"));
  host.change([](Result& result) {
    std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
    std::swap(people[0], people[1]);
    result.people = people;
  });
  EXPECT_EQ(host.screen.shownTexts().at(2), "Bo");
  EXPECT_EQ(face(host.screen, 0).at(0), "VStack leading 6") << host.screen.outline();
  EXPECT_EQ(face(host.screen, 1).size(), 1u);
}

TEST_P(EqualReferences, KeepTheirStateWhenTheOtherPersonIsRemoved) {
  host.screen.press(inControl(1, "start"));
  host.screen.press(inControl(0, "start"));
  host.change([](Result& result) { result.people = {result.people[1]}; });
  EXPECT_EQ(controls(host.screen).size(), 1u);
  EXPECT_EQ(face(host.screen, 0).at(0), "VStack leading 6");
  host.change([](Result& result) { result.people = {result.people[0], result.people[0]}; });
  EXPECT_EQ(face(host.screen, 0).at(0), "VStack leading 6");
  EXPECT_EQ(face(host.screen, 1).size(), 1u) << "the second person was removed and added again";
}

TEST_P(EqualReferences, ShowTheSameEveryTime) {
  MemoryHost again{twoPeople()};
  EXPECT_EQ(again.screen.outline(), host.screen.outline());
}

TEST(NormalForms, AreOneSubjectAndKeepTheirBytes) {
  const std::vector<std::pair<std::string, std::string>> forms{{composed, decomposed},
                                                               {decomposed, composed}};
  for (const auto& [asked, stored] : forms) {
    Result result = ordinaryResult();
    result.people = {person(asked, "René")};
    result.paths = {path({"p1", asked})};
    result.outcomes = {outcome("o1", SubjectKind::person, stored, Value::helped),
                       outcome("o2", SubjectKind::path, stored, Value::invited)};
    MemoryHost host{result};
    personControl(host, asked).correct();
    personControl(host, asked).save();
    pathControl(host).correct();
    pathControl(host).save();
    host.screen.press(button("René"));
    EXPECT_THAT(host.log, ElementsAre("person \"" + asked + "\" helped note=nil corrects=\"o1\"",
                                      "path \"" + asked + "\" invited note=nil corrects=\"o2\"",
                                      "open \"" + asked + '"'));
  }
}

TEST(IllFormedReferences, AreShownAndRecordedUnchanged) {
  Result result = ordinaryResult();
  result.people = {person("a\xC3", "Half"), person("a\xE9", "Latin")};
  result.outcomes = {outcome("o1", SubjectKind::person, "a\xE9", Value::helped)};
  MemoryHost host{result};
  EXPECT_TRUE(personControl(host, "a\xE9").isRecorded());
  ControlOnScreen half = personControl(host, "a\xC3");
  half.recordOutcome();
  half.save();
  EXPECT_THAT(host.log, ElementsAre("person \"a\xC3\" wasUseful note=nil corrects=nil"));
}

}  // namespace
}  // namespace vemra::screentest
