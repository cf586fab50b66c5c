#pragma once

#include <cstddef>
#include <string_view>

namespace vemra::bench {

/// A fixed amount of the model's hottest work: "scan", "equality" or "resolve". What is needed
/// for it is made before; the work itself happens in functions whose names begin with "counted", so
/// that a tool can count in those alone.
///
/// - Returns: how many elements it worked through; 0 when there is no such work.
std::size_t countedWork(std::string_view name);

}  // namespace vemra::bench
