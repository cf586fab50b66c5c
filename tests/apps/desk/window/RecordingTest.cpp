#include "VemraQt/ViewWidget.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <chrono>
#include <csignal>
#include <sys/resource.h>

#include <QLineEdit>

namespace vemra::desk {
namespace {

/// No file of this process grows for a while, as on a disk that is full.
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

TEST_F(RecordingTest, ThePathIsRecordedForWhomItLeadsTo) {
  open();
  press("vemra.goal.path.outcome.correct");
  press("vemra.goal.path.outcome.save");
  ASSERT_TRUE(becomes([&] { return recorded().size() == 5; }));
  EXPECT_EQ(recorded()[4].subjectKind, GoalOutcomeSubjectKind::path);
  EXPECT_EQ(recorded()[4].subjectRef, "tomas-lindqvist");
}

TEST_F(RecordingTest, CancellingRecordsNothing) {
  open();
  press(mai + ".outcome.start");
  press(mai + ".outcome.cancel");
  pass(300);
  EXPECT_EQ(recorded().size(), 4u);
}

TEST_F(RecordingTest, AFailureIsShownAndCanBeTriedAgain) {
  open();
  press(mai + ".outcome.start");
  RawDatabase other(file);
  ASSERT_EQ(other.run("CREATE TRIGGER refuse BEFORE INSERT ON outcomes "
                      "BEGIN SELECT RAISE(ABORT, 'the dog ate it'); END"),
            "");
  press(mai + ".outcome.save");
  auto* notice = wait<QWidget>("desk.notice");
  ASSERT_NE(notice, nullptr);
  const QString reason = "The outcome was not recorded. " + QString::fromStdString(file) +
                         ": is damaged: the trigger \"refuse\" is not part of a store";
  EXPECT_TRUE(becomes([&] { return shows(reason, "desk.notice"); }))
      << texts("desk.notice").join("\n").toStdString();
  EXPECT_EQ(other.value("SELECT count(*) FROM outcomes"), "4");

  ASSERT_EQ(other.run("DROP TRIGGER refuse"), "");
  press("desk.notice.again");
  ASSERT_NE(wait<QAbstractButton>(mai + ".outcome.correct"), nullptr);
  EXPECT_EQ(recorded().size(), 5u);
  EXPECT_FALSE(notice->isVisible());
}

TEST_F(RecordingTest, WhatCouldNotBeRecordedIsKeptThroughEveryFurtherFailure) {
  patience = std::chrono::milliseconds(100);
  open();
  wait<QAbstractButton>(mai + ".outcome.start");
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  const auto save = [&](const std::string& person, const char* note) {
    press(person + ".outcome.start");
    wait<QLineEdit>(person + ".outcome.note")->setText(note);
    press(person + ".outcome.save");
    EXPECT_NE(wait<QWidget>("desk.notice"), nullptr);
  };
  save(mai, "first");
  press("desk.notice.again");
  ASSERT_NE(wait<QWidget>("desk.notice"), nullptr) << "it fails once more";
  press("desk.notice.dismiss");
  save(tomas, "second");
  EXPECT_EQ(recorded().size(), 4u);

  ASSERT_EQ(other.run("ROLLBACK"), "");
  press("desk.notice.again");
  ASSERT_NE(wait<QAbstractButton>(tomas + ".outcome.correct"), nullptr);
  ASSERT_EQ(recorded().size(), 6u) << "the dismissed one too";
  EXPECT_EQ(recorded()[4].note, "first");
  EXPECT_EQ(recorded()[5].note, "second");
  pass(100);
  EXPECT_EQ(recorded().size(), 6u) << "each once";
}

TEST_F(RecordingTest, AStoreThatAnotherProgramKeepsIsTriedAgain) {
  patience = std::chrono::milliseconds(100);
  open();
  wait<QAbstractButton>(mai + ".outcome.start");
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  press(mai + ".outcome.start");
  press(mai + ".outcome.save");
  ASSERT_NE(wait<QWidget>("desk.notice"), nullptr);
  EXPECT_TRUE(shows("The outcome was not recorded. " + QString::fromStdString(file) +
                        ": is in use by another program that does not let go of it",
                    "desk.notice"))
      << texts("desk.notice").join("\n").toStdString();
  ASSERT_EQ(other.run("ROLLBACK"), "");
  press("desk.notice.again");
  ASSERT_NE(wait<QAbstractButton>(mai + ".outcome.correct"), nullptr);
  EXPECT_EQ(recorded().size(), 5u);
}

TEST_F(RecordingTest, ADiskThatTakesNoMoreIsTriedAgain) {
  open();
  wait<QAbstractButton>(mai + ".outcome.start");
  press(mai + ".outcome.start");
  {
    const NoRoom noRoom;
    press(mai + ".outcome.save");
    ASSERT_NE(wait<QWidget>("desk.notice"), nullptr);
  }
  EXPECT_TRUE(
      texts("desk.notice")
          .join(" ")
          .contains("The outcome was not recorded. " + QString::fromStdString(file) + ": "));
  EXPECT_EQ(recorded().size(), 4u);
  press("desk.notice.again");
  ASSERT_NE(wait<QAbstractButton>(mai + ".outcome.correct"), nullptr);
  EXPECT_EQ(recorded().size(), 5u);
}

TEST_F(RecordingTest, WhatAnotherProcessImportsAppearsAndDoesNotDisturbTyping) {
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
