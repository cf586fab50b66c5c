#include "VemraPlatform/task/Start.hpp"
#include "tests/apps/desk/AfterCommit.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <filesystem>

#include <QLineEdit>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;

/// A window whose store is moved, removed or replaced.
class MovedStoreWindowTest : public OpenDesk {
 protected:
  MovedStoreWindowTest() { GoalStore::open(file).import({goal("g1", "One")}); }

  bool notices(const std::string& text) const {
    return becomes(
        [&] { return texts("desk.notice").join("\n").contains(QString::fromStdString(text)); });
  }
  bool waits(const std::string& text) const {
    return becomes(
        [&] { return texts("desk.waiting").join("\n").contains(QString::fromStdString(text)); });
  }
  std::string notice() const { return texts("desk.notice").join("\n").toStdString(); }

  void replaceBy(const std::string& goalID, const std::string& title) const {
    const std::string backup = folder.file("backup.sqlite");
    GoalStore::open(backup).import({goal(goalID, title)});
    fs::rename(backup, file);
  }

  std::size_t recorded() const { return GoalStore::openExisting(file)->outcomes("g1").size(); }

  const std::string person = "vemra.goal.person.p1";
  const std::string away = folder.file("away.sqlite");
};

TEST_F(MovedStoreWindowTest, AMissingStoreIsNoticedWithoutAnAction) {
  open();
  wait<QAbstractButton>(person + ".outcome.start");
  fs::remove(file);
  EXPECT_TRUE(notices("goals.sqlite: was moved or removed while it was open")) << notice();
}

TEST_F(MovedStoreWindowTest, AnOutcomeForAMissingStoreIsKeptAndRecordedWhenItIsBack) {
  open();
  press(person + ".outcome.start");
  wait<QLineEdit>(person + ".outcome.note")->setText("kept");
  fs::rename(file, away);
  press(person + ".outcome.save");
  EXPECT_TRUE(waits("Not stored yet:\n“Was useful” for \u2068Ada\u2069 (\u2068One\u2069)"))
      << notice();
  EXPECT_TRUE(waits("was moved or removed while it was open")) << notice();
  EXPECT_TRUE(notices("The store could not be read.")) << notice();
  EXPECT_FALSE(fs::exists(file));

  fs::rename(away, file);
  EXPECT_TRUE(notices("The store is shown as it is now")) << notice();
  EXPECT_TRUE(waits("was replaced by another file while it was open"))
      << "the outcome is tried again";
  EXPECT_EQ(recorded(), 0u) << "only on the user's request";
  press("desk.waiting.again");
  ASSERT_NE(wait<QAbstractButton>(person + ".outcome.correct"), nullptr) << notice();
  EXPECT_EQ(recorded(), 1u);
}

// The store moves after the commit and before the acknowledgement.
TEST_F(MovedStoreWindowTest, AnOutcomeThatWasRefusedThoughCommittedIsRecordedOnce) {
  const AfterCommit moving([&] { fs::rename(file, away); });
  open();
  press(person + ".outcome.start");
  press(person + ".outcome.save");
  EXPECT_TRUE(waits("Not stored yet:")) << notice();
  ASSERT_TRUE(moving.hasHappened());
  const std::uint64_t before = engine->storeNumber();
  fs::rename(away, file);
  EXPECT_EQ(recorded(), 1u) << "it was committed";
  // Until then the store at the path counts as a different store, which refuses the outcome again.
  ASSERT_TRUE(becomes([&] { return engine->storeNumber() != before; })) << "it is opened anew";
  press("desk.waiting.again");
  EXPECT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  pass(600);
  EXPECT_EQ(find<QWidget>("desk.waiting"), nullptr) << notice();
  EXPECT_EQ(recorded(), 1u);
}

TEST_F(MovedStoreWindowTest, AStoreThatCannotBeReadAtFirstIsShownWhenItCanBeRead) {
  fs::rename(file, away);
  fs::create_directory(file);
  open();
  EXPECT_TRUE(notices("cannot be opened: not a file")) << notice();
  fs::remove(file);
  fs::rename(away, file);
  EXPECT_TRUE(becomes([&] { return shows("One", "desk.goals"); })) << notice();
}

TEST_F(MovedStoreWindowTest, ANewStoreAtThePathIsShownAndNothingIsRecordedInItUnasked) {
  open();
  press(person + ".outcome.start");
  replaceBy("g1", "Of the backup");
  press(person + ".outcome.save");
  EXPECT_TRUE(waits("was replaced by another file while it was open")) << notice();
  EXPECT_TRUE(becomes([&] { return shows("Of the backup", "desk.goals"); }));
  pass(600);
  EXPECT_EQ(recorded(), 0u);
  EXPECT_TRUE(waits("was replaced by another file while it was open")) << notice();
  press("desk.waiting.again");
  EXPECT_TRUE(becomes([&] { return recorded() == 1; })) << notice();
}

TEST_F(MovedStoreWindowTest, AnOutcomeOfAGoalThatTheNewStoreDoesNotHaveIsKept) {
  open();
  press(person + ".outcome.start");
  replaceBy("g9", "Of the backup");
  press(person + ".outcome.save");
  EXPECT_TRUE(waits("was replaced by another file while it was open")) << notice();
  EXPECT_TRUE(becomes([&] { return shows("Of the backup", "desk.goals"); }));
  press("desk.waiting.again");
  EXPECT_TRUE(waits("has no goal with the id \"g1\"")) << notice();
  EXPECT_NE(find<QAbstractButton>("desk.waiting.again"), nullptr) << "it is still waiting";
  EXPECT_EQ(RawDatabase(file).value("SELECT count(*) FROM outcomes"), "0");
}

TEST_F(MovedStoreWindowTest, AnOutcomeOnAScreenOfTheOldStoreIsNotRecordedInTheNewStore) {
  open();
  press(person + ".outcome.start");
  wait<QAbstractButton>(person + ".outcome.save");
  replaceBy("g1", "Of the backup");
  // The engine checks the store, and opens the new one, before the window notices.
  for (int i = 0; i < 2; ++i) {
    try {
      task::wait(engine->version());
    } catch (const std::exception&) {
    }
  }
  press(person + ".outcome.save");
  EXPECT_TRUE(waits("was replaced by another file while it was open")) << notice();
  EXPECT_EQ(recorded(), 0u);
}

TEST_F(MovedStoreWindowTest, AFailureToLoadIsShownOnceWhileTheWindowTriesByItself) {
  open();
  wait<QAbstractButton>(person + ".outcome.start");
  replaceBy("g9", "Of the backup");
  EXPECT_TRUE(notices("The goal could not be loaded.")) << notice();
  press("desk.notice.dismiss");
  GoalStore::open(file).import({goal("g8", "More")});
  EXPECT_TRUE(becomes([&] { return shows("More", "desk.goals"); }));
  pass(300);
  EXPECT_EQ(find<QAbstractButton>("desk.notice.dismiss"), nullptr) << notice();
}

}  // namespace
}  // namespace vemra::desk
