#include "tests/LineLengths.hpp"
#include "tests/VemraRecording/RecordedHost.hpp"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace vemra::recording {
namespace {

using build::outcome;
using build::person;
using testing::codePoints;
using testing::lineLengths;

class MaskedRecordingTest : public RecordedHost {
 protected:
  /// A session in which every word is one that the format of a case does not have.
  void session() {
    record(Texts::masked);
    testing::Screen& screen = addScreen();
    GetGoalSnapshotResponse result;
    result.goal = {.id = "gx1", .title = "Berlin umziehen", .targetPersonRef = "wer-zo\u00eb"};
    result.goal.keywords = {"geheim"};
    result.goal.constraints = {"vertrag"};
    result.goal.attachmentRefs = {"anhang"};
    result.people = {person("wer-ada", "Ada Lovelace", {"beleg7"},
                            GoalWhyDTO::evidence("Brief", "schrieb dir", "verweis3")),
                     person("wer-zo\u00eb", "Zoe\u0308", {"beleg8"}),
                     person("wer-ada", "Ada Lovelace"), person("leer", std::nullopt)};
    result.paths = {build::path({"wer-ada", "wer-zoe\u0308"})};
    result.group = {{"gruppe2", {"wer-ada"}}};
    result.coverage = {{"Postfach"}, 3, "2025-01-05T23:30:00Z"};
    result.outcomes = {outcome("out9", GoalOutcomeSubjectKind::person, "wer-zoe\u0308",
                               GoalOutcomeValue::helped, "am Bahnhof", "out4")};
    std::vector<GoalOutcomeDTO> outcomes(result.outcomes.begin(), result.outcomes.end());
    outcomes[0].goalID = "ziel77";
    outcomes[0].recordedBy = "schreiber";
    result.outcomes = outcomes;
    show(screen, result);
    screen.press(testing::button("Ada Lovelace", 1));
    screen.press(of("wer-ada", ".show-source"));
    screen.press(testing::button("Unnamed person"));
    screen.press("vemra.goal.path.see-in-starfold");
    screen.press(of("wer-zo\u00eb", ".outcome.correct"));
    screen.type(of("wer-zo\u00eb", ".outcome.note"), "  gestern am Markt ");
    screen.press(of("wer-zo\u00eb", ".outcome.save"));
    screen.press(testing::byIdentifier(of("wer-ada", ".outcome.start"), 1));
    screen.type(testing::byIdentifier(of("wer-ada", ".outcome.note")), "vertraulich");
    ASSERT_EQ(failures, std::vector<std::string>{});
  }
};

TEST_F(MaskedRecordingTest, HoldsNoWordOfTheRecordsOrOfWhatWasTyped) {
  session();
  const std::string text = TemporaryFolder::readFile(file);
  for (const char* word :
       {"gx1",       "Berlin", "umziehen", "wer",      "ada",     "zo\u00eb", "zoe",
        "geheim",    "Ada",    "Lovelace", "beleg7",   "Brief",   "schrieb",  "verweis",
        "Zoe",       "leer",   "gruppe",   "Postfach", "vertrag", "anhang",   "ziel77",
        "schreiber", "out9",   "out4",     "Bahnhof",  "gestern", "Markt",    "vertraulich"}) {
    EXPECT_EQ(text.find(word), std::string::npos) << word << " in\n" << text;
  }
}

TEST_F(MaskedRecordingTest, ReplaysToAScreenOfTheSameFormWithTheSameCalls) {
  session();
  const Replayed replayed(file);
  EXPECT_TRUE(replayed.read.recorded->isMasked);
  EXPECT_EQ(lineLengths(replayed.outline()), lineLengths(screens[0].outline()))
      << replayed.outline() << screens[0].outline();
  ASSERT_EQ(replayed.calls().size(), calls.size());
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(codePoints(replayed.calls()[i]), codePoints(calls[i]))
        << replayed.calls()[i] << calls[i];
  }
}

TEST_F(MaskedRecordingTest, TheDateStays) {
  session();
  EXPECT_NE(Replayed(file).outline().find("Jan 5, 2025"), std::string::npos);
}

TEST_F(MaskedRecordingTest, NoMaskIsAWordOfTheResult) {
  const std::set<std::string> words{"\u0253", "\u0257", "\u0259", "\u025b"};  // letters of masks
  std::vector<GoalPersonCandidateDTO> people;
  const auto add = [&](const std::string& name) {
    people.push_back(person("wer" + std::to_string(people.size()), name));
  };
  for (const std::string& word : words) add(word);
  for (const char* word : {"b", "c", "d", "f"}) add(word);
  for (int round = 0; round < 10; ++round) {  // each with other masks
    screens.clear();
    std::filesystem::remove(file);
    record(Texts::masked);
    show(addScreen(), resultOf(people));
    const Replayed replayed(file);
    ASSERT_EQ(replayed.read.result.people.size(), people.size());
    for (const GoalPersonCandidateDTO& masked : replayed.read.result.people) {
      EXPECT_FALSE(words.contains(masked.displayName.value_or(""))) << *masked.displayName;
    }
  }
}

TEST_F(MaskedRecordingTest, OneRecordingSaysNothingOfTheMasksOfAnother) {
  session();
  const std::string first = TemporaryFolder::readFile(file);
  screens.clear();
  std::filesystem::remove(file);
  session();
  EXPECT_NE(TemporaryFolder::readFile(file), first);
}

}  // namespace
}  // namespace vemra::recording
