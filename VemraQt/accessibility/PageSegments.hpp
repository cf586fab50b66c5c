#pragma once

#include "VemraQt/accessibility/ChildSteps.hpp"

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace vemra::ui {
class ViewGraph;
}  // namespace vemra::ui

namespace vemra::qt {

/// A part of the page's children: one element outside lists, or all rows of one list.
struct PageSegment {
  std::size_t slot = 0;  ///< of an element outside lists
  ui::NodeID list;       ///< of a list: its node; none for an element
  std::size_t first = 0, count = 1;
};

/// Computes the page's children: one for each element outside lists, and one for each row of a
/// list.
std::vector<PageSegment> segmentsOf(const std::vector<ElementSlot>& elements,
                                    const ui::ViewGraph& graph);

/// Merges the changes of elements and of rows into changes of the page's children, with indexes
/// among all of them.
ChildSteps stepsOfPage(const std::vector<PageSegment>& before,
                       const std::vector<PageSegment>& after, const ChildSteps& ofElements,
                       const std::unordered_map<ui::NodeID, ChildSteps>& ofRows);

}  // namespace vemra::qt
