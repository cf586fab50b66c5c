// The state that is kept and lost when new snapshots arrive while the user is writing.

#include "tests/VemraGoalSurface/Shape.hpp"
#include "tests/journeys/MemoryHost.hpp"

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using ::testing::ElementsAre;

/// The user is in the middle of a note to Bo, the second of three.
class MidEdit : public ::testing::Test {
 protected:
  MidEdit() {
    bo.recordOutcome();
    bo.choose("invited");
    bo.write("half a sen");
    field_ = noteField();
  }

  ui::NodeID noteField() const { return host.screen.get("vemra.goal.person.p2.outcome.note").id; }

  void expectBoKept() const {
    ASSERT_TRUE(bo.isEditing()) << host.screen.outline();
    EXPECT_EQ(bo.chosen(), "invited");
    EXPECT_EQ(bo.note(), "half a sen");
    EXPECT_EQ(noteField(), field_)
        << "the field is a different node: a window would lose the focus";
  }

  void expectBoLost() const {
    EXPECT_TRUE(bo.isOffering()) << host.screen.outline();
    EXPECT_FALSE(bo.isEditing());
  }

  void setPeople(std::vector<GoalPersonCandidateDTO> people) {
    host.change([&](Result& result) { result.people = std::move(people); });
  }

  MemoryHost host{threePeople()};
  ControlOnScreen bo = personControl(host, "p2");

 private:
  ui::NodeID field_;
};

TEST_F(MidEdit, TheSourceButtonAppearsAndDisappearsAbove) {
  setPeople({person("p1", "Ada"), person("p2", "Bo", {"ev1"}), person("p3", "Cy")});
  ASSERT_TRUE(host.screen.has("vemra.goal.person.p2.show-source"));
  expectBoKept();
  setPeople({person("p1", "Ada"), person("p2", "Bo"), person("p3", "Cy")});
  ASSERT_FALSE(host.screen.has("vemra.goal.person.p2.show-source"));
  expectBoKept();
}

TEST_F(MidEdit, RowsAreReordered) {
  setPeople({person("p3", "Cy"), person("p2", "Bo"), person("p1", "Ada")});
  expectBoKept();
  setPeople({person("p2", "Bo"), person("p1", "Ada"), person("p3", "Cy")});
  expectBoKept();
  EXPECT_EQ(face(host.screen, 0).at(0), "VStack leading 6");
}

TEST_F(MidEdit, RowsAreInserted) {
  setPeople({person("p0", "Zoe"), person("p1", "Ada"), person("px", "Xi"), person("p2", "Bo"),
             person("p3", "Cy"), person("p4", "Di")});
  expectBoKept();
}

TEST_F(MidEdit, OtherRowsAreRemoved) {
  setPeople({person("p2", "Bo")});
  expectBoKept();
}

TEST_F(MidEdit, NameReasonAndFooterChange) {
  host.change([](Result& result) {
    GoalPersonCandidateDTO renamed = person("p2", "Robert");
    renamed.why = GoalWhyDTO::connection(5);
    result.people = {person("p1"), renamed, person("p3")};
    result.goal.title = "Another title";
    result.coverage.evidenceCount = 0;
  });
  expectBoKept();
}

TEST_F(MidEdit, ThePersonLeavesAndReturns) {
  setPeople({person("p1", "Ada"), person("p3", "Cy")});
  setPeople({person("p1", "Ada"), person("p2", "Bo"), person("p3", "Cy")});
  expectBoLost();
}

TEST_F(MidEdit, TheListOfPeopleIsEmptiedAndFilledAgain) {
  setPeople({});
  EXPECT_FALSE(bo.isEditing());
  setPeople({person("p1", "Ada"), person("p2", "Bo"), person("p3", "Cy")});
  expectBoLost();
}

TEST_F(MidEdit, ThePathAppearsAndDisappearsBelow) {
  host.change([](Result& result) { result.paths = {}; });
  expectBoKept();
  host.change([](Result& result) { result.paths = {path({"p9"})}; });
  expectBoKept();
}

TEST_F(MidEdit, TheOutcomeArrivesAndSaveNamesIt) {
  host.change([](Result& result) {
    result.outcomes = {outcome("new", SubjectKind::person, "p2", Value::helped)};
  });
  expectBoKept();
  bo.save();
  EXPECT_THAT(host.log, ElementsAre("person \"p2\" invited note=\"half a sen\" corrects=\"new\""));
}

TEST_F(MidEdit, TheReferenceChangesToItsOtherNormalForm) {
  setPeople({person(composed, "Bo")});
  ControlOnScreen before = personControl(host, composed);
  before.recordOutcome();
  before.write("kept");
  setPeople({person("first"), person(decomposed, "Bo")});
  EXPECT_FALSE(before.isEditing());  // the identifiers carry the new bytes
  ControlOnScreen after = personControl(host, decomposed);
  ASSERT_TRUE(after.isEditing()) << host.screen.outline();
  EXPECT_EQ(after.note(), "kept");
  after.save();
  EXPECT_THAT(host.log,
              ElementsAre("person \"" + decomposed + "\" wasUseful note=\"kept\" corrects=nil"));
}

/// The user corrects an outcome that changes meanwhile.
class MidCorrection : public ::testing::Test {
 protected:
  MidCorrection() {
    setOutcomes({outcome("o1", SubjectKind::person, "p1", Value::helped, "met")});
    ada.correct();
    ada.write("met twice");
  }

  void setOutcomes(std::vector<GoalOutcomeDTO> outcomes) {
    host.change([&](Result& result) { result.outcomes = std::move(outcomes); });
  }

  void expectKept() const {
    EXPECT_EQ(ada.chosen(), "helped");
    EXPECT_EQ(ada.note(), "met twice");
  }

  MemoryHost host{threePeople()};
  ControlOnScreen ada = personControl(host, "p1");
};

TEST_F(MidCorrection, SaveNamesTheRecordInForceAtThatMoment) {
  setOutcomes({outcome("o1", SubjectKind::person, "p1", Value::helped, "met"),
               outcome("o2", SubjectKind::person, "p1", Value::notAFit, "other", "o1")});
  expectKept();
  ada.save();
  EXPECT_THAT(host.log, ElementsAre("person \"p1\" helped note=\"met twice\" corrects=\"o2\""));
}

TEST_F(MidCorrection, SaveCorrectsNothingWhenTheOutcomeIsGone) {
  setOutcomes({});
  expectKept();
  ada.save();
  EXPECT_THAT(host.log, ElementsAre("person \"p1\" helped note=\"met twice\" corrects=nil"));
}

TEST_F(MidCorrection, AnOutcomeOfAnotherPersonChangesNothing) {
  setOutcomes({outcome("o1", SubjectKind::person, "p1", Value::helped, "met"),
               outcome("o2", SubjectKind::person, "p2", Value::notAFit),
               outcome("o3", SubjectKind::path, "p1", Value::notAFit)});
  expectKept();
  ada.save();
  EXPECT_THAT(host.log, ElementsAre("person \"p1\" helped note=\"met twice\" corrects=\"o1\""));
}

TEST_F(MidCorrection, CancelShowsTheOutcomeInForceAtThatMoment) {
  setOutcomes({outcome("o1", SubjectKind::person, "p1", Value::helped, "met"),
               outcome("o2", SubjectKind::person, "p1", Value::notAFit, "other", "o1")});
  ada.cancel();
  EXPECT_TRUE(host.screen.has(testing::byText("Not a fit")));
  EXPECT_TRUE(host.screen.has(testing::byText("other")));
}

/// The user edits the path's outcome while the paths change.
class MidPathEdit : public ::testing::Test {
 protected:
  MidPathEdit() {
    control.recordOutcome();
    control.choose("introduced");
    control.write("via Ada");
  }

  void setPaths(std::vector<GoalPathCandidateDTO> paths) {
    host.change([&](Result& result) { result.paths = std::move(paths); });
  }

  MemoryHost host{threePeople()};
  ControlOnScreen control = pathControl(host);
};

TEST_F(MidPathEdit, AnotherFirstPathKeepsTheEntryAndSaveNamesTheNewSubject) {
  setPaths({path({"p3", "p8"}, GoalWhyDTO::nameMatch()), path({"p1", "p9"})});
  ASSERT_TRUE(control.isEditing());
  EXPECT_EQ(control.chosen(), "introduced");
  EXPECT_EQ(control.note(), "via Ada");
  control.save();
  EXPECT_THAT(host.log, ElementsAre("path \"p8\" introduced note=\"via Ada\" corrects=nil"));
}

TEST_F(MidPathEdit, AnotherFirstPathWithAnOutcomeIsCorrected) {
  host.change([](Result& result) {
    result.paths = {path({"p8"})};
    result.outcomes = {outcome("o8", SubjectKind::path, "p8", Value::helped)};
  });
  control.save();
  EXPECT_THAT(host.log, ElementsAre("path \"p8\" introduced note=\"via Ada\" corrects=\"o8\""));
}

TEST_F(MidPathEdit, AnEmptyFirstPathKeepsTheEntryToo) {
  setPaths({path({})});
  control.save();
  EXPECT_THAT(host.log, ElementsAre("path nil introduced note=\"via Ada\" corrects=nil"));
}

TEST_F(MidPathEdit, TheListOfPathsIsEmptiedAndFilledAgain) {
  setPaths({});
  EXPECT_FALSE(control.isEditing());
  setPaths({path({"p1", "p9"})});
  EXPECT_TRUE(control.isOffering()) << host.screen.outline();
  EXPECT_THAT(host.screen.outline(),
              ::testing::HasSubstr("state={isEditing=false selectedValue=\"wasUseful\" "
                                   "noteText=\"\"}"));
}

TEST_F(MidPathEdit, PeopleAreAddedAndRemovedAbove) {
  host.change([](Result& result) { result.people = {}; });
  host.change([](Result& result) { result.people = {person("p4")}; });
  EXPECT_EQ(control.note(), "via Ada");
}

TEST(LateEvents, ForAClosedEditorDoNothing) {
  MemoryHost host{threePeople()};
  ControlOnScreen bo = personControl(host, "p2");
  bo.recordOutcome();
  const ui::NodeID note = host.screen.get("vemra.goal.person.p2.outcome.note").id;
  const ui::NodeID save = host.screen.get("vemra.goal.person.p2.outcome.save").id;
  host.change([](Result& result) { result.people = {}; });
  const std::string before = host.screen.outline();
  EXPECT_EQ(host.screen.graph().deliver(note, ui::EditText{"late"}), ui::Delivery::gone);
  EXPECT_EQ(host.screen.graph().deliver(save, ui::Press{}), ui::Delivery::gone);
  EXPECT_EQ(host.screen.outline(), before);
  EXPECT_THAT(host.log, ElementsAre());
}

}  // namespace
}  // namespace vemra::screentest
