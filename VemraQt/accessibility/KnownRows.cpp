#include "VemraQt/accessibility/KnownRows.hpp"

#include "VemraPlatform/page/RowChanges.hpp"
#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/ui/Identity.hpp"
#include "VemraQt/accessibility/AccessibleRow.hpp"
#include "VemraQt/accessibility/LeavingObjects.hpp"
#include "VemraQt/page/PageErrors.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

namespace vemra::qt {

AccessibleRow* KnownRows::at(std::size_t index) const {
  const auto row = rows_.find(index);
  return row == rows_.end() ? nullptr : row->second;
}

std::vector<AccessibleRow*> KnownRows::all() const {
  std::vector<AccessibleRow*> rows;
  rows.reserve(rows_.size());
  for (const auto& [index, row] : rows_) rows.push_back(row);
  return rows;
}

void KnownRows::add(AccessibleRow& row) {
  rows_.emplace(row.index, &row);
}

ChildSteps KnownRows::follow(const std::shared_ptr<const ui::RowIDs>& source, PageErrors& errors,
                             LeavingObjects& leaving) {
  ChildSteps steps;
  if (source_ == source) return steps;
  if (!errors.attempt([&] { steps = move(source, leaving); })) {
    // The ids cannot be read, so no known row can be found again.
    for (auto& [index, row] : rows_) leaving.addRow(*row);
    rows_.clear();
    steps.areComplete = false;
  }
  source_ = source;
  uncompared_.clear();
  for (const auto& [index, row] : rows_) uncompared_.push_back(row->id());
  return steps;
}

void KnownRows::leave(LeavingObjects& leaving) {
  for (auto& [index, row] : rows_) leaving.addRow(*row);
  rows_.clear();
}

void KnownRows::takeUncompared(std::vector<QAccessible::Id>& rows, std::size_t most) {
  while (!uncompared_.empty() && rows.size() < most) {
    rows.push_back(uncompared_.back());
    uncompared_.pop_back();
  }
}

ChildSteps KnownRows::move(const std::shared_ptr<const ui::RowIDs>& source,
                           LeavingObjects& leaving) {
  ChildSteps steps;
  if (source_) {
    page::RowChanges changes = page::rowChanges(*source_, *source, mostSentOneByOne);
    steps.areComplete = changes.areComplete;
    for (const std::size_t row : changes.removed) steps.removed.push_back({row, idAt(row)});
    steps.inserted = std::move(changes.inserted);
  } else if (source->count() <= mostSentOneByOne) {
    steps.inserted.resize(source->count());
    std::iota(steps.inserted.begin(), steps.inserted.end(), std::size_t{0});
  } else {
    steps.areComplete = false;
  }
  const bool inPlace = std::ranges::all_of(rows_, [&](const auto& entry) {
    return entry.first < source->count() &&
           text::equal(source->key(entry.first), entry.second->rowID);
  });
  if (!inPlace) {
    std::vector<std::size_t> before;
    before.reserve(rows_.size());
    for (const auto& [index, row] : rows_) before.push_back(index);
    std::ranges::sort(before);
    const auto identities = ui::rowIdentities(*source_, before);
    const auto after = ui::locateRows(*source, identities);
    std::unordered_map<std::size_t, AccessibleRow*> rows;
    for (std::size_t i = 0; i < before.size(); ++i) {
      AccessibleRow* row = rows_.at(before[i]);
      if (after[i] != ui::absentRow && rows.try_emplace(after[i], row).second) {
        row->index = after[i];
      } else {
        leaving.addRow(*row);
      }
    }
    rows_ = std::move(rows);
  }
  return steps;
}

QAccessible::Id KnownRows::idAt(std::size_t index) const {
  AccessibleRow* row = at(index);
  return row ? row->id() : 0;
}

}  // namespace vemra::qt
