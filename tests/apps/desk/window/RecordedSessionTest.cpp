#include "VemraRecording/Call.hpp"
#include "apps/documents/SourceFile.hpp"
#include "apps/inspect/Case.hpp"
#include "apps/inspect/Inspection.hpp"
#include "tests/apps/desk/window/RecordedDesk.hpp"

#include <cctype>
#include <set>
#include <vector>

#include <QLineEdit>
#include <QScrollBar>

namespace vemra::desk {
namespace {

/// The words with letters in the texts of a result.
void addWords(std::set<std::string>& words, const std::string& text) {
  std::string word;
  const auto end = [&] {
    const bool hasLetters = word.find_first_not_of("0123456789") != std::string::npos;
    if (hasLetters) words.insert(word);
    word.clear();
  };
  for (const char byte : text + ' ') {
    const auto unit = static_cast<unsigned char>(byte);
    if (unit >= 0x80 || std::isalnum(unit) != 0) {
      word += byte;
    } else {
      end();
    }
  }
}

std::set<std::string> wordsOf(const GetGoalSnapshotResponse& result) {
  std::set<std::string> words;
  const auto add = [&](const auto&... texts) { (addWords(words, texts), ...); };
  const auto addAll = [&](const auto& texts) {
    for (const std::string& text : texts) addWords(words, text);
  };
  const auto addWhy = [&](const GoalWhyDTO& why) {
    if (const auto* evidence = std::get_if<GoalWhyDTO::Evidence>(&why.reason)) {
      add(evidence->label, evidence->detail, evidence->reference);
    }
  };
  add(result.goal.id, result.goal.title, result.goal.targetPersonRef.value_or(""));
  addAll(result.goal.keywords);
  addAll(result.goal.constraints);
  addAll(result.goal.attachmentRefs);
  addAll(result.coverage.sources);
  for (const GoalPersonCandidateDTO& person : result.people) {
    add(person.personRef, person.displayName.value_or(""));
    addWhy(person.why);
    addAll(person.evidenceIDs);
  }
  for (const GoalPathCandidateDTO& path : result.paths) {
    addAll(path.personRefs);
    addWhy(path.why);
  }
  for (const GoalGroupCandidateDTO& group : result.group) {
    add(group.id);
    addAll(group.personRefs);
  }
  for (const GoalOutcomeDTO& outcome : result.outcomes) {
    add(outcome.id, outcome.goalID, outcome.subjectRef.value_or(""), outcome.note.value_or(""),
        outcome.recordedBy.value_or(""), outcome.correctsOutcomeID.value_or(""));
  }
  return words;
}

class RecordedSessionTest : public RecordedDesk {
 protected:
  void type(const std::string& name, const char* text) const {
    auto* field = wait<QLineEdit>(name);
    ASSERT_NE(field, nullptr);
    field->setFocus();
    field->selectAll();
    field->insert("");
    for (const char* key = text; *key != '\0'; ++key) field->insert(QString(QLatin1Char(*key)));
  }

  /// Two goals, typing, Save, Correct, Cancel, details, scrolling, and changes by another program.
  void session() {
    press(mai + ".outcome.start");
    type(mai + ".outcome.note", " Wirklich privat ");
    press(mai + ".outcome.save");
    ASSERT_NE(wait<QAbstractButton>(mai + ".outcome.correct"), nullptr);
    press(mai + ".outcome.correct");
    press(mai + ".outcome.cancel");
    press("vemra.goal.path.see-in-starfold");
    pressTitled("Nguy\u1ec5n Th\u1ecb Mai");
    press(tomas + ".outcome.start");
    type(tomas + ".outcome.note", "Halbfertig");

    press("desk.goal.sample-sail-the-baltic");
    ASSERT_TRUE(becomes([&] { return shows("No source evidence yet."); }));
    window->screen().verticalScrollBar()->setValue(window->screen().verticalScrollBar()->maximum());
    GetGoalSnapshotResponse changed = sampleGoals()[1];
    changed.goal.title = "Umbenannt von fern";
    changed.people = {build::person("neuling", "Jemand Neues")};
    importAsAnotherProgram(changed);
    ASSERT_TRUE(becomes([&] { return shows("Jemand Neues"); }));
    press("vemra.goal.person.neuling.outcome.start");

    press("desk.goal.sample-design-lead");
    ASSERT_NE(wait<QLineEdit>(tomas + ".outcome.note"), nullptr) << "as it was left";
    window->screen().verticalScrollBar()->setValue(0);
  }
};

/// The case after its last step; every step must have been carried out.
struct Replay {
  explicit Replay(const std::string& file)
      : read(inspect::readCaseFile(file, {})), inspection(read) {
    for (const inspect::Step& step : read.steps) {
      EXPECT_EQ(inspection.carryOut(step).value_or("done"), "done");
    }
    EXPECT_EQ(inspection.finish().value_or(""), "");
  }
  std::string outline() { return outlineOf(inspection.screen().graph()); }

  const inspect::Case read;
  inspect::Inspection inspection;
};

TEST_F(RecordedSessionTest, ASessionWithTwoGoalsReplaysToTheSameScreenAndTheSameCalls) {
  openAndRecord();
  session();
  Replay replay(recording);
  EXPECT_EQ(replay.outline(), outlineOf(graph()));
  ASSERT_EQ(replay.inspection.calls().size(), 3U);
  const auto& saved = std::get<recording::RecordOutcome>(replay.inspection.calls()[0]).input;
  EXPECT_EQ(saved.note(), "Wirklich privat");
  EXPECT_EQ(saved.subjectRef(), "nguyen-thi-mai");
}

TEST_F(RecordedSessionTest, RowsThatWereScrolledAwayReplayToo) {
  openAndRecord(false, 360);
  press(mai + ".outcome.start");
  type(mai + ".outcome.note", "oben");
  window->screen().verticalScrollBar()->setValue(window->screen().verticalScrollBar()->maximum());
  press("vemra.goal.path.outcome.correct");
  Replay replay(recording);
  EXPECT_EQ(replay.outline(), outlineOf(graph()));
}

TEST_F(RecordedSessionTest, AMaskedSessionHoldsNoWordOfTheStoreOrOfWhatWasTyped) {
  openAndRecord(true);
  session();
  std::set<std::string> words{"Wirklich", "privat",  "Halbfertig", "Umbenannt", "von",
                              "fern",     "neuling", "Jemand",     "Neues"};
  for (const GetGoalSnapshotResponse& result : sampleGoals()) words.merge(wordsOf(result));
  EXPECT_GT(words.size(), 50U);
  Replay replay(recording);
  std::set<std::string> left = wordsOf(replay.read.result);
  for (const inspect::Step& step : replay.read.steps) {
    if (const auto* handedIn = std::get_if<inspect::NewResult>(&step)) {
      left.merge(wordsOf(*handedIn->result));
    } else if (const auto* typed = std::get_if<inspect::Type>(&step)) {
      addWords(left, typed->text);
    } else if (const auto* titled = std::get_if<inspect::PressTitle>(&step)) {
      addWords(left, titled->title);
    }
  }
  EXPECT_GT(left.size(), 50U);
  for (const std::string& word : left) EXPECT_FALSE(words.contains(word)) << word;
  // In the file as a whole only such words are left that the form of a case has itself.
  const std::string text(documents::SourceFile(recording).text());
  for (const char* word : {"Wirklich", "privat", "Halbfertig", "Umbenannt", "neuling", "Jemand",
                           "Mai", "tomas", "Lindqvist", "sample", "spring"}) {
    EXPECT_EQ(text.find(word), std::string::npos) << word;
  }
  EXPECT_EQ(replay.inspection.calls().size(), 3U);
}

TEST_F(RecordedSessionTest, ARecordingThatCannotBeWrittenIsANoticeAndTheWindowWorksOn) {
  const std::string nowhere = folder.file("missing/case.json");
  engine = std::make_shared<StoreEngine>(file, patience);
  window = std::make_unique<DeskWindow>(StoreOpening{engine->file(), engine, {}, false},
                                        std::nullopt, RecordingWish{nowhere, false});
  window->show();
  const QString notice =
      QString::fromStdString(nowhere + ": the recording has ended: No such file or directory");
  ASSERT_TRUE(becomes([&] { return shows(notice); })) << texts().join("\n").toStdString();
  window->resize(1200, 1500);
  press(mai + ".outcome.start");
  press(mai + ".outcome.save");
  EXPECT_NE(wait<QAbstractButton>(mai + ".outcome.correct"), nullptr);
}

}  // namespace
}  // namespace vemra::desk
