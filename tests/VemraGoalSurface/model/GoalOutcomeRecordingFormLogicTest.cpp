#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "tests/VemraGoalEngine/SampleRecords.hpp"
#include "tests/VemraGoalSurface/Blanks.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra {
namespace {

namespace form = GoalOutcomeRecordingFormLogic;
using enum GoalOutcomeSubjectKind;

// Characters that are invisible, but not blank.
const std::vector<std::string> almostBlanks = {
    "\u200b", "\u180e", "\ufeff", "\u2060", "\x1c",
    "\x1f",   "\u0301", "\xa0",   "\xc2",   std::string("\0", 1)};

GoalOutcomeDTO earlier(GoalOutcomeValue value, std::optional<std::string> note) {
  GoalOutcomeDTO outcome = sample::outcome();
  outcome.id = "o-1";
  outcome.value = value;
  outcome.note = std::move(note);
  return outcome;
}

// initial values

TEST(InitialFormValues, AFirstRecordingBeginsAtWasUseful) {
  const form::FormValues values = form::initialFormValues(std::nullopt);
  EXPECT_EQ(values.value, GoalOutcomeValue::wasUseful);
  EXPECT_EQ(values.note, "");
}

TEST(InitialFormValues, ACorrectionBeginsAtTheRecordedOutcome) {
  for (GoalOutcomeValue value : allGoalOutcomeValues) {
    const form::FormValues values = form::initialFormValues(earlier(value, "a note"));
    EXPECT_EQ(values.value, value);
    EXPECT_EQ(values.note, "a note");
  }
}

TEST(InitialFormValues, ARecordWithoutANoteGivesAnEmptyNote) {
  const form::FormValues values =
      form::initialFormValues(earlier(GoalOutcomeValue::helped, std::nullopt));
  EXPECT_EQ(values.value, GoalOutcomeValue::helped);
  EXPECT_EQ(values.note, "");
}

TEST(InitialFormValues, TheNoteIsTakenAsStored) {
  for (const std::string note : {"  two before, one after ", "", "   ", "a\nb", "e\u0301"}) {
    EXPECT_EQ(form::initialFormValues(earlier(GoalOutcomeValue::helped, note)).note, note);
  }
}

// can save

TEST(CanSave, EveryValueExceptSomethingElseMayHaveNoNote) {
  for (GoalOutcomeValue value : allGoalOutcomeValues) {
    const bool needsNote = value == GoalOutcomeValue::somethingElse;
    EXPECT_EQ(form::canSave(value, ""), !needsNote) << form::label(value);
    EXPECT_EQ(form::canSave(value, " \n\t"), !needsNote) << form::label(value);
    EXPECT_TRUE(form::canSave(value, "a note")) << form::label(value);
  }
}

TEST(CanSave, SomethingElseNeedsMoreThanBlanks) {
  const auto canSave = [](const std::string& note) {
    return form::canSave(GoalOutcomeValue::somethingElse, note);
  };
  EXPECT_FALSE(canSave("  \n\t "));
  EXPECT_TRUE(canSave("  x "));
  std::string allBlanks;
  for (const std::string& blank : blanks) {
    EXPECT_FALSE(canSave(blank)) << ::testing::PrintToString(blank);
    allBlanks += blank;
  }
  EXPECT_FALSE(canSave(allBlanks));
  EXPECT_TRUE(canSave(allBlanks + "x" + allBlanks));
  for (const std::string& text : almostBlanks) {
    EXPECT_TRUE(canSave(text)) << ::testing::PrintToString(text);
  }
}

// what leaves the form

std::optional<std::string> recordedNote(const std::string& noteText) {
  return form::recordingInput(person, "anna", GoalOutcomeValue::helped, noteText, std::nullopt)
      .note();
}

TEST(RecordingInput, TheNoteLosesTheBlanksAtEitherEnd) {
  EXPECT_EQ(recordedNote("\n  met for lunch\n  "), "met for lunch");
  EXPECT_EQ(recordedNote("met for lunch"), "met for lunch");
  EXPECT_EQ(recordedNote(" two\n\n lines\tand  more "), "two\n\n lines\tand  more");
  for (const std::string& blank : blanks) {
    EXPECT_EQ(recordedNote(blank + "a" + blank + "b" + blank + blank), "a" + blank + "b")
        << ::testing::PrintToString(blank);
  }
  for (const std::string& text : almostBlanks) EXPECT_EQ(recordedNote(text), text);
}

TEST(RecordingInput, ABlankNoteBecomesNil) {
  EXPECT_EQ(recordedNote(""), std::nullopt);
  EXPECT_EQ(recordedNote("   "), std::nullopt);
  for (const std::string& blank : blanks) EXPECT_EQ(recordedNote(blank), std::nullopt);
}

TEST(RecordingInput, ALongNoteIsNotCut) {
  const std::string text = "<b>&" + std::string(100000, 'x') + "\u202eend";
  EXPECT_EQ(recordedNote(" " + text + "\n"), text);
}

TEST(RecordingInput, NamesTheOutcomeItCorrects) {
  const auto correctedID = [](const std::optional<GoalOutcomeDTO>& correcting) {
    return form::recordingInput(person, "anna", GoalOutcomeValue::helped, "", correcting)
        .correctsOutcomeID();
  };
  EXPECT_EQ(correctedID(std::nullopt), std::nullopt);
  GoalOutcomeDTO outcome = earlier(GoalOutcomeValue::helped, std::nullopt);
  outcome.correctsOutcomeID = "o-0";
  EXPECT_EQ(correctedID(outcome), "o-1") << "the record's own id, not what it corrected itself";
  outcome.id = "";
  EXPECT_EQ(correctedID(outcome), "") << "an empty id is an id";
}

TEST(RecordingInput, TheSubjectAndTheValueArePassedOnUnchanged) {
  for (GoalOutcomeSubjectKind kind : {person, path}) {
    for (GoalOutcomeValue value : allGoalOutcomeValues) {
      for (const std::optional<std::string>& ref :
           {std::optional<std::string>(), std::optional<std::string>(""),
            std::optional<std::string>(" Rene\u0301 ")}) {
        // The corrected record has another subject; only its id is used.
        const GoalOutcomeRecordingInput input =
            form::recordingInput(kind, ref, value, "note", sample::outcome());
        EXPECT_EQ(input.subjectKind(), kind);
        EXPECT_EQ(input.subjectRef(), ref);
        EXPECT_EQ(input.outcome(), value);
        EXPECT_EQ(input.note(), "note");
      }
    }
  }
}

TEST(RecordingInput, IsBuiltEvenWhenSaveWouldBeRefused) {
  ASSERT_FALSE(form::canSave(GoalOutcomeValue::somethingElse, ""));
  const GoalOutcomeRecordingInput input =
      form::recordingInput(person, "anna", GoalOutcomeValue::somethingElse, "", std::nullopt);
  EXPECT_TRUE((input == GoalOutcomeRecordingInput{person, "anna", GoalOutcomeValue::somethingElse,
                                                  std::nullopt, std::nullopt}));
}

// labels

TEST(OutcomeLabel, EveryValueHasItsWords) {
  const std::string_view labels[] = {"Reached out",     "Invited",       "Introduced",
                                     "Helped",          "Was useful",    "Not a fit",
                                     "No action taken", "Something else"};
  for (std::size_t index = 0; index < allGoalOutcomeValues.size(); ++index) {
    EXPECT_EQ(form::label(allGoalOutcomeValues[index]), labels[index]);
  }
}

TEST(OutcomeLabel, AnInvalidValueHasNoWords) {
  EXPECT_EQ(form::label(static_cast<GoalOutcomeValue>(8)), "");
}

}  // namespace
}  // namespace vemra
