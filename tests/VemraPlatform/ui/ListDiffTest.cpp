#include "VemraPlatform/ui/ListDiff.hpp"

#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

std::vector<NodeID> items(const std::string& letters) {
  std::vector<NodeID> ids;
  for (const char letter : letters) ids.push_back(NodeID{static_cast<std::uint64_t>(letter)});
  return ids;
}

/// "-b" removes, "+b>a" inserts behind a, "*b>" moves to the front.
std::string steps(const std::string& before, const std::string& after) {
  std::string text;
  for (const ListOperation& step : diff(items(before), items(after))) {
    if (!text.empty()) text += ' ';
    text += step.kind == ListOperation::Kind::remove   ? '-'
            : step.kind == ListOperation::Kind::insert ? '+'
                                                       : '*';
    text += static_cast<char>(step.item.value);
    if (step.kind == ListOperation::Kind::remove) continue;
    text += '>';
    if (step.after) text += static_cast<char>(step.after.value);
  }
  return text;
}

struct Change {
  const char* name;
  const char* before;
  const char* after;
  const char* steps;
  friend std::ostream& operator<<(std::ostream& out, const Change& change) {
    return out << change.name;
  }
};

class ListDiffTest : public ::testing::TestWithParam<Change> {};

}  // namespace

TEST_P(ListDiffTest, TakesExactlyTheseSteps) {
  const Change& change = GetParam();
  EXPECT_EQ(steps(change.before, change.after), change.steps)
      << '"' << change.before << "\" to \"" << change.after << '"';
}

INSTANTIATE_TEST_SUITE_P(
    Changes, ListDiffTest,
    ::testing::Values(
        Change{"nothing", "", "", ""}, Change{"same", "abc", "abc", ""},
        Change{"first", "", "a", "+a>"}, Change{"fill", "", "abc", "+a> +b>a +c>b"},
        Change{"clear", "abc", "", "-a -b -c"}, Change{"append", "abc", "abcd", "+d>c"},
        Change{"appendTwo", "ab", "abcd", "+c>b +d>c"}, Change{"prepend", "abc", "xabc", "+x>"},
        Change{"prependTwo", "abc", "xyabc", "+x> +y>x"}, Change{"insert", "abc", "abxc", "+x>b"},
        Change{"insertHereAndThere", "abc", "axbyc", "+x>a +y>b"},
        Change{"removeFirst", "abc", "bc", "-a"}, Change{"removeLast", "abc", "ab", "-c"},
        Change{"removeMiddle", "abc", "ac", "-b"}, Change{"removeTwo", "abcd", "bc", "-a -d"},
        Change{"replaceOne", "abc", "axc", "-b +x>a"},
        Change{"replaceAll", "abc", "xyz", "-a -b -c +x> +y>x +z>y"},
        Change{"swapNeighbours", "abcd", "acbd", "*c>a"},
        Change{"swapEnds", "abcd", "dbca", "*d> *a>c"}, Change{"swapOnlyTwo", "ab", "ba", "*b>"},
        Change{"reverse", "abcd", "dcba", "*d> *c>d *b>c"},
        Change{"rotateLeft", "abcd", "bcda", "*a>d"}, Change{"rotateRight", "abcd", "dabc", "*d>"},
        Change{"moveOneDown", "abcde", "acdbe", "*b>d"},
        Change{"moveOneUp", "abcde", "adbce", "*d>a"},
        Change{"moveBlock", "abcdef", "aefbcd", "*e>a *f>e"},
        Change{"removeAndMove", "abcd", "dba", "-c *d> *b>d"},
        Change{"insertAndMove", "abc", "cxab", "*c> +x>c"},
        Change{"removeInsertMove", "abcd", "dxca", "-b *d> +x>d *c>x"},
        Change{"shuffle", "abcdef", "badcfe", "*b> *d>a *f>c"}),
    [](const auto& test) { return test.param.name; });

}  // namespace vemra::ui
