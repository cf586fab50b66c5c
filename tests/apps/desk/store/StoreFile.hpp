#pragma once

#include "tests/apps/TemporaryFolder.hpp"

#include <string>

#include <gtest/gtest.h>

namespace vemra::desk {

/// Tests with a folder each, and the path of a store in it, which does not exist yet.
class StoreFile : public ::testing::Test {
 protected:
  TemporaryFolder folder;
  std::string file = folder.file("goals.sqlite");
};

}  // namespace vemra::desk
