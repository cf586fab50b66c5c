#pragma once

#include "VemraPlatform/ui/Node.hpp"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// \file
/// What a `ForEach` node remembers of its rows. Internal to the view graph.

namespace vemra::ui {

struct SleepingRow;

/// The way from a row down to a node in it.
using IdentityPath = std::vector<Identity>;

/// The state inside a row that has left its initial value, by place.
struct SavedState {
  std::vector<std::pair<IdentityPath, std::shared_ptr<StateCell>>> cells;
  std::vector<std::pair<IdentityPath, std::vector<SleepingRow>>> lists;
  bool isEmpty() const { return cells.empty() && lists.empty(); }
  void detach();
};

/// A row without nodes whose state waits for its return.
struct SleepingRow {
  std::string key;
  std::size_t occurrence;
  SavedState state;
};

struct Rows {
  std::shared_ptr<const RowSource> source;
  std::vector<SleepingRow> asleep;  ///< few: only rows whose state left its initial value
  std::vector<Node*> lookedAt;      ///< described without being shown, oldest first
};

}  // namespace vemra::ui
