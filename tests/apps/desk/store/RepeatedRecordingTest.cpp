#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "tests/apps/desk/AfterCommit.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <filesystem>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
namespace fs = std::filesystem;

class RepeatedRecordingTest : public StoreFile {
 protected:
  RepeatedRecordingTest() { GoalStore::open(file).import({goal("g1", "One"), goal("g2", "Two")}); }

  static GoalOutcomeRecordingInput input(const std::string& note = "note") {
    return {GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::helped, note, "o7"};
  }
  std::size_t recorded() const { return GoalStore::open(file).outcomes("g1").size(); }

  const std::string id = newOutcomeID();
};

TEST_F(RepeatedRecordingTest, AnOutcomeIsRecordedWithTheGivenId) {
  GoalStore store = GoalStore::open(file);
  EXPECT_EQ(store.record("g1", input(), id).id, id);
  EXPECT_EQ(store.outcomes("g1")[0].id, id);
}

TEST_F(RepeatedRecordingTest, ARepeatReturnsTheRecordAndRecordsNothing) {
  GoalStore store = GoalStore::open(file);
  const GoalOutcomeDTO first = store.record("g1", input(), id);
  RawDatabase(file).run(
      "DROP TRIGGER outcomes_stay_as_recorded; UPDATE outcomes SET recorded_at = "
      "'2020-01-01T00:00:00Z'; CREATE TRIGGER outcomes_stay_as_recorded BEFORE UPDATE ON outcomes\n"
      "BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never rewritten'); END");
  const GoalOutcomeDTO second = store.record("g1", input(), id);
  EXPECT_EQ(second.recordedAt, "2020-01-01T00:00:00Z") << "that of the record";
  EXPECT_EQ(second.id, first.id);
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(RepeatedRecordingTest, ADifferentOutcomeWithTheIdStaysAndNothingIsRecorded) {
  GoalStore store = GoalStore::open(file);
  store.record("g1", input(), "o1");
  const std::string refusal = file + ": has another outcome of the id \"o1\", which stays";
  EXPECT_EQ(errorOf([&] { store.record("g1", input("other"), "o1"); }), refusal);
  EXPECT_EQ(errorOf([&] { store.record("g2", input(), "o1"); }), refusal);
  EXPECT_EQ(recorded(), 1u);
  EXPECT_TRUE(store.outcomes("g2").empty());
}

TEST_F(RepeatedRecordingTest, TheRecordIsFoundAmongOthersOfItsId) {
  GoalStore store = GoalStore::open(file);
  store.import({goal("g2", "Two", {outcome("o1", "p1", GoalOutcomeValue::invited)})});
  RawDatabase(file).run(
      "INSERT INTO outcomes SELECT NULL, 1, 'o1', 'g1', subject_kind, subject_ref, 'helped', "
      "'note', NULL, NULL, 'o7' FROM outcomes");
  EXPECT_EQ(errorOf([&] { store.record("g1", input(), "o1"); }), "no error");
  EXPECT_EQ(recorded(), 1u);
}

// The store moves after the commit and before the acknowledgement.
TEST_F(RepeatedRecordingTest, AnOutcomeThatWasRefusedThoughCommittedIsRecordedOnce) {
  const std::string away = folder.file("away.sqlite");
  const AfterCommit moving([&] { fs::rename(file, away); });
  StoreEngine engine(file, Patience(300));
  EXPECT_EQ(errorOf([&] { task::wait(engine.record("g1", input(), std::nullopt, id)); }),
            file + ": was moved or removed while it was open");
  EXPECT_TRUE(moving.hasHappened());
  fs::rename(away, file);
  EXPECT_EQ(recorded(), 1u) << "it was committed";
  EXPECT_EQ(task::wait(engine.record("g1", input(), std::nullopt, id)).id, id);
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(RepeatedRecordingTest, ARepeatIsInTheFileBeforeItIsAcknowledged) {
  GoalStore store = GoalStore::open(file);
  store.record("g1", input(), id);
  store.record("g1", input(), id);
  fs::copy_file(file, folder.file("copy.sqlite"));
  EXPECT_EQ(GoalStore::open(folder.file("copy.sqlite")).outcomes("g1").size(), 1u);
}

}  // namespace
}  // namespace vemra::desk
