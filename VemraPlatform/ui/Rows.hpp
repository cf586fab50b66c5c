#pragma once

#include "VemraPlatform/text/TextMap.hpp"
#include "VemraPlatform/ui/NodeAccess.hpp"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// \file
/// The data that a `ForEach` node stores about its rows. Internal to the view graph.

namespace vemra::ui {

struct SleepingRow;

/// The identities from a row down to a node in it.
using IdentityPath = std::vector<Identity>;

/// The sleeping rows, by id and then by the number of equal ids before them.
using SleepingRows = text::TextMap<std::string, std::map<std::size_t, SleepingRow>>;

/// The state in a row that differs from its initial value, by place.
///
/// The destructor detaches the cells that have not been restored: they ignore later writes.
struct SavedState {
  std::vector<std::pair<IdentityPath, std::shared_ptr<StateCell>>> cells;
  std::vector<std::pair<IdentityPath, SleepingRows>> lists;

  SavedState();
  SavedState(SavedState&& other) noexcept;
  SavedState& operator=(SavedState&& other) noexcept;
  ~SavedState();
  bool isEmpty() const;
  /// Moves all state of `other` into this one, with its places below `path`.
  void takeBelow(const IdentityPath& path, SavedState& other);
  /// Takes out the state below `path`; its places count from there.
  SavedState splitBelow(const IdentityPath& path);
};

/// A row without nodes whose state is saved for its return.
struct SleepingRow {
  Identity content;  ///< of the row's view: its state fits only the same kind and branch
  SavedState state;
};

struct Rows {
  std::shared_ptr<const RowSource> source;
  SleepingRows asleep;        ///< only rows with state that differs from its initial value
  std::vector<Node*> peeked;  ///< described without being shown, oldest first
};

/// Whether any state in this subtree, sleeping rows included, differs from its initial value.
bool hasState(const Node& node);

/// Saves the state of rows whose nodes are about to be removed, in `list.asleep`. Rows without such
/// state are skipped.
///
/// - Parameter rows: in any order; each must still be at its `rowIndex` in the list's source.
/// - Returns: the number of passes over row ids: one for the list, whatever the number of rows, and
///   one for each list with state inside them.
std::uint64_t putToSleep(Rows& list, std::vector<Node*> rows);

}  // namespace vemra::ui
