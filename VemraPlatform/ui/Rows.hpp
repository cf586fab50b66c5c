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
///
/// A cell that is still here at the end has lost its place for good: it takes no more writes.
struct SavedState {
  std::vector<std::pair<IdentityPath, std::shared_ptr<StateCell>>> cells;
  std::vector<std::pair<IdentityPath, std::vector<SleepingRow>>> lists;

  SavedState();
  SavedState(SavedState&& other) noexcept;
  SavedState& operator=(SavedState&& other) noexcept;
  ~SavedState();
  bool isEmpty() const;
};

/// A row without nodes whose state waits for its return.
struct SleepingRow {
  std::string key;
  std::size_t occurrence = 0;
  Identity content;  ///< what the row's view was: its state is for the same kind and branch only
  SavedState state;
};

struct Rows {
  std::shared_ptr<const RowSource> source;
  std::vector<SleepingRow> asleep;  ///< few: only rows whose state left its initial value
  std::vector<Node*> lookedAt;      ///< described without being shown, oldest first
};

/// Says whether anything in this subtree, rows asleep included, has left its initial state.
bool hasState(const Node& node);

/// Takes that state out of a row whose nodes are about to go.
///
/// - Parameter rows: the list in which the row still stands at its `rowIndex`.
SleepingRow putToSleep(const RowSource& rows, Node& row);

}  // namespace vemra::ui
