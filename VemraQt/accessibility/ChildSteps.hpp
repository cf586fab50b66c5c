#pragma once

#include "VemraQt/accessibility/ElementSlot.hpp"

#include <cstddef>
#include <vector>

#include <QAccessible>

namespace vemra::qt {

class LeavingObjects;

/// Up to this many changed children of one parent are announced one by one; beyond it, clients get
/// one notification that the children have changed.
inline constexpr std::size_t mostSentOneByOne = 32;

/// The changes that turned one list of children into another.
struct ChildSteps {
  struct Removed {
    std::size_t index;
    QAccessible::Id child;  ///< 0: no client has asked for it
  };
  std::vector<Removed> removed;       ///< by their indexes before, ascending
  std::vector<std::size_t> inserted;  ///< their indexes afterwards, ascending
  bool areComplete = true;            ///< false: too much has changed to announce each child
};

/// Replaces `elements` by `fresh`. An object stays with the element at the same path; objects of
/// paths that are gone leave.
ChildSteps adopt(std::vector<ElementSlot>& elements, std::vector<ElementSlot> fresh,
                 LeavingObjects& leaving);

}  // namespace vemra::qt
