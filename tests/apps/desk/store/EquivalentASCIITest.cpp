#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/text/UTF8.hpp"
#include "apps/desk/store/EquivalentASCII.hpp"

#include <string>
#include <unordered_set>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

TEST(EquivalentASCIITest, FindsTheASCIICharacterOfEachScalarThatHasOne) {
  std::unordered_set<std::string, text::Hash, text::Equal> characters;
  for (char each = 0; each < 0x7F; ++each) characters.insert(std::string(1, each));
  characters.insert("\x7F");
  std::string scalar;
  for (char32_t each = 0; each <= 0x10FFFF; ++each) {
    if (each >= 0xD800 && each <= 0xDFFF) continue;  // surrogates
    scalar.clear();
    text::append(scalar, each);
    const auto found = characters.find(scalar);
    const auto wanted = found == characters.end() ? std::nullopt : std::optional(*found);
    ASSERT_EQ(equivalentASCII(scalar), wanted) << std::hex << static_cast<unsigned>(each);
  }
}

TEST(EquivalentASCIITest, FindsNoneUnlessEachScalarHasOne) {
  EXPECT_EQ(equivalentASCII(""), "");
  EXPECT_EQ(equivalentASCII("a\u212Ab\u037E\u1FEF"), "aKb;`");
  EXPECT_EQ(equivalentASCII("\u212A\u0301"), std::nullopt);
  EXPECT_EQ(equivalentASCII("\u212A\xE2\x84"), std::nullopt) << "ill-formed";
}

}  // namespace
}  // namespace vemra::desk
