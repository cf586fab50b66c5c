#pragma once

#include "VemraQt/accessibility/ElementSlot.hpp"

#include <cstddef>
#include <vector>

#include <QAccessible>

namespace vemra::qt {

class LeavingObjects;

/// So many children of one parent are announced one by one; of more, that they are others now.
inline constexpr std::size_t mostToldOneByOne = 32;

/// How one list of children became another one.
struct ChildSteps {
  struct Left {
    std::size_t index;
    QAccessible::Id child;  ///< 0: nobody has asked for it
  };
  std::vector<Left> left;         ///< by their places before, ascending
  std::vector<std::size_t> came;  ///< their places afterwards, ascending
  bool areComplete = true;        ///< false: too much has changed to be told one by one
};

/// Puts `fresh` in the place of `elements`. Objects stay with their paths; the others leave.
ChildSteps adopt(std::vector<ElementSlot>& elements, std::vector<ElementSlot> fresh,
                 LeavingObjects& leaving);

}  // namespace vemra::qt
