#include "VemraQt/ViewWidget.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <sys/resource.h>

#include <QAccessible>
#include <QLineEdit>
#include <QMessageBox>

namespace vemra::desk {
namespace {

/// While it lives, no file of this process can grow, as on a full disk.
class NoRoom {
 public:
  NoRoom() {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    rlimit none = before_;
    none.rlim_cur = 0;
    std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &none);
  }
  ~NoRoom() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, SIG_DFL);
  }

 private:
  rlimit before_{};
};

class RecordingTest : public OpenDesk {
 protected:
  RecordingTest() { GoalStore::open(file).import(sampleGoals()); }

  SharedArray<GoalOutcomeDTO> recorded() const {
    return GoalStore::open(file).outcomes("sample-design-lead");
  }

  std::string waiting() const { return texts("desk.waiting").join("\n").toStdString(); }

  const std::string mai = "vemra.goal.person.nguyen-thi-mai";
  const std::string tomas = "vemra.goal.person.tomas-lindqvist";
};

TEST_F(RecordingTest, AnOutcomeGoesThroughTheStoreBackToTheScreen) {
  open();
  press(mai + ".outcome.start");
  wait<QLineEdit>(mai + ".outcome.note")->setText("  met <b>at</b> & after the fair ");
  press(mai + ".outcome.save");
  ASSERT_NE(wait<QAbstractButton>(mai + ".outcome.correct"), nullptr);

  ASSERT_EQ(recorded().size(), 5u);
  const GoalOutcomeDTO outcome = recorded()[4];
  EXPECT_EQ(outcome.subjectKind, GoalOutcomeSubjectKind::person);
  EXPECT_EQ(outcome.subjectRef, "nguyen-thi-mai");
  EXPECT_EQ(outcome.value, GoalOutcomeValue::wasUseful);
  EXPECT_EQ(outcome.note, "met <b>at</b> & after the fair");
  EXPECT_EQ(outcome.correctsOutcomeID, std::nullopt);
  EXPECT_TRUE(shows("met <b>at</b> & after the fair")) << texts().join("\n").toStdString();

  const Ending ending = run({{"outcomes", "--store", file, "--goal", "sample-design-lead"}});
  EXPECT_EQ(ending.exitCode, 0) << ending.diagnostics;
  EXPECT_EQ(ending.output, documents::writeOutcomes(recorded()));
}

TEST_F(RecordingTest, ACorrectionNamesTheRecordInForceAndShowsItsMarker) {
  open();
  const std::string amara = "vemra.goal.person.amara-okafor";
  press(amara + ".outcome.correct");
  EXPECT_EQ(wait<QLineEdit>(amara + ".outcome.note")->text(),
            "Wrote to her on Monday; she answers from the train.");
  press(amara + ".outcome.save");
  ASSERT_NE(wait<QLabel>(amara + ".outcome.corrected-marker"), nullptr);
  ASSERT_EQ(recorded().size(), 5u);
  EXPECT_EQ(recorded()[4].correctsOutcomeID, "sample-outcome-1");
  EXPECT_EQ(recorded()[0], sampleGoals()[0].outcomes[0]) << "the first record must stay";
}

TEST_F(RecordingTest, ThePathIsRecordedForItsLastPerson) {
  open();
  press("vemra.goal.path.outcome.correct");
  press("vemra.goal.path.outcome.save");
  ASSERT_TRUE(becomes([&] { return recorded().size() == 5; }));
  EXPECT_EQ(recorded()[4].subjectKind, GoalOutcomeSubjectKind::path);
  EXPECT_EQ(recorded()[4].subjectRef, "tomas-lindqvist");
}

TEST_F(RecordingTest, AFailureIsShownAndCanBeTriedAgain) {
  open();
  press(mai + ".outcome.start");
  RawDatabase other(file);
  ASSERT_EQ(other.run("CREATE TRIGGER refuse BEFORE INSERT ON outcomes "
                      "BEGIN SELECT RAISE(ABORT, 'the dog ate it'); END"),
            "");
  press(mai + ".outcome.save");
  auto* bar = wait<QWidget>("desk.waiting");
  ASSERT_NE(bar, nullptr);
  const QString message =
      "Not stored yet:\n“Was useful” for \u2068Nguyễn Thị Mai\u2069 (\u2068Find a design lead for "
      "the "
      "spring launch\u2069)\n" +
      QString::fromStdString(file) + ": is damaged: the trigger \"refuse\" is not part of a store";
  EXPECT_TRUE(becomes([&] { return shows(message, "desk.waiting"); })) << waiting();
  EXPECT_EQ(bar->accessibleName(), message);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(bar)->role(), QAccessible::Notification);
  EXPECT_EQ(other.value("SELECT count(*) FROM outcomes"), "4");

  ASSERT_EQ(other.run("DROP TRIGGER refuse"), "");
  press("desk.waiting.again");
  ASSERT_NE(wait<QAbstractButton>(mai + ".outcome.correct"), nullptr);
  EXPECT_EQ(recorded().size(), 5u);
  EXPECT_FALSE(bar->isVisible());
}

TEST_F(RecordingTest, WhileTheStoreIsLockedOutcomesWaitAndAreStoredInTheirOrder) {
  patience = std::chrono::milliseconds(100);
  open();
  wait<QAbstractButton>(mai + ".outcome.start");
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  const auto save = [&](const std::string& person, const char* note) {
    press(person + ".outcome.start");
    wait<QLineEdit>(person + ".outcome.note")->setText(note);
    press(person + ".outcome.save");
  };
  save(mai, "first");
  EXPECT_TRUE(
      becomes([&] { return waiting().find("in use by another program") != std::string::npos; }));
  press("desk.goal.sample-sail-the-baltic");
  ASSERT_TRUE(becomes([&] { return shows("No source evidence yet."); }));
  EXPECT_NE(waiting().find("“Was useful” for \u2068Nguyễn Thị Mai\u2069 (\u2068Find a design lead"),
            std::string::npos)
      << "in the words of its own goal: " << waiting();
  press("desk.goal.sample-design-lead");
  save(tomas, "second");
  EXPECT_TRUE(becomes([&] { return waiting().find("Not stored yet (2):") == 0; })) << waiting();
  pass(1200);  // it is tried again meanwhile
  EXPECT_EQ(recorded().size(), 4u);

  ASSERT_EQ(other.run("ROLLBACK"), "");
  ASSERT_TRUE(becomes([&] { return recorded().size() == 6; })) << "by itself";
  EXPECT_EQ(recorded()[4].note, "first");
  EXPECT_EQ(recorded()[5].note, "second");
  EXPECT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  pass(100);
  EXPECT_EQ(recorded().size(), 6u) << "each once";
}

TEST_F(RecordingTest, AFullDiskIsTriedAgain) {
  open();
  wait<QAbstractButton>(mai + ".outcome.start");
  press(mai + ".outcome.start");
  {
    const NoRoom noRoom;
    press(mai + ".outcome.save");
    ASSERT_NE(wait<QWidget>("desk.waiting"), nullptr);
    EXPECT_NE(waiting().find("It would be lost if the program ended now."), std::string::npos)
        << "the journal had no room either: " << waiting();
  }
  ASSERT_NE(wait<QAbstractButton>(mai + ".outcome.correct"), nullptr) << "by itself";
  EXPECT_EQ(recorded().size(), 5u);
}

TEST_F(RecordingTest, AWaitingOutcomeCanBeDiscardedAfterAQuestion) {
  patience = std::chrono::milliseconds(100);
  open();
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  press(mai + ".outcome.start");
  press(mai + ".outcome.save");
  press("desk.waiting.discard");
  auto* question = wait<QMessageBox>("desk.discard");
  ASSERT_NE(question, nullptr);
  EXPECT_TRUE(question->informativeText().startsWith("“Was useful” for \u2068Nguyễn Thị Mai"));
  question->button(QMessageBox::Discard)->click();
  EXPECT_TRUE(becomes([&] { return find<QWidget>("desk.waiting") == nullptr; }));
  EXPECT_FALSE(std::filesystem::exists(file + "-waiting"));
  ASSERT_EQ(other.run("ROLLBACK"), "");
  pass(1200);  // longer than the first pauses between two tries
  EXPECT_EQ(recorded().size(), 4u);
}

TEST_F(RecordingTest, AnImportByAnotherProcessAppearsAndDoesNotDisturbTyping) {
  open();
  press(mai + ".outcome.start");
  auto* note = wait<QLineEdit>(mai + ".outcome.note");
  ASSERT_NE(note, nullptr);
  note->setText("half a sen");
  auto changed = sampleGoals()[0];
  changed.goal.title = "Found elsewhere";
  const std::string document = folder.write("a.json", documents::writeResult(changed));
  const std::string added = folder.write("b.json", documents::writeResult(goal("x", "Added")));
  ASSERT_EQ(run({{"import", "--store", file, document, added}}).exitCode, 0);
  ASSERT_TRUE(becomes([&] { return shows("Found elsewhere") && shows("Added"); }));
  EXPECT_EQ(find<QLineEdit>(mai + ".outcome.note"), note) << "the same field";
  EXPECT_EQ(note->text(), "half a sen");
}

TEST_F(RecordingTest, AnEditorStaysWithItsGoal) {
  GoalStore::open(file).import({goal("a", "First"), goal("b", "Second")});
  open("a");
  press("vemra.goal.person.p1.outcome.start");
  ASSERT_NE(wait<QLineEdit>("vemra.goal.person.p1.outcome.note"), nullptr);
  press("desk.goal.b");
  ASSERT_TRUE(becomes([&] {
    return shows("Second", "desk.goals") &&
           find<QAbstractButton>("vemra.goal.person.p1.outcome.start") != nullptr;
  })) << "both goals know p1, and only the first one's editor was opened";
}

}  // namespace
}  // namespace vemra::desk
