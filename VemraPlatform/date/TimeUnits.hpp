#pragma once

#include <cstdint>

namespace vemra::date {

inline constexpr int secondsPerMinute = 60;
inline constexpr int secondsPerHour = 3600;
inline constexpr std::int64_t secondsPerDay = 86400;

}  // namespace vemra::date
