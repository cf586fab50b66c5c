#include "VemraGoalSurface/presentation/GoalWhyPresentation.hpp"
#include "tests/VemraGoalSurface/presentation/CoverageOfDeath.hpp"

#include <cstdio>
#include <limits>
#include <locale>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace vemra {
namespace {

using GoalWhyPresentation::text;
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();

std::string connection(std::int64_t hopCount) {
  return text(GoalWhyDTO::connection(hopCount));
}

std::string shared(std::int64_t threadCount, std::int64_t meetingCount) {
  return text(GoalWhyDTO::sharedActivity(threadCount, meetingCount));
}

TEST(GoalWhyEvidence, ReadsLabelColonDetail) {
  EXPECT_EQ(text(GoalWhyDTO::evidence("Email", "Asked about the launch", "mail-7")),
            "Email: Asked about the launch");
}

TEST(GoalWhyEvidence, TextsAreNotTrimmedQuotedOrChecked) {
  EXPECT_EQ(text(GoalWhyDTO::evidence("", "detail", "r")), ": detail");
  EXPECT_EQ(text(GoalWhyDTO::evidence("label", "", "r")), "label: ");
  EXPECT_EQ(text(GoalWhyDTO::evidence("", "", "r")), ": ");
  EXPECT_EQ(text(GoalWhyDTO::evidence(" a ", "\n<b>&\"b\" ", "r")), " a : \n<b>&\"b\" ");
  EXPECT_EQ(text(GoalWhyDTO::evidence("Rene\u0301", "a\xC3", "r")), "Rene\u0301: a\xC3");
}

TEST(GoalWhyEvidence, TheReferenceIsNotShown) {
  EXPECT_EQ(text(GoalWhyDTO::evidence("a", "b", "")), text(GoalWhyDTO::evidence("a", "b", "c")));
}

TEST(GoalWhyConnection, OneHopIsDirect) {
  EXPECT_EQ(connection(1), "Direct relationship evidence");
}

TEST(GoalWhyConnection, MoreHopsCountTheRelationshipsBetween) {
  EXPECT_EQ(connection(2), "Connected through 1 shared relationship");
  EXPECT_EQ(connection(3), "Connected through 2 shared relationships");
  EXPECT_EQ(connection(5), "Connected through 4 shared relationships");
  EXPECT_EQ(connection(12346), "Connected through 12345 shared relationships");
}

TEST(GoalWhyConnection, ThereIsNoLowerBound) {
  EXPECT_EQ(connection(0), "Connected through -1 shared relationships");
  EXPECT_EQ(connection(-1), "Connected through -2 shared relationships");
}

TEST(GoalWhyConnection, TheOutermostCountsPrint) {
  EXPECT_EQ(connection(most), "Connected through 9223372036854775806 shared relationships");
  EXPECT_EQ(connection(least + 1), "Connected through -9223372036854775808 shared relationships");
}

TEST(GoalWhyConnectionDeathTest, ACountWithoutAPredecessorStopsTheProcess) {
  EXPECT_DEATH(
      {
        testing::keepCoverageOnAbort();
        connection(least);
      },
      "GoalWhyPresentation.text: integer overflow in the hop count");
}

TEST(GoalWhySharedActivity, NamesTheSharedThreadsAndMeetings) {
  EXPECT_EQ(shared(1, 0), "1 shared thread");
  EXPECT_EQ(shared(2, 0), "2 shared threads");
  EXPECT_EQ(shared(0, 1), "1 shared meeting");
  EXPECT_EQ(shared(0, 2), "2 shared meetings");
  EXPECT_EQ(shared(1, 1), "1 shared thread, 1 shared meeting");
  EXPECT_EQ(shared(3, 1), "3 shared threads, 1 shared meeting");
  EXPECT_EQ(shared(1, 4), "1 shared thread, 4 shared meetings");
  EXPECT_EQ(shared(12, 0), "12 shared threads");
}

TEST(GoalWhySharedActivity, CountsBelowOneAreLeftOut) {
  EXPECT_EQ(shared(0, 0), "Relationship evidence");
  EXPECT_EQ(shared(-2, 0), "Relationship evidence");
  EXPECT_EQ(shared(0, -2), "Relationship evidence");
  EXPECT_EQ(shared(least, least), "Relationship evidence");
  EXPECT_EQ(shared(-1, 2), "2 shared meetings");
  EXPECT_EQ(shared(2, -1), "2 shared threads");
}

TEST(GoalWhySharedActivity, TheOutermostCountsPrint) {
  EXPECT_EQ(shared(most, most),
            "9223372036854775807 shared threads, 9223372036854775807 shared meetings");
}

TEST(GoalWhyPlain, OnlyTheNameMatchHasItsOwnSentence) {
  EXPECT_EQ(text(GoalWhyDTO::nameMatch()), "Matches on name");
  EXPECT_EQ(text(GoalWhyDTO::generic()), "Candidate person");
  for (int later = 2; later < 256; ++later) {
    EXPECT_EQ(text({GoalWhyDTO::Plain(later)}), "Candidate person") << later;
  }
}

// A locale that groups digits, writes other digits and begins numbers with a plus.
TEST(GoalWhyNumbers, AreTheSameInEveryLocale) {
  struct Grouping : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
  const std::string threads = shared(1200, 0);
  const std::string hops = connection(-1234567);
  std::locale::global(before);
  EXPECT_EQ(threads, "1200 shared threads");
  EXPECT_EQ(hops, "Connected through -1234568 shared relationships");
}

// Any counts, compared with a second implementation of the rule that prints numbers in another way.
TEST(GoalWhyNumbers, AnyCountPrints) {
  const auto decimal = [](std::int64_t count) {
    char digits[24];
    std::snprintf(digits, sizeof digits, "%lld", static_cast<long long>(count));
    return std::string(digits);
  };
  std::mt19937_64 random(7);
  // Counts of every magnitude: shifting spreads them over the bit lengths.
  const auto count = [&random] {
    const auto bits = static_cast<std::int64_t>(random());
    return bits >> (random() % 64);
  };
  for (int round = 0; round < 20000; ++round) {
    const std::int64_t hops = count();
    if (hops != 1 && hops != least) {
      const bool isOne = hops == 2;
      ASSERT_EQ(connection(hops), "Connected through " + decimal(hops - 1) +
                                      " shared relationship" + (isOne ? "" : "s"));
    }
    const std::int64_t threads = count();
    const std::int64_t meetings = count();
    std::vector<std::string> parts;
    if (threads > 0) {
      parts.push_back(decimal(threads) + (threads == 1 ? " shared thread" : " shared threads"));
    }
    if (meetings > 0) {
      parts.push_back(decimal(meetings) + (meetings == 1 ? " shared meeting" : " shared meetings"));
    }
    std::string expected = "Relationship evidence";
    if (parts.size() == 1) expected = parts[0];
    if (parts.size() == 2) expected = parts[0] + ", " + parts[1];
    ASSERT_EQ(shared(threads, meetings), expected) << threads << ", " << meetings;
  }
}

}  // namespace
}  // namespace vemra
