#include "VemraQt/accessibility/RowIdentifiers.hpp"
#include "tests/VemraPlatform/text/CollidingTexts.hpp"

#include <algorithm>

#include <gtest/gtest.h>

namespace vemra::qt {
namespace {

// Every row that is named is described anew, so a document must not be able to have all named.
TEST(RowIdentifiers, identifiersMadeToCollideNameTheirOwnRows) {
  const auto identifiers = testing::collidingTexts(5000);
  RowIdentifiers noted(nullptr, {}, {});
  for (std::size_t row = 0; row < identifiers.size(); ++row) noted.note(identifiers[row], row);
  noted.finish();
  std::size_t named = 0;
  for (std::size_t row = 0; row < identifiers.size(); ++row) {
    const auto rows = noted.rowsWith(identifiers[row]);
    EXPECT_TRUE(std::ranges::find(rows, row) != rows.end());
    named += rows.size();
  }
  EXPECT_LE(named, identifiers.size() + 20);
}

}  // namespace
}  // namespace vemra::qt
