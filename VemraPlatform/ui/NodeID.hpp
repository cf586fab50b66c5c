#pragma once

#include <cstdint>
#include <functional>

namespace vemra::ui {

/// Identifies one node of a view graph while the graph lives: an id is never reused.
///
/// A default-constructed id identifies no node.
struct NodeID {
  std::uint64_t value = 0;  ///< 0: no node
  /// Whether this names a node.
  explicit operator bool() const { return value != 0; }
  friend bool operator==(NodeID, NodeID) = default;
  friend auto operator<=>(NodeID, NodeID) = default;
};

}  // namespace vemra::ui

template <>
struct std::hash<vemra::ui::NodeID> {
  std::size_t operator()(vemra::ui::NodeID id) const noexcept {
    return std::hash<std::uint64_t>()(id.value);
  }
};
