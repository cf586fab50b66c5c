#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/text/KeyedHash.hpp"
#include "VemraPlatform/text/TextMap.hpp"
#include "tests/VemraPlatform/text/CollidingTexts.hpp"

#include <functional>
#include <set>
#include <string>
#include <unordered_map>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using text::HashKey;
using text::sipHash;

constexpr HashKey countingKey{0x0706050403020100U, 0x0F0E0D0C0B0A0908U};

// The paper's own vectors: the bytes 0, 1, 2, … under the key 0, 1, …, 15.
TEST(KeyedHash, IsSipHash24AsPublished) {
  const std::uint64_t expected[] = {
      0x726FDB47DD0E0E31U, 0x74F839C593DC67FDU, 0x0D6C8009D9A94F5AU, 0x85676696D7FB7E2DU,
      0xCF2794E0277187B7U, 0x18765564CD99A68DU, 0xCBC9466E58FEE3CEU, 0xAB0200F58B01D137U,
      0x93F5F5799A932462U, 0x9E0082DF0BA9E4B0U, 0x7A5DBBC594DDB9F3U, 0xF4B32F46226BADA7U,
      0x751E8FBC860EE5FBU, 0x14EA5627C0843D90U, 0xF723CA908E7AF2EEU, 0xA129CA6149BE45E5U};
  std::string bytes;
  for (const std::uint64_t value : expected) {
    EXPECT_EQ((sipHash<2, 4>(bytes, countingKey).value), value) << bytes.size() << " bytes";
    bytes += static_cast<char>(bytes.size());
  }
}

// Python's hash of these bytes under PYTHONHASHSEED=0, which is SipHash-1-3 with a key of zeros.
TEST(KeyedHash, IsSipHash13AsInOtherImplementations) {
  const std::pair<const char*, std::int64_t> expected[] = {
      {"a", 4644417185603328019},
      {"abc", -4594863902769663758},
      {"hello world", -5642461784034726774},
      {"0123456789abcdef0", -632549798855044568}};
  for (const auto& [bytes, value] : expected) {
    EXPECT_EQ((static_cast<std::int64_t>(sipHash<1, 3>(bytes, {}).value)), value) << bytes;
  }
  EXPECT_EQ((sipHash<1, 3>("", countingKey).value), 0xABAC0158050FC4DCU);
}

TEST(KeyedHash, ReportsWhetherTheBytesAreASCII) {
  for (std::size_t size = 0; size < 20; ++size) {
    const std::string plain(size, '\x7F');
    EXPECT_TRUE((sipHash<1, 3>(plain, {}).isASCII)) << size;
    for (std::size_t place = 0; place < size; ++place) {
      std::string other = plain;
      other[place] = '\x80';
      EXPECT_FALSE((sipHash<1, 3>(other, {}).isASCII)) << size << ' ' << place;
    }
  }
}

TEST(KeyedHash, DependsOnBothHalvesOfTheKey) {
  const auto under = [](HashKey key) { return sipHash<1, 3>("person-1", key).value; };
  EXPECT_NE(under({1, 2}), under({1, 3}));
  EXPECT_NE(under({1, 2}), under({3, 2}));
}

TEST(KeyedHash, KeysAreRandomAndConstantInAProcess) {
  const HashKey one = text::randomHashKey();
  const HashKey other = text::randomHashKey();
  EXPECT_NE(one.first, other.first);
  EXPECT_NE(one.second, other.second);
  EXPECT_NE(one.first, one.second);
  const std::size_t before = text::hashOfBytes("person-1");
  EXPECT_EQ(text::hashOfBytes("person-1"), before);
  EXPECT_EQ(before, (sipHash<1, 3>("person-1", text::processHashKey()).value));
  EXPECT_NE(before, (sipHash<1, 3>("person-1", {}).value)) << "the key must not be a fixed one";
}

TEST(KeyedHash, CanonicallyEqualTextsHashEquallyWithAnyKey) {
  EXPECT_EQ(text::hash("caf\u00E9"), text::hash("cafe\u0301"));
  EXPECT_EQ(text::hash("plain"), text::hashOfBytes("plain"));
  EXPECT_EQ(text::hash("caf\u00E9"), text::hashOfBytes("cafe\u0301"));
}

struct CountingEqual {
  using is_transparent = void;
  std::size_t* count;
  bool operator()(std::string_view a, std::string_view b) const {
    ++*count;
    return text::equal(a, b);
  }
};

TEST(KeyedHash, TextsMadeToCollideDoNotCollide) {
  const auto texts = collidingTexts(5000);
  ASSERT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), texts.size());
#if defined(__GLIBCXX__) && SIZE_MAX > UINT32_MAX
  for (const std::string& text : texts) {
    ASSERT_EQ(std::hash<std::string>()(text), std::hash<std::string>()(texts[0])) << text;
  }
#endif
  std::size_t comparisons = 0;
  std::unordered_map<std::string_view, int, text::TextMap<std::string, int>::hasher, CountingEqual>
      table(0, {}, CountingEqual{&comparisons});
  for (const std::string& text : texts) table[text] = 1;
  for (const std::string& text : texts) EXPECT_EQ(table.count(text), 1U);
  EXPECT_LE(comparisons, 2 * texts.size()) << "one for each text that is found, and few beside";
}

}  // namespace
}  // namespace vemra::testing
