#pragma once

#include "VemraPlatform/ui/Patch.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <cstdint>
#include <optional>
#include <string>

/// \file
/// Patches written by hand, for tests of code that applies patches.

namespace vemra::ui::sample {

/// Inserts a text that shows the number of its node; 0 stands for no parent or no sibling before
/// it.
inline Patch insert(std::uint64_t node, std::uint64_t parent, std::uint64_t after) {
  const View view = Text(verbatim(std::to_string(node)));
  return {Patch::Kind::insert, NodeID{node}, NodeID{parent}, NodeID{after}, Element(view, {}, {})};
}
inline Patch move(std::uint64_t node, std::uint64_t parent, std::uint64_t after) {
  return {Patch::Kind::move, NodeID{node}, NodeID{parent}, NodeID{after}, std::nullopt};
}
inline Patch removal(std::uint64_t node) {
  return {Patch::Kind::remove, NodeID{node}, {}, {}, std::nullopt};
}

}  // namespace vemra::ui::sample
