#include "apps/documents/DocumentError.hpp"
#include "apps/documents/JsonReader.hpp"
#include "apps/documents/SourceFile.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

std::size_t pageLength() {
  return static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

/// The bytes of the text that are in memory.
std::size_t bytesInMemory(const SourceFile& source) {
  std::vector<unsigned char> pages(source.text().size() / pageLength() + 1);
  auto* start = const_cast<char*>(source.text().data());
  EXPECT_EQ(::mincore(start, source.text().size(), pages.data()), 0);
  std::size_t bytes = 0;
  for (const unsigned char page : pages) bytes += (page & 1U) * pageLength();
  return bytes;
}

/// A list of texts, one a line, of about ten megabytes, with an accented letter in each line.
std::string longList(std::string_view lastLine) {
  std::string text = "[\n";
  for (int i = 0; i < 200'000; ++i) text += "  \"entry \u00e9 " + std::string(36, 'x') + "\",\n";
  return text.append(lastLine);
}

TEST(SourceFileRelease, ReturnsWholePagesAndKeepsTheRest) {
  const TemporaryFolder folder;
  const std::string content(10 * pageLength(), 'x');
  SourceFile source(folder.write("file", content));
  source.release(3 * pageLength() + 17);
  source.release(2 * pageLength());
  source.release(pageLength() - 1);
  EXPECT_EQ(source.text().size(), content.size());
  EXPECT_EQ(source.text().substr(3 * pageLength()), content.substr(3 * pageLength()));
  EXPECT_EQ(bytesInMemory(source), 7 * pageLength());
}

TEST(SourceFileRelease, StopsAtTheEndOfTheText) {
  const TemporaryFolder folder;
  const std::size_t hundredPages = 100 * pageLength();
  const std::string content(10 * pageLength() + 1, 'x');
  const SourceFile neighbour(folder.write("neighbour", std::string(2 * hundredPages, 'n')));
  SourceFile source(folder.write("file", content));
  const SourceFile another(folder.write("another", std::string(2 * hundredPages, 'a')));
  source.release(content.size() + hundredPages);
  EXPECT_EQ(source.text().size(), content.size());
  EXPECT_EQ(source.text().back(), 'x') << "its page is not a whole one";
  EXPECT_EQ(neighbour.text(), std::string(2 * hundredPages, 'n'));
  EXPECT_EQ(another.text(), std::string(2 * hundredPages, 'a'));
}

TEST(SourceFileRelease, AReaderReleasesWhatItHasRead) {
  const TemporaryFolder folder;
  SourceFile source(folder.write("list", longList("  \"last\"]")));
  ASSERT_GT(bytesInMemory(source), std::size_t{10'000'000});
  JsonReader reader(source, "list");
  std::size_t count = 0;
  std::string last;
  reader.array([&] {
    last = reader.string();
    ++count;
  });
  reader.finish();
  EXPECT_EQ(count, 200'001U);
  EXPECT_EQ(last, "last");
  EXPECT_LT(bytesInMemory(source), std::size_t{5'000'000});
}

TEST(SourceFileRelease, ErrorsHaveTheSamePlaceAsInATextThatIsKept) {
  const TemporaryFolder folder;
  for (const std::string_view lastLine :
       {"  \"\u00e9\u00e9\" ?]", "  \"a\tb\"]", "  \"a\"", "  7]"}) {
    const std::string text = longList(lastLine);
    const auto errorOf = [](JsonReader& reader) -> std::string {
      try {
        reader.array([&] { reader.string(); });
        reader.finish();
      } catch (const DocumentError& error) {
        return error.what();
      }
      return "no error";
    };
    JsonReader kept(text, "list");
    SourceFile source(folder.write("list", text));
    JsonReader released(source, "list");
    const std::string error = errorOf(kept);
    EXPECT_EQ(errorOf(released), error);
    EXPECT_NE(error, "no error");
  }
}

TEST(SourceFileRelease, ALineThatBeginsInAReleasedPieceKeepsItsColumns) {
  const TemporaryFolder folder;
  std::string text = "[";
  for (int i = 0; i < 1'500'000; ++i) text += "\"\u00e9\",";
  SourceFile source(folder.write("line", text + "!]"));
  JsonReader reader(source, "line");
  try {
    reader.array([&] { reader.string(); });
    FAIL() << "no error";
  } catch (const DocumentError& error) {
    EXPECT_STREQ(error.what(),
                 "line: /1500000: line 1, column 6000002: expected a string; found \"!\"");
  }
}

}  // namespace
}  // namespace vemra::documents
