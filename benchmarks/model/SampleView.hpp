#pragma once

#include "VemraPlatform/ui/Node.hpp"
#include "VemraPlatform/ui/View.hpp"
#include "benchmarks/data/SampleResult.hpp"

namespace vemra::bench {

/// The goal screen over the sample, with actions that do nothing.
ui::View sampleView(SampleSize size);

/// The list of people in the screen's tree.
const ui::Node& listOf(const ui::Node& root);

}  // namespace vemra::bench
