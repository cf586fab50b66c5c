#pragma once

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <gtest/gtest.h>

namespace vemra::ui::sample {

/// Tests with a view graph each.
class OnGraph : public ::testing::Test {
 protected:
  ViewGraph graph;
};

}  // namespace vemra::ui::sample
