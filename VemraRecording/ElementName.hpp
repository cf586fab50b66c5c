#pragma once

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <cstddef>
#include <string>

namespace vemra::recording {

/// How a step of a case names an element of the goal result screen.
struct ElementName {
  bool isTitle = false;  ///< a button's title; otherwise an accessibility identifier
  std::string name;
  std::size_t index = 0;  ///< among all elements of that name, in tree order
};

/// The name of an element that an event is for. May be called while the graph is busy.
///
/// - Parameter snapshot: what the graph shows.
/// - Parameter replayed: the same people with the names that the case has for them, which decide
///   how many buttons before this one have its title. A title comes back as it is in there, an
///   identifier as it is in the graph.
ElementName nameOf(const ui::Node& element, ui::ViewGraph& graph,
                   const GoalResultSnapshotV1& snapshot, const GetGoalSnapshotResponse& replayed);

}  // namespace vemra::recording
