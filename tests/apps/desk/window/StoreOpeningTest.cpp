// A window with a store that it cannot open, or cannot write.

#include "apps/desk/window/StoreOpening.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/store/AsNobody.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <filesystem>

#include <QMessageBox>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class StoreOpeningTest : public OpenDesk {
 protected:
  StoreOpeningTest() { GoalStore::open(file).import({goal("g1", "One")}); }

  void openWindow(StoreOpening opening) {
    window = std::make_unique<DeskWindow>(std::move(opening), std::nullopt);
    window->resize(1200, 1500);
    window->show();
  }
  void closeWindow() {
    engine = window->engine();
    close();
  }
  /// The file, when it is no store.
  void damage() const {
    fs::rename(file, file + ".good");
    folder.write("goals.sqlite", std::string(200, 'x'));
  }
  void repair() const { fs::rename(file + ".good", file); }
  std::size_t recorded() const { return GoalStore::open(file).outcomes("g1").size(); }
  bool hasPage() const {
    return becomes([&] { return find<QWidget>("desk.store") != nullptr; });
  }

  const std::string person = "vemra.goal.person.p1";
};

TEST_F(StoreOpeningTest, AStoreThatCanBeWrittenIsOpenForEverything) {
  const StoreOpening opening = openStore(file);
  ASSERT_TRUE(opening.engine);
  EXPECT_FALSE(opening.isReadOnly());
  EXPECT_EQ(opening.problem, "");
}

TEST_F(StoreOpeningTest, AStoreThatMayNotBeWrittenIsOpenForReading) {
  fs::permissions(folder.path(), fs::perms(0755));
  fs::permissions(file, fs::perms(0444));
  const AsNobody rights;
  const StoreOpening opening = openStore(file);
  ASSERT_TRUE(opening.engine);
  EXPECT_TRUE(opening.isReadOnly());
  EXPECT_EQ(opening.problem, file + ": is read-only");
}

TEST_F(StoreOpeningTest, AFileThatIsNoStoreIsNotOpened) {
  damage();
  const StoreOpening opening = openStore(file);
  EXPECT_FALSE(opening.engine);
  EXPECT_FALSE(opening.mayBeRead);
  EXPECT_THAT(opening.problem, HasSubstr(file + ": is not an SQLite database"));
}

TEST_F(StoreOpeningTest, AStoreInAMissingFolderIsNotOpened) {
  const StoreOpening opening = openStore(folder.file("nowhere/goals.sqlite"));
  EXPECT_FALSE(opening.engine);
  EXPECT_THAT(opening.problem, HasSubstr("cannot be made: No such file or directory"));
}

TEST_F(StoreOpeningTest, AStoreThatIsLockedWhileItIsMadeMayBeRead) {
  const std::string empty = folder.write("empty.sqlite", "");
  RawDatabase other(empty);
  ASSERT_EQ(other.run("BEGIN EXCLUSIVE"), "");
  const StoreOpening opening = openStore(empty);
  EXPECT_FALSE(opening.engine);
  EXPECT_TRUE(opening.mayBeRead);
  EXPECT_THAT(opening.problem, HasSubstr("is in use by another program"));
}

TEST_F(StoreOpeningTest, AWindowWithoutAStoreShowsTheReasonAndTriesAgain) {
  damage();
  openWindow(openStore(file));
  ASSERT_TRUE(hasPage());
  EXPECT_TRUE(shows("This store cannot be opened"));
  EXPECT_TRUE(shows(QString::fromStdString(file) + ": is not an SQLite database"))
      << texts().join("\n").toStdString();
  EXPECT_EQ(find<QWidget>("desk.goals"), nullptr);
  EXPECT_EQ(find<QWidget>("desk.store.read"), nullptr) << "it cannot be read either";
  EXPECT_FALSE(window->engine());
  press("desk.store.again");
  EXPECT_TRUE(hasPage()) << "nothing has changed";
  repair();
  press("desk.store.again");
  EXPECT_TRUE(becomes([&] { return shows("One", "desk.goals"); }));
  EXPECT_EQ(find<QWidget>("desk.store"), nullptr);
  EXPECT_TRUE(window->engine());
  closeWindow();
}

TEST_F(StoreOpeningTest, AnotherStoreReplacesOneThatCannotBeOpened) {
  const std::string other = folder.file("other.sqlite");
  GoalStore::open(other).import({goal("o", "Other")});
  damage();
  openWindow(openStore(file));
  ASSERT_TRUE(hasPage());
  window->open(other);
  EXPECT_TRUE(becomes([&] { return shows("Other", "desk.goals"); }));
}

TEST_F(StoreOpeningTest, AStoreThatCannotBeOpenedLeavesTheOpenStoreAndGivesTheReason) {
  const std::string other = folder.file("other.sqlite");
  GoalStore::open(other).import({goal("o", "Other")});
  damage();
  openWindow(openStore(other));
  EXPECT_TRUE(becomes([&] { return shows("Other", "desk.goals"); }));
  window->open(file);
  EXPECT_TRUE(becomes([&] {
    return texts("desk.notice").join("\n").contains("goals.sqlite: is not an SQLite database");
  }));
  EXPECT_TRUE(shows("Other", "desk.goals"));
  EXPECT_EQ(find<QWidget>("desk.store"), nullptr);
  press("desk.notice.dismiss");
  window->open(other);
  EXPECT_EQ(find<QWidget>("desk.notice"), nullptr) << "the window still knows its store";
  closeWindow();
}

TEST_F(StoreOpeningTest, AStoreThatIsLockedCanBeTriedAgainFromTheOpenStore) {
  const std::string other = folder.write("other.sqlite", "");
  openWindow(openStore(file));
  EXPECT_TRUE(becomes([&] { return shows("One", "desk.goals"); }));
  {
    RawDatabase program(other);
    ASSERT_EQ(program.run("BEGIN EXCLUSIVE"), "");
    window->open(other);
    EXPECT_TRUE(becomes(
        [&] { return texts("desk.notice").join("\n").contains("is in use by another program"); }));
    EXPECT_TRUE(shows("One", "desk.goals"));
  }
  press("desk.notice.again");
  EXPECT_TRUE(becomes([&] { return find<QWidget>("desk.welcome") != nullptr; }));
  closeWindow();
}

TEST_F(StoreOpeningTest, AStoreForReadingOnlyHasABarAndItsGoals) {
  StoreOpening opening = openStore(file, StoreUse::reading);
  opening.problem = file + ": is read-only";
  openWindow(std::move(opening));
  ASSERT_TRUE(becomes([&] { return shows("One", "desk.goals"); }));
  auto* bar = wait<QWidget>("desk.readOnly");
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(bar->accessibleName(),
            "This store is open for reading only. Nothing can be recorded in it.\n" +
                QString::fromStdString(file) + ": is read-only");
}

TEST_F(StoreOpeningTest,
       AnOutcomeThatCannotBeRecordedShowsTheReasonAndIsRecordedWhenTheStoreCanBeWritten) {
  openWindow(openStore(file, StoreUse::reading));
  press(person + ".outcome.start");
  press(person + ".outcome.save");
  ASSERT_NE(wait<QWidget>("desk.waiting"), nullptr);
  EXPECT_TRUE(becomes([&] {
    return texts("desk.waiting").join("\n").contains("goals.sqlite: is open for reading only");
  }));
  EXPECT_TRUE(texts("desk.waiting").join("\n").contains("It would be lost"));
  EXPECT_FALSE(fs::exists(file + "-waiting")) << "nothing is written beside such a store";
  EXPECT_EQ(recorded(), 0u);
  press("desk.readOnly.again");
  EXPECT_NE(wait<QAbstractButton>(person + ".outcome.correct"), nullptr);
  EXPECT_EQ(recorded(), 1u);
  EXPECT_EQ(find<QWidget>("desk.readOnly"), nullptr);
  EXPECT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  closeWindow();
}

TEST_F(StoreOpeningTest, WaitingOutcomesStayWhenTheStoreCannotBeOpenedAtAll) {
  openWindow(openStore(file, StoreUse::reading));
  press(person + ".outcome.start");
  press(person + ".outcome.save");
  ASSERT_NE(wait<QWidget>("desk.waiting"), nullptr);
  damage();
  press("desk.readOnly.again");
  EXPECT_TRUE(becomes([&] {
    return texts("desk.notice").join("\n").contains("goals.sqlite: is not an SQLite database");
  }));
  EXPECT_NE(find<QWidget>("desk.waiting"), nullptr);
  repair();
  press("desk.readOnly.again");
  EXPECT_NE(wait<QAbstractButton>(person + ".outcome.correct"), nullptr);
  EXPECT_EQ(recorded(), 1u);
  closeWindow();
}

TEST_F(StoreOpeningTest, AQuestionAboutLosingAnOutcomeAppearsRightAfterSaving) {
  openWindow(openStore(file, StoreUse::reading));
  press(person + ".outcome.start");
  wait<QAbstractButton>(person + ".outcome.save");
  press(person + ".outcome.save");
  window->close();
  EXPECT_TRUE(window->isVisible());
  EXPECT_NE(find<QMessageBox>("desk.question"), nullptr);
}

TEST_F(StoreOpeningTest, TheProgramNamesTheStoreAndEndsWhereNobodySeesAWindow) {
  damage();
  Invocation invocation{{"--store", file}};
  invocation.environment = {{"QT_QPA_PLATFORM", "offscreen"}};
  const Ending ending = run(invocation);
  EXPECT_EQ(ending.exitCode, 2);
  EXPECT_EQ(ending.output, "");
  EXPECT_EQ(ending.diagnostics, file + ": is not an SQLite database\n");
}

}  // namespace
}  // namespace vemra::desk
