#pragma once

#include <cstddef>
#include <string_view>

namespace vemra::bench {

/// A fixed amount of the model's hottest work: "scan", "equality" or "resolve". The data for it are
/// made before; the work itself is in functions whose names begin with "counted", so that a tool
/// can count only these.
///
/// - Returns: the number of processed elements; 0 when there is no such work.
std::size_t countedWork(std::string_view name);

}  // namespace vemra::bench
