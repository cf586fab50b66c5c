#include "apps/documents/ResultReader.hpp"
#include "apps/documents/SourceFile.hpp"
#include "tests/apps/Repeated.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/documents/SampleResult.hpp"

#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

constexpr std::size_t twoMegabytes = 2'000'000;
constexpr std::size_t fiftyMegabytes = 50'000'000;

std::string inTitle(const std::string& value) {
  return replacing(sampleResult, "\"Find a design lead\"", value);
}

TEST(DeepNestingTest, DeepNestingIsRefusedAtTheFirstImpossibleBracket) {
  const std::size_t depth = 100'000;
  EXPECT_EQ(errorIn(repeated("[", depth)), "case.json: expected an object; found an array");
  EXPECT_EQ(errorIn(repeated("[", depth) + repeated("]", depth)),
            "case.json: expected an object; found an array");
  EXPECT_EQ(errorIn(repeated("{\"goal\":", depth)),
            "case.json: /goal/goal: expected one of the keys id, title, status, targetPersonRef, "
            "createdAt, updatedAt, priority, keywords, keywordsRevision, constraints, "
            "constraintsRevision, attachmentRefs; found \"goal\"");
  EXPECT_EQ(errorIn(inTitle(repeated("[", depth) + repeated("]", depth))),
            "case.json: /goal/title: expected a string; found an array");
  EXPECT_EQ(errorIn(replacing(sampleResult, "[\"Mail\"]", repeated("[", depth))),
            "case.json: /coverage/sources/0: expected a string; found an array");
}

TEST(NoiseTest, ALongRunOfOneKindIsRefusedWithAShortMessage) {
  const std::string x(twoMegabytes, 'x');
  const std::string texts[] = {
      x,
      std::string(twoMegabytes, ' '),
      std::string(twoMegabytes, '\n'),
      std::string(twoMegabytes, '\0'),
      std::string(twoMegabytes, '"'),
      '"' + x,
      '"' + x + '"',
      '{' + ('"' + x) + "\": 1}",
      '{' + repeated("\"é", twoMegabytes / 3),
      std::string(twoMegabytes, '9'),
      std::string(twoMegabytes, '['),
      "[" + repeated("0,", twoMegabytes / 2),
      repeated("{\"a\":", twoMegabytes / 5),
      inTitle('"' + x),
      inTitle(std::string(twoMegabytes, '1')),
      inTitle('"' + repeated("\\u0041", twoMegabytes / 6) + "\\uD800\""),
      sampleResult + x,
      sampleResult + std::string(twoMegabytes, '\n') + "x",
      replacing(sampleResult, "\"hopCount\": 2", "\"hopCount\": " + std::string(twoMegabytes, '9')),
  };
  for (const std::string& text : texts) {
    const std::string error = errorIn(text);
    EXPECT_TRUE(error.starts_with("case.json: ")) << text.substr(0, 40);
    EXPECT_LT(error.size(), 1000U) << text.substr(0, 40);
  }
}

TEST(HugeDocumentTest, ATitleOfFiftyMegabytesIsATitle) {
  const std::string title(fiftyMegabytes, 't');
  EXPECT_EQ(readResultText(inTitle('"' + title + '"'), "t").goal.title.size(), fiftyMegabytes);
}

/// Files in a folder of their own.
class SourceFileTest : public testing::Test {
 protected:
  /// The message of reading a file, without the path at its beginning.
  static std::string error(const std::string& path) {
    try {
      readResultFile(path);
    } catch (const DocumentError& error) {
      const std::string message = error.what();
      EXPECT_TRUE(message.starts_with(path + ": ")) << message;
      return message.substr(path.size() + 2);
    }
    return "";
  }

  TemporaryFolder folder;
};

TEST_F(SourceFileTest, ReadsAFile) {
  EXPECT_EQ(readResultFile(folder.write("case.json", sampleResult)).goal.id, "g1");
  const std::string content = "a\0b\r\n\xFF" + std::string(3'000'000, 'x');
  EXPECT_EQ(SourceFile(folder.write("bytes", content)).text(), content);
  EXPECT_EQ(SourceFile(folder.write("empty", "")).text(), "");
}

TEST_F(SourceFileTest, ReportsWhyAFileCannotBeRead) {
  EXPECT_EQ(error(folder.file("missing.json")),
            "expected a file that can be read; found an error: No such file or directory");
  EXPECT_EQ(error(folder.path().string()),
            "expected a file that can be read; found an error: Is a directory");
  EXPECT_EQ(error(folder.write("a", "") + "/b"),
            "expected a file that can be read; found an error: Not a directory");
  EXPECT_EQ(error(folder.write("empty.json", "")),
            "line 1, column 1: expected an object; found the end of the file");
  EXPECT_EQ(error(""),
            "expected a file that can be read; found an error: No such file or directory");
}

TEST_F(SourceFileTest, RefusesMoreThanAGibibyteWithoutReadingIt) {
  const std::string path = folder.write("long", "");
  ASSERT_EQ(::truncate(path.c_str(), (off_t{1} << 30) + 1), 0);
  const auto mostKilobytes = [] {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    return used.ru_maxrss;
  };
  const long before = mostKilobytes();
  EXPECT_EQ(error(path), "expected a file of at most 1 GiB; found a longer one");
  EXPECT_LT(mostKilobytes() - before, 1 << 19) << "it was read first";
}

TEST_F(SourceFileTest, ReadsAGibibyteToItsLastByte) {
  const std::string path = folder.write("long", "");
  ASSERT_EQ(::truncate(path.c_str(), off_t{1} << 30), 0);
  EXPECT_EQ(SourceFile(path).text().size(), std::size_t{1} << 30);
}

TEST_F(SourceFileTest, IsNotMisledByAnInterruptionOfAnEarlierCall) {
  const std::string path = folder.write("file", "text");
  errno = EINTR;
  EXPECT_EQ(SourceFile(path).text(), "text");
}

TEST_F(SourceFileTest, LeavesNoFileOpen) {
  const std::string path = folder.write("case.json", sampleResult);
  const auto nextDescriptor = [] {
    const int descriptor = ::dup(STDERR_FILENO);
    ::close(descriptor);
    return descriptor;
  };
  const int before = nextDescriptor();
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(SourceFile(path).text().empty());
  EXPECT_NE(error(folder.path().string()), "");
  EXPECT_EQ(nextDescriptor(), before);
}

TEST_F(SourceFileTest, ReadsAPipeOfUnknownLength) {
  const std::string path = folder.file("pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  const std::string content(5'000'000, 'y');
  const pid_t writer = ::fork();
  if (writer == 0) {
    std::ofstream(path, std::ios::binary) << content;
    ::_exit(0);
  }
  EXPECT_EQ(SourceFile(path).text(), content);
  ::waitpid(writer, nullptr, 0);
}

TEST_F(SourceFileTest, ReadsStandardInputUnderTheNameDash) {
  const int saved = ::dup(STDIN_FILENO);
  ASSERT_NE(std::freopen(folder.write("in", "[]").c_str(), "r", stdin), nullptr);
  EXPECT_EQ(error("-"), "expected an object; found an array");
  EXPECT_NE(::fcntl(STDIN_FILENO, F_GETFD), -1) << "standard input must stay open";
  ::dup2(saved, STDIN_FILENO);
  ::close(saved);
}

}  // namespace
}  // namespace vemra::documents
