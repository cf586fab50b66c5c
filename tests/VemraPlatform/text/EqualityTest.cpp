#include "VemraPlatform/text/Equality.hpp"
#include "tests/VemraPlatform/text/Samples.hpp"

#include <unordered_map>
#include <unordered_set>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using namespace std::string_literals;

void expectEqual(const std::string& a, const std::string& b) {
  EXPECT_TRUE(text::equal(a, b)) << inHex(a) << "and " << inHex(b);
  EXPECT_TRUE(text::equal(b, a)) << inHex(b) << "and " << inHex(a);
  EXPECT_EQ(text::hash(a), text::hash(b)) << inHex(a) << "and " << inHex(b);
}

void expectDifferent(const std::string& a, const std::string& b) {
  EXPECT_FALSE(text::equal(a, b)) << inHex(a) << "and " << inHex(b);
  EXPECT_FALSE(text::equal(b, a)) << inHex(b) << "and " << inHex(a);
}

TEST(Equality, ComposedAndDecomposedTextsAreEqual) {
  expectEqual("\u00E9", "e\u0301");
  expectEqual("Jos\u00E9", "Jose\u0301");
  expectEqual("\u00C5", "\u212B");
  expectEqual("A\u030A", "\u212B");
  expectEqual("\uD55C\uAE00", "\u1112\u1161\u11AB\u1100\u1173\u11AF");
  expectEqual("a\u0301\u0323", "a\u0323\u0301");  // marks of two classes, in either order
  expectEqual("\u1EAD\u0301", "a\u0323\u0302\u0301");
}

TEST(Equality, SomeNonASCIITextsEqualASCII) {
  expectEqual("K", "\u212A");
  expectEqual("a;b", "a\u037Eb");
  expectEqual("`", "\u1FEF");
  expectEqual("person-K", "person-\u212A");
}

TEST(Equality, TextsThatOnlyLookAlikeAreDifferent) {
  expectDifferent("\uFB01", "fi");
  expectDifferent("\u00E9", "e");
  expectDifferent("\u00E9", "\u00C9");
  expectDifferent("a", "A");
  expectDifferent("a", "a ");
  expectDifferent("a\u0301\u0300", "a\u0300\u0301");  // marks of one class keep their order
  expectDifferent("\u0430", "a");
  expectDifferent("1", "\u0661");
}

TEST(Equality, AnEmptyTextEqualsOnlyItself) {
  expectEqual("", "");
  EXPECT_TRUE(text::equal(std::string_view(), std::string_view("", 0)));
  expectDifferent("", "a");
  expectDifferent("", "\u0301");
  expectDifferent("", "\0"s);
}

TEST(Equality, NilEqualsOnlyNil) {
  const std::optional<std::string> nil;
  const std::optional<std::string> empty = "";
  EXPECT_TRUE(text::equal(nil, nil));
  EXPECT_TRUE(text::equal(empty, empty));
  EXPECT_FALSE(text::equal(nil, empty));
  EXPECT_FALSE(text::equal(empty, nil));
  EXPECT_TRUE(
      text::equal(std::optional<std::string>("\u00E9"), std::optional<std::string>("e\u0301")));
  EXPECT_FALSE(text::equal(std::optional<std::string>("a"), std::optional<std::string>("b")));
}

TEST(Equality, IllFormedTextEqualsOnlyItsOwnBytes) {
  const std::vector<std::string> illFormed = {"a\xC3",
                                              "a\xE9",
                                              "a\xFF",
                                              "\x80",
                                              "\xC0\xAF",
                                              "\xED\xA0\x80",
                                              "\xF5\x80",
                                              "\xE2\x82",
                                              "\xE2\x82x",
                                              "\xF4\x90\x80\x80",
                                              "\xF0\x82\x82\xAC",
                                              "e\u0301\xC3",
                                              "\u00E9\xC3",
                                              "\xEF\xBF\xBD\xC3"};
  for (std::size_t i = 0; i < illFormed.size(); ++i) {
    for (std::size_t j = 0; j < illFormed.size(); ++j) {
      if (i == j) {
        expectEqual(illFormed[i], std::string(illFormed[j]));
      } else {
        expectDifferent(illFormed[i], illFormed[j]);
      }
    }
    expectDifferent(illFormed[i], "\uFFFD");
    expectDifferent(illFormed[i], "a\uFFFD");
  }
}

TEST(Equality, AProperPrefixIsDifferent) {
  expectDifferent("person-1", "person-12");
  expectDifferent("e", "e\u0301");
  expectDifferent("\u00E9", "\u00E9\u0301");
  expectDifferent("\u1112\u1161", "\u1112\u1161\u11AB");
}

TEST(Equality, DifferencesAnywhereInLongTextsCount) {
  for (const std::size_t size : {1U, 7U, 8U, 9U, 15U, 16U, 17U, 36U, 1000U}) {
    const std::string plain(size, 'x');
    for (std::size_t place = 0; place < size; ++place) {
      std::string other = plain;
      other[place] = 'y';
      expectDifferent(plain, other);
      std::string composed = plain.substr(0, place) + "\u00E9" + plain.substr(place);
      std::string decomposed = plain.substr(0, place) + "e\u0301" + plain.substr(place);
      expectEqual(composed, decomposed);
    }
    expectEqual(plain, std::string(size, 'x'));
    expectDifferent(plain, plain + 'x');
  }
}

TEST(Equality, AHundredThousandMarksAreOrdered) {
  std::string ascending = "a";
  std::string descending = "a";
  for (int count = 0; count < 50000; ++count) ascending += "\u0323";
  for (int count = 0; count < 50000; ++count) ascending += "\u0301";
  for (int count = 0; count < 50000; ++count) descending += "\u0301";
  for (int count = 0; count < 50000; ++count) descending += "\u0323";
  expectEqual(ascending, descending);
  expectDifferent(ascending, descending + "\u0323");
}

TEST(Equality, ManyMarksOfOneClassKeepTheirOrder) {
  std::string mixed = "a";
  std::string below = "a";
  std::string above;
  std::string reversed;
  for (int count = 0; count < 40; ++count) {
    mixed += "\u0301\u0300\u0323";
    below += "\u0323";
    above += "\u0301\u0300";
    reversed += "\u0300\u0301";
  }
  expectEqual(mixed, below + above);
  expectDifferent(mixed, below + reversed);
}

TEST(Equality, TablesFindATextByAnyOfItsForms) {
  std::unordered_map<std::string, int, text::Hash, text::Equal> table;
  table["Jos\u00E9"] = 1;
  EXPECT_EQ(table.count("Jose\u0301"), 1U);
  EXPECT_TRUE(table.contains(std::string_view("Jose\u0301")));
  EXPECT_FALSE(table.contains(std::string_view("Jose")));
  EXPECT_EQ(table.begin()->first, "Jos\u00E9") << "the stored bytes stay";
}

TEST(Hash, DetectsMostDifferences) {
  std::unordered_set<std::size_t> hashes;
  for (int number = 0; number < 10000; ++number) {
    hashes.insert(text::hash("person-" + std::to_string(number)));
    hashes.insert(text::hash("pers\u00F6n-" + std::to_string(number)));
  }
  EXPECT_EQ(hashes.size(), 20000U);
}

TEST(AtAGlance, NeverCallsEqualTextsDifferent) {
  EXPECT_FALSE(text::differAtAGlance("", ""));
  EXPECT_FALSE(text::differAtAGlance("K", "\u212A"));
  EXPECT_FALSE(text::differAtAGlance("twelve bytes", "twelve bytes"));
}

TEST(AtAGlance, DetectsIdentifiersThatDifferNearAnEnd) {
  EXPECT_TRUE(text::differAtAGlance("person-000123", "person-000124"));
  EXPECT_TRUE(text::differAtAGlance("person-000123", "person-100123"));
  EXPECT_TRUE(text::differAtAGlance("p1", "p2"));
  EXPECT_TRUE(text::differAtAGlance("a1", "b1"));
  EXPECT_TRUE(text::differAtAGlance("", "b1"));
}

}  // namespace
}  // namespace vemra::testing
