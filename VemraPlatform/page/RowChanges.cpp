#include "VemraPlatform/page/RowChanges.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/ui/Identity.hpp"

#include <algorithm>
#include <numeric>

namespace vemra::page {

namespace {

constexpr RowChanges incomplete{{}, {}, false};

/// The rows from `first` up to, but not including, `last`.
struct Stretch {
  std::size_t first = 0, last = 0;
  bool holds(std::size_t row) const { return row >= first && row < last; }
  std::vector<std::size_t> rows() const {
    std::vector<std::size_t> all(last - first);
    std::iota(all.begin(), all.end(), first);
    return all;
  }
};

/// The positions in `other` of the rows of a stretch of `list`.
std::vector<std::size_t> placesIn(const ui::RowIDs& other, const ui::RowIDs& list,
                                  const Stretch& stretch) {
  if (stretch.first == stretch.last) return {};
  return ui::locateRows(other, ui::rowIdentities(list, stretch.rows()));
}

}  // namespace

RowChanges rowChanges(const ui::RowIDs& before, const ui::RowIDs& after, std::size_t most) {
  const std::size_t fewer = std::min(before.count(), after.count());
  if (std::max(before.count(), after.count()) - fewer > most) return incomplete;
  std::size_t start = 0;
  while (start < fewer && text::equal(before.key(start), after.key(start))) ++start;
  std::size_t end = 0;
  while (end < fewer - start &&
         text::equal(before.key(before.count() - 1 - end), after.key(after.count() - 1 - end))) {
    ++end;
  }
  const Stretch old{start, before.count() - end}, fresh{start, after.count() - end};

  RowChanges changes;
  std::size_t next = fresh.first;
  const std::vector<std::size_t> placesOfOld = placesIn(after, before, old);
  for (std::size_t i = 0; i < placesOfOld.size(); ++i) {
    const std::size_t place = placesOfOld[i];
    if (place == ui::absentRow) {
      changes.removed.push_back(old.first + i);
    } else if (place < next || !fresh.holds(place)) {  // outside: an equal id was removed
      return incomplete;
    } else {
      next = place + 1;
    }
  }
  const std::vector<std::size_t> placesOfFresh = placesIn(before, after, fresh);
  for (std::size_t i = 0; i < placesOfFresh.size(); ++i) {
    if (placesOfFresh[i] == ui::absentRow) {
      changes.inserted.push_back(fresh.first + i);
    } else if (!old.holds(placesOfFresh[i])) {
      return incomplete;
    }
  }
  return changes.removed.size() + changes.inserted.size() > most ? incomplete : changes;
}

}  // namespace vemra::page
