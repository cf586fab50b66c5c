#include "VemraQt/atspi/IdentifierBus.hpp"

#include <gtest/gtest.h>

namespace vemra::qt::atspi {
namespace {

TEST(IdentifierBusTest, NothingIsPublishedBeforeARequestOrWithoutABus) {
  EXPECT_FALSE(areIdentifiersPublished());
  publishIdentifiers();
  EXPECT_FALSE(areIdentifiersPublished()) << "the platform of this test has no accessibility bus";
}

}  // namespace
}  // namespace vemra::qt::atspi
