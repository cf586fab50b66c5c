#pragma once

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/ui/Node.hpp"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

/// \file
/// What a `ForEach` node remembers of its rows. Internal to the view graph.

namespace vemra::ui {

struct SleepingRow;

/// The way from a row down to a node in it.
using IdentityPath = std::vector<Identity>;

/// Rows that sleep, by id and then by how many equal ids stand before them.
using SleepingRows =
    std::unordered_map<std::string, std::map<std::size_t, SleepingRow>, text::Hash, text::Equal>;

/// The state inside a row that has left its initial value, by place.
///
/// A cell that is still here at the end has lost its place for good: it takes no more writes.
struct SavedState {
  std::vector<std::pair<IdentityPath, std::shared_ptr<StateCell>>> cells;
  std::vector<std::pair<IdentityPath, SleepingRows>> lists;

  SavedState();
  SavedState(SavedState&& other) noexcept;
  SavedState& operator=(SavedState&& other) noexcept;
  ~SavedState();
  bool isEmpty() const;
  /// Takes over what stands below `path` here, by its places from there.
  void takeBelow(const IdentityPath& path, SavedState& other);
  /// Takes out what stands below `path`, and names its places from there.
  SavedState splitBelow(const IdentityPath& path);
};

/// A row without nodes whose state waits for its return.
struct SleepingRow {
  Identity content;  ///< what the row's view was: its state is for the same kind and branch only
  SavedState state;
};

struct Rows {
  std::shared_ptr<const RowSource> source;
  SleepingRows asleep;          ///< only rows whose state left its initial value
  std::vector<Node*> lookedAt;  ///< described without being shown, oldest first
};

/// Says whether anything in this subtree, rows asleep included, has left its initial state.
bool hasState(const Node& node);

/// Takes that state out of rows whose nodes are about to go, and keeps it among those asleep. Rows
/// without any are left alone.
///
/// - Parameter rows: in any order; each still stands at its `rowIndex` in the list's source.
/// - Returns: how many passes over row ids that took: one for the list, whatever the number of its
///   rows, and one for each list with state inside them.
std::uint64_t putToSleep(Rows& list, std::vector<Node*> rows);

}  // namespace vemra::ui
