#include "VemraPlatform/ui/Node.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <algorithm>

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using testing::button;
using ::testing::ElementsAre;
using testing::Screen;
using ::testing::StartsWith;

class PeopleSection : public ::testing::Test {
 protected:
  Screen screenOf(std::vector<GoalPersonCandidateDTO> people, std::int64_t evidenceCount = 1) {
    result_.people = std::move(people);
    result_.coverage.evidenceCount = evidenceCount;
    return Screen(viewOf(result_, calls_));
  }

  Result result_ = ordinaryResult();
  Calls calls_;
};

TEST_F(PeopleSection, SaysThatNoEvidencePointsToAPersonForAnyOtherCountAlsoANegativeOne) {
  for (std::int64_t count : {5, 1, -1, -3}) {
    EXPECT_THAT(
        peopleSection(screenOf({}, count)),
        ElementsAre("VStack leading 10", "  Text key \"People worth considering\" .font(headline)",
                    "  Text \"Nothing points to a specific person for this yet.\" "
                    ".foregroundStyle(secondary)"))
        << count;
  }
}

TEST_F(PeopleSection, DisagreesWithTheFooterOnNegativeCounts) {
  const Screen screen = screenOf({}, -1);
  EXPECT_TRUE(screen.has(testing::byText("Nothing points to a specific person for this yet.")));
  EXPECT_TRUE(screen.has(testing::byText("No source evidence yet.")));
}

TEST_F(PeopleSection, ShowsARowAndNoGapForAnyCount) {
  for (std::int64_t count : {0, 5, -1}) {
    const Lines lines = peopleSection(screenOf({person("p1", "Ada")}, count));
    ASSERT_GE(lines.size(), 4u);
    EXPECT_EQ(lines[2], "  ForEach") << count;
    EXPECT_EQ(lines[3], "    VStack leading 4 .padding(vertical 4)") << count;
    EXPECT_EQ(std::count(lines.begin(), lines.end(), lines[3]), 1) << "one row";
    for (const auto& line : lines) {
      EXPECT_EQ(line.find("No relevant people found yet."), std::string::npos) << count;
      EXPECT_EQ(line.find("Nothing points to a specific person"), std::string::npos) << count;
    }
  }
}

TEST_F(PeopleSection, ShowsEveryoneInTheEnginesOrder) {
  const Screen screen =
      screenOf({person("p3", "Cy"), person("p1", "Ada"), person("p2", "Bo"), person("p0", "Ada")});
  Lines names;
  for (const auto* node : nodesOf(screen, ui::ElementKind::button)) {
    if (node->element.buttonStyle() == ui::ButtonStyle::plain) {
      names.emplace_back(node->element.shownLabel());
    }
  }
  EXPECT_THAT(names, ElementsAre("Cy", "Ada", "Bo", "Ada"));
}

TEST_F(PeopleSection, IdentifiesRowsByTheReferenceByteForByte) {
  const Screen screen = screenOf({person("a.b c"), person(decomposed), person("")});
  Lines ids;
  for (const auto& row : nodesOf(screen, ui::ElementKind::forEach).at(0)->children()) {
    ids.push_back(screen.graph().find(row.id)->rowID);
  }
  EXPECT_THAT(ids, ElementsAre("a.b c", decomposed, ""));
}

class PersonRow : public PeopleSection {
 protected:
  /// The row of the only person.
  Lines rowOf(GoalPersonCandidateDTO person) {
    const Screen screen = screenOf({std::move(person)});
    const auto& forEach = *nodesOf(screen, ui::ElementKind::forEach).at(0);
    return shape(*forEach.firstChild);
  }
};

TEST_F(PersonRow, HasThreeElementsWithoutEvidence) {
  EXPECT_THAT(rowOf(person("p1", "Ada")),
              ElementsAre("VStack leading 4 .padding(vertical 4)", StartsWith("  Button \"Ada\""),
                          StartsWith("  Text "), "  GoalOutcomeRecordingControl",
                          StartsWith("    Button key \"Record outcome\"")));
}

TEST_F(PersonRow, ShowsTheSourceButtonForAnEmptyEvidenceID) {
  Screen screen = screenOf({person("p1", "Ada", {""})});
  screen.press("vemra.goal.person.p1.show-source");
  EXPECT_THAT(calls_.log, ElementsAre("evidence \"\""));
}

TEST_F(PersonRow, CallsAPersonWithoutANameUnnamedPerson) {
  Screen screen = screenOf({person("p1")});
  EXPECT_EQ(around(screen, button("Unnamed person")).childCount, 3u);
  screen.press(button("Unnamed person"));
  EXPECT_THAT(calls_.log, ElementsAre("open \"p1\""));
}

TEST_F(PersonRow, ShowsAnEmptyNameAsAnEmptyTitle) {
  const Screen screen = screenOf({person("p1", "")});
  EXPECT_TRUE(screen.has(button("")));
  EXPECT_FALSE(screen.has(button("Unnamed person")));
}

TEST_F(PersonRow, OpensThePersonByReferenceNeverByName) {
  Screen screen = screenOf({person("p1", "Ada"), person("p2", "p1")});
  screen.press(button("p1"));
  screen.press(button("Ada"));
  EXPECT_THAT(calls_.log, ElementsAre("open \"p2\"", "open \"p1\""));
}

TEST_F(PersonRow, ShowsTheStrongestPieceOfEvidence) {
  Screen screen = screenOf({person("p1", "Ada", {"ev9", "ev1"})});
  screen.press("vemra.goal.person.p1.show-source");
  EXPECT_THAT(calls_.log, ElementsAre("evidence \"ev9\""));
}

TEST_F(PersonRow, GivesItsControlTheSubject) {
  result_.outcomes = {outcome("o1", SubjectKind::person, "p1", Value::helped)};
  const Screen screen = screenOf({person("p1", "Ada")});
  EXPECT_THAT(
      screen.outline(),
      ::testing::HasSubstr("GoalOutcomeRecordingControl subjectKind=\"person\" subjectRef=\"p1\" "
                           "effectiveOutcome=\"o1\" identifierPrefix=\"vemra.goal.person.p1\" "
                           "state={isEditing=false selectedValue=\"wasUseful\" noteText=\"\"}"));
}

/// The identifiers in a node and below it.
void addIdentifiers(const ui::Node& node, Lines& identifiers) {
  const auto own = node.element.accessibilityIdentifier();
  if (!own.empty()) identifiers.emplace_back(own);
  for (const auto& child : node.children) addIdentifiers(*child, identifiers);
}

const ui::Node* listIn(const ui::Node& node) {
  if (node.element.kind() == ui::ElementKind::forEach) return &node;
  for (const auto& child : node.children) {
    if (const ui::Node* found = listIn(*child)) return found;
  }
  return nullptr;
}

// The list promises it, and a search for an identifier relies on it.
TEST_F(PersonRow, EachOfItsIdentifiersContainsTheReferenceByteForByte) {
  const Lines refs{"p1", decomposed, composed, "a \"b\"\n.", "p1", ""};
  std::vector<GoalPersonCandidateDTO> people;
  for (const std::string& ref : refs) people.push_back(person(ref, "Ada", {"ev1"}));
  result_.outcomes = {outcome("o1", SubjectKind::person, decomposed, Value::helped),
                      outcome("o2", SubjectKind::person, decomposed, Value::helped, "note", "o1")};
  Screen screen = screenOf(people);
  screen.press("vemra.goal.person.p1.outcome.start");
  const ui::Node* list = listIn(*screen.graph().root());
  ASSERT_NE(list, nullptr);
  ASSERT_EQ(list->children.size(), refs.size());
  for (std::size_t row = 0; row < refs.size(); ++row) {
    Lines identifiers;
    addIdentifiers(*list->children[row], identifiers);
    EXPECT_GE(identifiers.size(), 2u);
    for (const std::string& identifier : identifiers) {
      EXPECT_THAT(identifier, ::testing::HasSubstr(refs[row]));
    }
  }
}

}  // namespace
}  // namespace vemra::screentest
