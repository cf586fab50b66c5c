#include "apps/desk/store/ResultFault.hpp"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
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

/// Counts the texts in the lists of a result, up to a limit.
class TextCount {
 public:
  explicit TextCount(std::size_t most) : most_(most) {}

  template <class Pointer>
  void add(const SharedArray<std::string>& texts, const Pointer& pointer) {
    if (fault_) return;
    count_ += texts.size();
    if (count_ <= most_) return;
    fault_ = ResultFault{pointer(), "expected at most " + std::to_string(most_) +
                                        " texts in the lists of a result; found " +
                                        std::to_string(count_) + " up to here"};
  }

  std::optional<ResultFault> fault() { return std::move(fault_); }

 private:
  std::size_t most_;
  std::size_t count_ = 0;
  std::optional<ResultFault> fault_;
};

/// Adds the texts of each element of a list to the count.
template <class Elements, class Texts>
void addEach(TextCount& count, const Elements& elements, Texts texts, const std::string& list,
             const std::string& key) {
  for (std::size_t i = 0; i < elements.size(); ++i) {
    count.add(elements[i].*texts, [&] {
      std::string pointer = "/" + list;
      return pointer.append("/").append(std::to_string(i)).append("/").append(key);
    });
  }
}

}  // namespace

std::size_t mostTexts(const GetGoalSnapshotResponse& result) {
  return 1'000'000 + 10 * (result.people.size() + result.paths.size() + result.group.size());
}

std::optional<ResultFault> faultOfImport(const GetGoalSnapshotResponse& result) {
  if (auto fault = faultIn(result)) return fault;
  TextCount count(mostTexts(result));
  count.add(result.goal.keywords, [] { return "/goal/keywords"; });
  count.add(result.goal.constraints, [] { return "/goal/constraints"; });
  count.add(result.goal.attachmentRefs, [] { return "/goal/attachmentRefs"; });
  addEach(count, result.people, &GoalPersonCandidateDTO::evidenceIDs, "people", "evidenceIDs");
  addEach(count, result.paths, &GoalPathCandidateDTO::personRefs, "paths", "personRefs");
  addEach(count, result.group, &GoalGroupCandidateDTO::personRefs, "group", "personRefs");
  count.add(result.coverage.sources, [] { return "/coverage/sources"; });
  return count.fault();
}

std::optional<ResultFault> faultIn(const GetGoalSnapshotResponse& result) {
  if (auto fault = faultAmong(result.people, "people")) return fault;
  return faultAmong(result.paths, "paths");
}

}  // namespace vemra::desk
