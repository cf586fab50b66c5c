#include "VemraPlatform/date/TimeUnits.hpp"
#include "VemraPlatform/date/TimeZoneFile.hpp"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <unistd.h>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using namespace std::string_literals;
using date::TimeZoneFile;

using date::secondsPerHour;

std::string bytes(std::int64_t number, int size) {
  std::string text;
  while (size-- > 0) text += static_cast<char>(number >> (8 * size) & 0xFF);
  return text;
}

/// A TZif file in pieces, as RFC 9636 has them.
struct Pieces {
  char version = '2';
  std::vector<std::int64_t> times = {};
  std::string types = {};  // one byte a time
  std::vector<std::int64_t> offsets = {0};
  int leapSeconds = 0;
  std::string marks = {};  // of "is standard" and of "is UT", as many of either
  std::string footer = "\n\n";

  std::string block(char ofVersion, int timeSize) const {
    std::string text = "TZif"s + ofVersion + std::string(15, '\0');
    const auto count = [](std::size_t number) {
      return bytes(static_cast<std::int64_t>(number), 4);
    };
    text += count(marks.size()) + count(marks.size()) + bytes(leapSeconds, 4) +
            count(times.size()) + count(offsets.size()) + count(4);
    for (const std::int64_t time : times) text += bytes(time, timeSize);
    text += types;
    for (const std::int64_t offset : offsets) text += bytes(offset, 4) + "\0\0"s;
    text += "XYZ\0"s;
    for (int leap = 0; leap < leapSeconds; ++leap) text += bytes(78796800, timeSize) + bytes(1, 4);
    return text + marks + marks;
  }

  std::string content() const {
    if (version == '\0') return block(version, 4);
    return block(version, 4) + block(version, 8) + footer;
  }
};

std::optional<int> aheadAt(const Pieces& pieces, std::int64_t instant) {
  const auto zone = TimeZoneFile::parse(pieces.content());
  return zone ? std::optional(zone->secondsAheadOfUTC({instant})) : std::nullopt;
}

Pieces sample() {
  return {.times = {-100, 1000, 5000000000},
          .types = "\1\2\1",
          .offsets = {-1234, secondsPerHour, -2 * secondsPerHour},
          .leapSeconds = 2,
          .marks = "\0\1\1"s,
          .footer = "\nXYZ-3\n"};
}

TEST(TimeZoneFile, ChangesAtTheTimesInIt) {
  const Pieces pieces = sample();
  EXPECT_EQ(aheadAt(pieces, std::numeric_limits<std::int64_t>::min()), -1234);
  EXPECT_EQ(aheadAt(pieces, -101), -1234);
  EXPECT_EQ(aheadAt(pieces, -100), secondsPerHour);
  EXPECT_EQ(aheadAt(pieces, 999), secondsPerHour);
  EXPECT_EQ(aheadAt(pieces, 1000), -2 * secondsPerHour);
  EXPECT_EQ(aheadAt(pieces, 4999999999), -2 * secondsPerHour);
}

TEST(TimeZoneFile, FollowsItsRuleAfterTheLastChange) {
  Pieces pieces = sample();
  EXPECT_EQ(TimeZoneFile::parse(pieces.content())->footer(), "XYZ-3");
  EXPECT_EQ(aheadAt(pieces, 5000000000), 3 * secondsPerHour);
  EXPECT_EQ(aheadAt(pieces, std::numeric_limits<std::int64_t>::max()), 3 * secondsPerHour);
  pieces.footer = "\n\n";
  EXPECT_EQ(TimeZoneFile::parse(pieces.content())->footer(), "");
  EXPECT_EQ(aheadAt(pieces, 5000000000), secondsPerHour);
}

TEST(TimeZoneFile, WithoutChangesIsItsRuleOrItsFirstType) {
  EXPECT_EQ(aheadAt({.offsets = {secondsPerHour}, .footer = "\nXYZ-2\n"}, 0), 2 * secondsPerHour);
  EXPECT_EQ(aheadAt({.offsets = {secondsPerHour}, .footer = "\n\n"}, 0), secondsPerHour);
}

TEST(TimeZoneFile, OfVersion1HasShortTimesAndNoRule) {
  Pieces pieces = sample();
  pieces.version = '\0';
  pieces.times = {-100, 1000, 2000};
  EXPECT_EQ(aheadAt(pieces, -101), -1234);
  EXPECT_EQ(aheadAt(pieces, -100), secondsPerHour);
  EXPECT_EQ(aheadAt(pieces, 1999), -2 * secondsPerHour);
  EXPECT_EQ(aheadAt(pieces, 2000), secondsPerHour);
  EXPECT_EQ(TimeZoneFile::parse(pieces.content())->footer(), "");
}

TEST(TimeZoneFile, MayBeOfAnyLaterVersionAndHaveMoreDataAtItsEnd) {
  Pieces pieces = sample();
  for (const char version : {'2', '3', '4', '9'}) {
    pieces.version = version;
    EXPECT_EQ(aheadAt(pieces, 0), secondsPerHour) << version;
  }
  EXPECT_TRUE(TimeZoneFile::parse(pieces.content() + "more"));
}

TEST(TimeZoneFile, IsNilWhenAByteIsMissing) {
  for (const char version : {'\0', '2'}) {
    Pieces pieces = sample();
    pieces.version = version;
    const std::string whole = pieces.content();
    ASSERT_TRUE(TimeZoneFile::parse(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
      EXPECT_FALSE(TimeZoneFile::parse(whole.substr(0, length))) << length;
    }
  }
}

TEST(TimeZoneFile, IsNilForImpossibleValues) {
  const auto isNothing = [](const auto& change) {
    Pieces pieces = sample();
    change(pieces);
    return !TimeZoneFile::parse(pieces.content());
  };
  EXPECT_FALSE(isNothing([](Pieces&) {}));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.types = "\1\2\3"; })) << "there are three types";
  EXPECT_TRUE(isNothing([](Pieces& p) { p.types = "\1\2\xFF"; }));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.offsets = {}, p.times = {}, p.types = ""; }));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.times[1] = p.times[0]; }));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.times[2] = p.times[1] - 1; }));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.offsets[2] = 26 * secondsPerHour; }));
  EXPECT_FALSE(isNothing([](Pieces& p) { p.offsets[2] = 26 * secondsPerHour - 1; }));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.offsets[0] = -25 * secondsPerHour; }));
  EXPECT_FALSE(isNothing([](Pieces& p) { p.offsets[0] = -25 * secondsPerHour + 1; }));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.footer = "\nnonsense\n"; }));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.footer = "XYZ-3\n"; }));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.footer = "\nXYZ-3"; }));
  EXPECT_TRUE(isNothing([](Pieces& p) { p.leapSeconds = -1; })) << "four thousand million";
}

TEST(TimeZoneFile, IsNilWithoutAHeader) {
  const std::string whole = sample().content();
  EXPECT_FALSE(TimeZoneFile::parse("x" + whole.substr(1)));
  const std::size_t second = whole.find("TZif", 1);
  ASSERT_NE(second, std::string::npos);
  EXPECT_FALSE(TimeZoneFile::parse(whole.substr(0, second) + "x" + whole.substr(second + 1)));
}

TEST(TimeZoneFile, IsNilWhenItsVersion1BlockIsCutOff) {
  constexpr std::size_t headerSize = 44;
  constexpr std::size_t changeCountAt = 32;
  const Pieces pieces = sample();
  std::string header = pieces.block('2', 4).substr(0, headerSize);
  header.replace(changeCountAt, 4, bytes(1 << 20, 4));
  EXPECT_FALSE(TimeZoneFile::parse(header + pieces.block('2', 8) + pieces.footer))
      << "the second header does not replace missing bytes of the first part";
}

/// With any byte changed, the offset that is read is within its bounds, and no byte outside the
/// file is read.
TEST(TimeZoneFile, IsReadWhateverItsBytesAre) {
  const std::string whole = sample().content();
  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const char byte : {'\0', '\1', '\x7F', '\x80', '\xFF', '\n'}) {
      const auto zone = TimeZoneFile::parse(std::string(whole).replace(place, 1, 1, byte));
      if (!zone) continue;
      for (const std::int64_t instant : {INT64_MIN, INT64_C(0), INT64_C(1000), INT64_MAX}) {
        EXPECT_LT(std::abs(zone->secondsAheadOfUTC({instant})), 26 * secondsPerHour) << place;
      }
    }
  }
}

TEST(TimeZoneFile, IsARegularFileOfModerateSize) {
  namespace fs = std::filesystem;
  // Several builds run this test at the same time.
  const fs::path folder =
      fs::path(::testing::TempDir()) / ("vemra-time-zone-file-" + std::to_string(getpid()));
  fs::create_directories(folder);
  const auto write = [&](const char* name, const std::string& content) {
    std::ofstream(folder / name, std::ios::binary) << content;
    return (folder / name).string();
  };
  constexpr std::size_t largest = 1 << 20;
  const std::string content = "TZif" + std::string(largest - 4, 'x');
  EXPECT_EQ(TimeZoneFile::contentOf(write("largest", content)), content);
  EXPECT_EQ(TimeZoneFile::contentOf(write("larger", content + 'x')), std::nullopt);
  EXPECT_EQ(TimeZoneFile::contentOf(write("other", "TZig")), std::nullopt);
  EXPECT_EQ(TimeZoneFile::contentOf(write("empty", "")), std::nullopt);
  EXPECT_EQ(TimeZoneFile::contentOf(folder.string()), std::nullopt);
  EXPECT_EQ(TimeZoneFile::contentOf((folder / "missing").string()), std::nullopt);
  EXPECT_EQ(TimeZoneFile::contentOf("/dev/zero"), std::nullopt);
  // A regular file of size 0, and of 256 gigabytes when it is read.
  EXPECT_EQ(TimeZoneFile::contentOf("/proc/self/pagemap"), std::nullopt);
  fs::remove_all(folder);
}

}  // namespace
}  // namespace vemra::testing
