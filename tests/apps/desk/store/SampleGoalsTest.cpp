#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraTesting/Screen.hpp"
#include "apps/desk/store/SampleGoals.hpp"

#include <set>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::Contains;
using testing::Screen;

std::vector<std::string> shownTexts(const GetGoalSnapshotResponse& result) {
  const auto ignore = [](const auto&) {};
  return Screen(GoalResultView(GoalResultSnapshotV1(result), ignore, ignore, ignore, ignore))
      .shownTexts();
}

// The purpose of the sample goals: together they show every variant of the screen.
TEST(SampleGoals, ShowEveryVariantOfTheScreen) {
  std::multiset<std::string> shown;
  const auto samples = sampleGoals();
  EXPECT_EQ(samples.size(), 3u);
  for (const auto& sample : samples) {
    for (const std::string& text : shownTexts(sample)) shown.insert(text);
  }
  for (const char* text :
       {// people, and each reason for one; a connection has two sentences
        "People worth considering", "Amara Okafor", "Unnamed person",
        "Email: Asked who is leading design for the launch", "Direct relationship evidence",
        "Connected through 2 shared relationships", "4 shared threads, 1 shared meeting",
        "Matches on name", "Candidate person",
        // a path
        "Supported path", "See in Starfold",
        "Calendar: Søren and Tomas both spoke at the autumn design meet-up",
        // the gaps
        "No relevant people found yet.", "Nothing points to a specific person for this yet.",
        "This goal doesn't name someone to find a path to.", "No supported path to them yet.",
        // outcomes: none yet, one with a note, one that corrects another
        "Record outcome", "Correct", "Reached out",
        "Wrote to her on Monday; she answers from the train.", "Introduced", "\u00B7 corrected",
        // the evidence
        "Based on 38 piece(s) of evidence from Mail, Calendar, Notes, through Mar 4, 2025.",
        "No source evidence yet."}) {
    EXPECT_THAT(shown, Contains(text));
  }
  const std::size_t people = samples[0].people.size();
  EXPECT_GT(shown.count("Show source"), 0u);
  EXPECT_LT(shown.count("Show source"), people) << "one person has no source";
}

}  // namespace
}  // namespace vemra::desk
