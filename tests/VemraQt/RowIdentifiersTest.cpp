#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/accessibility/RowIdentifiers.hpp"
#include "tests/VemraPlatform/text/CollidingTexts.hpp"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::qt {
namespace {

// The search describes every row whose note matches, so a document must not be able to make all
// notes match.
TEST(RowIdentifiers, IdentifiersMadeToCollideFindTheirOwnRows) {
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

std::shared_ptr<const ui::RowSource> someRows() {
  const auto row = [](const std::string&) { return ui::View(ui::Text("row")); };
  using Ids = std::vector<std::string>;
  return std::make_shared<ui::RowsOf<Ids, std::identity, decltype(row)>>(Ids{"a"}, std::identity(),
                                                                         row);
}

TEST(RowIdentifiers, NotesBelongToTheirOwnRowsAndEnvironmentOnly) {
  const auto rows = someRows();
  const RowIdentifiers noted(rows, {}, {});
  ui::Environment larger;
  larger.textScale = 2;
  EXPECT_TRUE(noted.areOf(rows, {}));
  EXPECT_FALSE(noted.areOf(someRows(), {}));
  EXPECT_FALSE(noted.areOf(rows, larger));
}

TEST(RowIdentifiers, NotesDoNotKeepRemovedRowsAlive) {
  auto rows = someRows();
  const RowIdentifiers noted(rows, {}, {});
  const std::weak_ptr<const ui::RowSource> watched = rows;
  rows.reset();
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace vemra::qt
