#include "VemraPlatform/ui/ListDiff.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vemra::ui {

namespace {

constexpr std::size_t isNew = static_cast<std::size_t>(-1);

/// Marks the positions of a longest strictly increasing subsequence of `places`, which never
/// includes `isNew`.
std::vector<bool> longestIncreasing(const std::vector<std::size_t>& places) {
  std::vector<std::size_t> tails;  // the last position of a subsequence of each length
  std::vector<std::size_t> previous(places.size(), isNew);
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (places[i] == isNew) continue;
    auto tail = std::lower_bound(tails.begin(), tails.end(), places[i],
                                 [&](std::size_t t, std::size_t p) { return places[t] < p; });
    if (tail != tails.begin()) previous[i] = *(tail - 1);
    if (tail == tails.end()) {
      tails.push_back(i);
    } else {
      *tail = i;
    }
  }
  std::vector<bool> stays(places.size(), false);
  for (std::size_t i = tails.empty() ? isNew : tails.back(); i != isNew; i = previous[i]) {
    stays[i] = true;
  }
  return stays;
}

}  // namespace

std::vector<ListOperation> diff(std::span<const NodeID> before, std::span<const NodeID> after) {
  using Kind = ListOperation::Kind;
  std::vector<ListOperation> operations;
  if (std::ranges::equal(before, after)) return operations;

  std::vector<std::pair<NodeID, std::size_t>> placesBefore;
  placesBefore.reserve(before.size());
  for (std::size_t i = 0; i < before.size(); ++i) placesBefore.emplace_back(before[i], i);
  std::ranges::sort(placesBefore);

  std::vector<std::size_t> places(after.size(), isNew);
  std::vector<bool> kept(before.size(), false);
  for (std::size_t i = 0; i < after.size(); ++i) {
    const auto found = std::ranges::lower_bound(placesBefore, after[i], {},
                                                &decltype(placesBefore)::value_type::first);
    if (found != placesBefore.end() && found->first == after[i]) {
      places[i] = found->second;
      kept[found->second] = true;
    }
  }

  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!kept[i]) operations.push_back({Kind::remove, before[i], {}});
  }
  const std::vector<bool> stays = longestIncreasing(places);
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (stays[i]) continue;
    operations.push_back({places[i] == isNew ? Kind::insert : Kind::move, after[i],
                          i == 0 ? NodeID{} : after[i - 1]});
  }
  return operations;
}

}  // namespace vemra::ui
