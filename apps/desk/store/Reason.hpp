#pragma once

#include "VemraGoalEngine/GoalWhyDTO.hpp"
#include "apps/desk/store/Statement.hpp"

#include <cstdint>
#include <optional>
#include <string_view>

namespace vemra::desk {

/// A reason as the columns of a row: its kind, and nil in every column that the kind does not use.
/// The texts are those of the reason, which must outlive the columns.
struct ReasonColumns {
  explicit ReasonColumns(const GoalWhyDTO& why);

  std::string_view kind;
  std::optional<std::string_view> label;
  std::optional<std::string_view> detail;
  std::optional<std::string_view> reference;
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
