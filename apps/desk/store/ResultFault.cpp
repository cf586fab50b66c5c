#include "apps/desk/store/ResultFault.hpp"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <variant>

namespace vemra::desk {
namespace {

constexpr std::int64_t fewestHops = std::numeric_limits<std::int64_t>::min() + 1;

template <class Candidates>
std::optional<ResultFault> faultAmong(const Candidates& candidates, const char* list) {
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    const auto* connection = std::get_if<GoalWhyDTO::Connection>(&candidates[i].why.reason);
    if (connection == nullptr || connection->hopCount >= fewestHops) continue;
    return ResultFault{std::string("/") + list + '/' + std::to_string(i) + "/why/hopCount",
                       "expected an integer from " + std::to_string(fewestHops) +
                           ", which a screen can show; found " +
                           std::to_string(connection->hopCount)};
  }
  return std::nullopt;
}

}  // namespace

std::optional<ResultFault> faultIn(const GetGoalSnapshotResponse& result) {
  if (auto fault = faultAmong(result.people, "people")) return fault;
  return faultAmong(result.paths, "paths");
}

}  // namespace vemra::desk
