#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <cstdint>
#include <limits>

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using testing::Screen;

GoalCoverageDTO coverage(std::int64_t count, std::vector<std::string> sources,
                         OptionalText latestEvidenceAt = std::nullopt) {
  return {std::move(sources), count, std::move(latestEvidenceAt)};
}

ui::Environment environment(std::string locale, std::string timeZone) {
  ui::Environment environment;
  environment.locale = std::move(locale);
  environment.timeZone = std::move(timeZone);
  return environment;
}

Lines footer(const Screen& screen) {
  return shape(*nodesOf(screen, ui::ElementKind::group).back());
}

class CoverageFooter : public ::testing::Test {
 protected:
  Lines footerOf(GoalCoverageDTO coverage, ui::Environment shownIn = environment("en_US", "UTC")) {
    Result result = ordinaryResult();
    result.coverage = std::move(coverage);
    return footer(Screen(viewOf(result, calls_), std::move(shownIn)));
  }

  /// The sentence without the element around it.
  std::string sentenceOf(GoalCoverageDTO coverage,
                         ui::Environment shownIn = environment("en_US", "UTC")) {
    const Lines lines = footerOf(std::move(coverage), std::move(shownIn));
    const std::string prefix = "  Text \"";
    if (lines.size() != 2 || !lines[1].starts_with(prefix)) return "not a verbatim text";
    return lines[1].substr(prefix.size(), lines[1].size() - prefix.size() - 1);
  }

  Calls calls_;
};

TEST_F(CoverageFooter, GivesItsFontAndStyleToTheText) {
  const Screen screen(viewOf(ordinaryResult(), calls_));
  const auto& group = *nodesOf(screen, ui::ElementKind::group).back();
  const ui::Style& style = group.firstChild->element.style();
  EXPECT_EQ(style.font, ui::Font::caption);
  EXPECT_EQ(style.foreground, ui::ForegroundStyle::secondary);
}

TEST_F(CoverageFooter, SaysNoSourceEvidenceForACountOfZeroWhateverTheSources) {
  const auto noEvidence = ElementsAre("Group .font(caption) .foregroundStyle(secondary)",
                                      "  Text key \"No source evidence yet.\"");
  EXPECT_THAT(footerOf(coverage(0, {})), noEvidence);
  EXPECT_THAT(footerOf(coverage(0, {"Mail"}, "2025-01-05T10:00:00Z")), noEvidence);
}

TEST_F(CoverageFooter, SaysNoSourceEvidenceForEveryNegativeCount) {
  for (std::int64_t count :
       {std::int64_t{-1}, std::int64_t{-3}, std::numeric_limits<std::int64_t>::min()}) {
    EXPECT_EQ(footerOf(coverage(count, {"Mail"})).at(1), "  Text key \"No source evidence yet.\"")
        << count;
  }
}

TEST_F(CoverageFooter, NamesYourMemoryWhenThereAreNoSources) {
  EXPECT_EQ(sentenceOf(coverage(1, {})), "Based on 1 piece(s) of evidence from your memory.");
}

TEST_F(CoverageFooter, JoinsTheSourcesInTheirOrder) {
  EXPECT_EQ(sentenceOf(coverage(12, {"Mail", "Calendar"})),
            "Based on 12 piece(s) of evidence from Mail, Calendar.");
  EXPECT_EQ(sentenceOf(coverage(12, {"Calendar", "Mail", "Mail"})),
            "Based on 12 piece(s) of evidence from Calendar, Mail, Mail.");
}

TEST_F(CoverageFooter, ShowsAnEmptySourceAsAnEmptyEntry) {
  EXPECT_EQ(sentenceOf(coverage(2, {"A", "", "B"})),
            "Based on 2 piece(s) of evidence from A, , B.");
  EXPECT_EQ(sentenceOf(coverage(2, {""})), "Based on 2 piece(s) of evidence from .");
}

TEST_F(CoverageFooter, ShowsSourcesUnchanged) {
  EXPECT_EQ(sentenceOf(coverage(2, {" Mail ", "<b>&"})),
            "Based on 2 piece(s) of evidence from  Mail , <b>&.");
}

TEST_F(CoverageFooter, WritesTheCountWithoutASeparator) {
  EXPECT_EQ(sentenceOf(coverage(1500, {"Mail"})), "Based on 1500 piece(s) of evidence from Mail.");
  EXPECT_EQ(sentenceOf(coverage(std::numeric_limits<std::int64_t>::max(), {"Mail"}),
                       environment("de_DE", "UTC")),
            "Based on 9223372036854775807 piece(s) of evidence from Mail.");
  EXPECT_EQ(sentenceOf(coverage(1500, {"Mail"}), environment("ar_EG", "UTC")),
            "Based on 1500 piece(s) of evidence from Mail.");
}

TEST_F(CoverageFooter, EndsWithTheDateOfTheLatestEvidence) {
  EXPECT_EQ(sentenceOf(coverage(3, {"Notes"}, "2025-01-05T10:00:00Z")),
            "Based on 3 piece(s) of evidence from Notes, through Jan 5, 2025.");
}

TEST_F(CoverageFooter, EndsWithTheDateAlsoWithoutSources) {
  EXPECT_EQ(sentenceOf(coverage(3, {}, "2025-01-05T10:00:00+02:00")),
            "Based on 3 piece(s) of evidence from your memory, through Jan 5, 2025.");
}

TEST_F(CoverageFooter, WritesOnlyTheDateInTheUsersLocale) {
  const GoalCoverageDTO notes = coverage(3, {"Notes"}, "2025-01-05T10:00:00Z");
  const std::string start = "Based on 3 piece(s) of evidence from Notes, through ";
  EXPECT_EQ(sentenceOf(notes, environment("en_GB", "UTC")), start + "5 Jan 2025.");
  EXPECT_EQ(sentenceOf(notes, environment("de_DE", "UTC")), start + "5. Jan. 2025.");
  EXPECT_EQ(sentenceOf(notes, environment("ja_JP", "UTC")), start + "2025年1月5日.");
  EXPECT_EQ(sentenceOf(notes, environment("th_TH", "UTC")), start + "5 ม.ค. 2568.");
}

TEST_F(CoverageFooter, HasNoDatePhraseForAnUnreadableDate) {
  for (const char* unreadable :
       {"2025-01-05T10:00:00.250Z", "2025-01-05", "yesterday", "", " 2025-01-05T10:00:00Z",
        "2025-01-05T10:00:00", "2025-02-30T10:00:00Z"}) {
    EXPECT_EQ(sentenceOf(coverage(3, {"Notes"}, unreadable)),
              "Based on 3 piece(s) of evidence from Notes.")
        << '"' << unreadable << '"';
  }
}

TEST_F(CoverageFooter, FollowsAChangeOfTheEnvironment) {
  Result result = ordinaryResult();
  result.coverage = coverage(3, {"Notes"}, "2025-01-05T23:30:00Z");
  Screen screen(viewOf(result, calls_), environment("en_US", "UTC"));
  screen.setEnvironment(environment("en_GB", "Europe/Berlin"));
  EXPECT_THAT(footer(screen).at(1), EndsWith("through 6 Jan 2025.\""));
}

TEST_F(CoverageFooter, SwitchesBetweenItsTwoTextsWithTheSnapshot) {
  Result result = ordinaryResult();
  result.coverage = coverage(0, {"Mail"});
  Screen screen(viewOf(result, calls_));
  result.coverage = coverage(1, {"Mail"});
  screen.show(viewOf(result, calls_));
  EXPECT_EQ(footer(screen).at(1), "  Text \"Based on 1 piece(s) of evidence from Mail.\"");
  result.coverage = coverage(0, {"Mail"});
  screen.show(viewOf(result, calls_));
  EXPECT_EQ(footer(screen).at(1), "  Text key \"No source evidence yet.\"");
}

}  // namespace
}  // namespace vemra::screentest
