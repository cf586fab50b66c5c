#pragma once

#include "VemraGoalEngine/GoalWhyDTO.hpp"
#include "apps/desk/store/Statement.hpp"

#include <cstdint>
#include <optional>
#include <string>

namespace vemra::desk {

/// A reason as the columns of a row: its kind, and nil in every column that the kind does not use.
struct ReasonColumns {
  explicit ReasonColumns(const GoalWhyDTO& why);

  std::string kind;
  std::optional<std::string> label;
  std::optional<std::string> detail;
  std::optional<std::string> reference;
  std::optional<std::int64_t> hopCount;
  std::optional<std::int64_t> threadCount;
  std::optional<std::int64_t> meetingCount;
};

/// The names of these columns in this order, for SQL.
inline constexpr const char* reasonColumnNames =
    "why_kind, why_label, why_detail, why_reference, why_hop_count, why_thread_count, "
    "why_meeting_count";

/// Reads a reason from the seven columns of the current row that begin at `first`. The columns that
/// its kind does not use must be NULL.
GoalWhyDTO readReason(Statement& row, int first);

}  // namespace vemra::desk
