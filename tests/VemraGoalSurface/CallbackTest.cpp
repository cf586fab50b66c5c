#include "VemraTesting/Screen.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"

#include <string>
#include <vector>

#include <gmock/gmock.h>

// The screen keeps each of the host's callbacks as one object: every row calls that object, so its
// captures are not copied and it can count its calls.

namespace vemra::screentest {
namespace {

using ::testing::ElementsAre;
using testing::Screen;

/// People "p0", "p1" … called "P0", "P1" …, each with a source, and a path.
Result resultWithPeople(std::size_t count) {
  Result result = ordinaryResult();
  std::vector<GoalPersonCandidateDTO> people;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    people.push_back(person("p" + number, "P" + number, {"ev" + number}));
  }
  result.people = people;
  return result;
}

/// A host's function object: counts its own calls and reports each count, and counts in `copies`
/// how often it was copied or moved.
struct Counting {
  Counting(std::vector<int>& reports, int& copyCount) : reported(&reports), copies(&copyCount) {}
  Counting(const Counting& other)
      : reported(other.reported), copies(other.copies), calls(other.calls) {
    ++*copies;
  }
  Counting& operator=(const Counting&) = delete;
  ~Counting() = default;

  template <class Argument>
  void operator()(const Argument&) {
    reported->push_back(++calls);
  }

  std::vector<int>* reported;
  int* copies;
  int calls = 0;
};

void saveAnOutcome(Screen& screen, const std::string& prefix) {
  screen.press(prefix + ".outcome.start");
  screen.press(prefix + ".outcome.save");
}

class Callback : public ::testing::Test {
 protected:
  std::vector<int> reports_;
  int copies_ = 0;
  const Counting counting_{reports_, copies_};
};

TEST_F(Callback, RecordOutcomeIsOneObjectForAllRowsAndThePath) {
  Screen screen(GoalResultView(GoalResultSnapshotV1(resultWithPeople(2)), {}, {}, {}, counting_));
  saveAnOutcome(screen, "vemra.goal.person.p0");
  saveAnOutcome(screen, "vemra.goal.person.p1");
  saveAnOutcome(screen, "vemra.goal.path");
  EXPECT_THAT(reports_, ElementsAre(1, 2, 3));
}

TEST_F(Callback, RecordOutcomeStaysTheSameObjectWhenItsControlIsDescribedAgain) {
  const GoalResultView view(GoalResultSnapshotV1(resultWithPeople(1)), {}, {}, {}, counting_);
  Screen screen(view);
  saveAnOutcome(screen, "vemra.goal.person.p0");
  screen.show(view);
  saveAnOutcome(screen, "vemra.goal.person.p0");
  EXPECT_THAT(reports_, ElementsAre(1, 2));
}

TEST_F(Callback, OpenPersonIsOneObjectForAllRows) {
  Screen screen(GoalResultView(GoalResultSnapshotV1(resultWithPeople(2)), counting_, {}, {}, {}));
  screen.press(testing::button("P0"));
  screen.press(testing::button("P1"));
  EXPECT_THAT(reports_, ElementsAre(1, 2));
}

TEST_F(Callback, ShowEvidenceIsOneObjectForAllRows) {
  Screen screen(GoalResultView(GoalResultSnapshotV1(resultWithPeople(2)), {}, counting_, {}, {}));
  screen.press("vemra.goal.person.p0.show-source");
  screen.press("vemra.goal.person.p1.show-source");
  EXPECT_THAT(reports_, ElementsAre(1, 2));
}

TEST_F(Callback, FocusPathIsOneObjectForEveryPress) {
  Screen screen(GoalResultView(GoalResultSnapshotV1(resultWithPeople(0)), {}, {}, counting_, {}));
  screen.press("vemra.goal.path.see-in-starfold");
  screen.press("vemra.goal.path.see-in-starfold");
  EXPECT_THAT(reports_, ElementsAre(1, 2));
}

TEST_F(Callback, IsOneObjectForAllCopiesOfTheView) {
  const GoalResultView view(GoalResultSnapshotV1(resultWithPeople(1)), counting_, {}, {},
                            counting_);
  const GoalResultView copy = view;  // NOLINT(performance-unnecessary-copy-initialization)
  for (const GoalResultView& shown : {view, copy}) {
    Screen screen(shown);
    saveAnOutcome(screen, "vemra.goal.person.p0");
  }
  EXPECT_THAT(reports_, ElementsAre(1, 2));
}

TEST_F(Callback, CapturesAreCopiedNoMoreOftenForManyRowsThanForNone) {
  const auto copiesToShow = [&](std::size_t people) {
    copies_ = 0;
    const GoalResultView view(GoalResultSnapshotV1(resultWithPeople(people)), counting_, counting_,
                              counting_, counting_);
    Screen screen(view);
    screen.show(view);
    screen.press("vemra.goal.path.outcome.start");
    screen.press("vemra.goal.path.outcome.save");
    return copies_;
  };
  const int forNone = copiesToShow(0);
  EXPECT_GT(forNone, 0) << "they are counted";
  EXPECT_EQ(copiesToShow(1000), forNone);
}

}  // namespace
}  // namespace vemra::screentest
