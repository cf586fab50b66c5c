#include "apps/documents/SourceFile.hpp"
#include "apps/inspect/Case.hpp"
#include "tests/LineLengths.hpp"
#include "tests/apps/inspect/Moments.hpp"

#include <cctype>
#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vemra::inspect {
namespace {

/// Ten minutes' use of the window of vemra-desk on two goals, recorded twice: with the words as
/// they are, and masked. tests/apps/desk/window/TenMinutesTest.cpp is the use, and wrote the files.
class RecordedUseTest : public ::testing::Test {
 protected:
  static std::string nameOf(const std::string& file) {
    return VEMRA_REPOSITORY "/tests/apps/inspect/recordings/" + file;
  }
  static std::string textOf(const std::string& file) {
    return std::string(documents::SourceFile(nameOf(file)).text());
  }
  ReplayedUse replayOf(const std::string& file) const {
    return replay(readCase(textOf(file), nameOf(file), {}), moments);
  }

  const std::string moments = textOf("moments.txt");  ///< as the window showed them
  const std::string calls = textOf("calls.txt");      ///< as the host got them
};

/// The words with letters of a text.
void addWords(std::set<std::string>& words, const std::string& text) {
  std::string word;
  for (const char byte : text + ' ') {
    const auto unit = static_cast<unsigned char>(byte);
    if (unit >= 0x80 || std::isalnum(unit) != 0) {
      word += byte;
      continue;
    }
    if (word.find_first_not_of("0123456789") != std::string::npos) words.insert(word);
    word.clear();
  }
}

/// The words of a case that come from the store or from the person; the format's own are left out.
void addWords(std::set<std::string>& words, const nlohmann::json& value, const std::string& key) {
  static const std::set<std::string> ofTheFormat{
      "recorded",   "locale",  "timeZone", "createdAt", "updatedAt", "latestEvidenceAt",
      "recordedAt", "status",  "kind",     "priority",  "value",     "subjectKind",
      "outcome",    "callback"};
  if (ofTheFormat.contains(key)) return;
  for (const auto& [name, part] : value.items()) {
    if (part.is_structured()) {
      addWords(words, part, value.is_object() ? name : key);
    } else if (part.is_string() && !ofTheFormat.contains(name)) {
      std::string text = part.get<std::string>();
      const std::string_view ofPath = "vemra.goal.path.", ofPerson = "vemra.goal.person.";
      if (text.starts_with(ofPath)) continue;
      if (text.starts_with(ofPerson)) {
        text = text.substr(ofPerson.size());
        for (const char* end : {".outcome.", ".show-source"}) text = text.substr(0, text.find(end));
      }
      addWords(words, text);
    }
  }
}

std::set<std::string> wordsOf(const std::string& document) {
  std::set<std::string> words;
  addWords(words, nlohmann::json::parse(document), "");
  return words;
}

TEST_F(RecordedUseTest, HasTypingTwoGoalsAndChangesByAnotherProgram) {
  const Case read = readCase(textOf("plain.json"), nameOf("plain.json"), {});
  std::size_t typed = 0, results = 0, screens = 0;
  for (const Step& step : read.steps) {
    if (std::holds_alternative<Type>(step)) ++typed;
    if (std::holds_alternative<ShowScreen>(step)) ++screens;
    if (std::holds_alternative<NewResult>(step)) ++results;
  }
  EXPECT_GT(typed, 100U);
  EXPECT_GT(results, 8U);
  EXPECT_GT(screens, 2U);
}

TEST_F(RecordedUseTest, ReplaysToTheSameScreensAndTheSameCalls) {
  const ReplayedUse replayed = replayOf("plain.json");
  EXPECT_EQ(replayed.moments, moments);
  EXPECT_EQ(replayed.calls, calls);
}

TEST_F(RecordedUseTest, TheMaskedOneReplaysToScreensAndCallsOfTheSameForm) {
  const ReplayedUse replayed = replayOf("masked.json");
  EXPECT_EQ(testing::lineLengths(replayed.moments), testing::lineLengths(moments));
  EXPECT_EQ(testing::lineLengths(replayed.calls), testing::lineLengths(calls));
}

TEST_F(RecordedUseTest, TheMaskedOneHoldsNoWordOfTheOther) {
  const std::set<std::string> words = wordsOf(textOf("plain.json"));
  const std::set<std::string> masks = wordsOf(textOf("masked.json"));
  for (const char* word : {"Okafor", "spring", "Albatros", "amara", "Freitag", "Calendar"}) {
    EXPECT_TRUE(words.contains(word)) << word;
  }
  EXPECT_GT(words.size(), 100U);
  EXPECT_EQ(masks.size(), words.size());
  for (const std::string& word : words) EXPECT_FALSE(masks.contains(word)) << word;
}

}  // namespace
}  // namespace vemra::inspect
