#pragma once

#include <string>

namespace vemra::desk {

/// The current time as an internet date-time in UTC, with seconds (RFC 3339): the date of an
/// outcome.
std::string now();

}  // namespace vemra::desk
