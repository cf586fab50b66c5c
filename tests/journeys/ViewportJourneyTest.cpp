// The visible part of the goal screen while a person uses it with the keyboard alone.

#include "VemraTesting/Viewport.hpp"
#include "tests/journeys/MemoryHost.hpp"

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::Viewport;

Result manyPeople(std::size_t count) {
  Result result = threePeople();
  std::vector<GoalPersonCandidateDTO> people;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    people.push_back(person("p" + number, "Person " + number, {}, GoalWhyDTO::connection(2)));
  }
  result.people = people;
  return result;
}

class ViewportJourney : public ::testing::Test {
 protected:
  MemoryHost host{manyPeople(500), MemoryHost::Answer::later};
  Viewport screen{host.view(), {50, 9}};
};

TEST_F(ViewportJourney, AnOutcomeIsRecordedWithoutAMouse) {
  for (int i = 0; i < 4; ++i) ASSERT_TRUE(screen.tab());
  EXPECT_EQ(screen.text(),
            "   People worth considering\n"
            "\n"
            "   <Person 0>\n"
            "   Connected through 1 shared relationship\n"
            "   [Record outcome]\n"
            "\n"
            "   <Person 1>\n"
            "   Connected through 1 shared relationship\n"
            "   >Record outcome<\n");
  screen.press();
  EXPECT_EQ(screen.text(),
            "   <Person 0>\n"
            "   Connected through 1 shared relationship\n"
            "   [Record outcome]\n"
            "\n"
            "   <Person 1>\n"
            "   Connected through 1 shared relationship\n"
            "   >Was useful      v<\n"
            "   [Note (optional): _________________________]\n"
            "   [Save]  [Cancel]\n");
  screen.choose("Helped");
  screen.tab();
  screen.type("met at the fair");
  screen.tab();
  screen.press();
  screen.show(host.view());
  EXPECT_EQ(screen.text(),
            "   <Person 0>\n"
            "   Connected through 1 shared relationship\n"
            "   [Record outcome]\n"
            "\n"
            "   <Person 1>\n"
            "   Connected through 1 shared relationship\n"
            "   Helped >Correct<\n"
            "   met at the fair\n"
            "\n");
  EXPECT_THAT(host.log, ElementsAre("person \"p1\" helped note=\"met at the fair\" corrects=nil"));
}

TEST_F(ViewportJourney, AnEditorKeepsItsTextWhileItIsOutOfView) {
  screen.tab();
  screen.tab();
  screen.press();
  screen.tab();
  screen.type("a long thought");
  screen.end();
  EXPECT_EQ(screen.text(),
            "\n"
            "   Supported path\n"
            "\n"
            "   Connected through 1 shared relationship\n"
            "   [See in Starfold]\n"
            "   [Record outcome]\n"
            "\n"
            "   Based on 12 piece(s) of evidence from Mail.\n"
            "\n");
  screen.home();
  screen.wheel(4);
  EXPECT_THAT(screen.text(), HasSubstr(">Note (optional): a long thought___________<\n"));
  screen.end();
  screen.type(", cut");
  EXPECT_THAT(screen.text(), HasSubstr(">Note (optional): a long thought, cut______<\n"))
      << "typing brings the field back into view";
}

TEST_F(ViewportJourney, TheFocusGoesThroughAllPeopleToThePathAndBack) {
  int controls = 0;
  while (screen.tab()) ++controls;
  EXPECT_EQ(controls, 500 * 2 + 2);
  EXPECT_THAT(screen.text(), HasSubstr("   [See in Starfold]\n   >Record outcome<\n"));
  while (screen.backTab()) --controls;
  EXPECT_EQ(controls, 1);
  EXPECT_THAT(screen.text(), HasSubstr("   >Person 0<\n"));
}

// The example in docs/testing.md.
TEST_F(ViewportJourney, ShowsTheTopOfThePage) {
  Viewport low(host.view(), {50, 7});
  low.tab();
  EXPECT_EQ(low.text(),
            "   Find a design lead\n"
            "\n"
            "   People worth considering\n"
            "\n"
            "   >Person 0<\n"
            "   Connected through 1 shared relationship\n"
            "   [Record outcome]\n");
}

}  // namespace
}  // namespace vemra::screentest
