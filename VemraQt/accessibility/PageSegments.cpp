#include "VemraQt/accessibility/PageSegments.hpp"

#include "VemraPlatform/ui/ViewGraph.hpp"

#include <algorithm>

namespace vemra::qt {

std::vector<PageSegment> segmentsOf(const std::vector<ElementSlot>& elements,
                                    const ui::ViewGraph& graph) {
  std::vector<PageSegment> segments;
  std::size_t first = 0;
  for (std::size_t place = 0; place < elements.size(); ++place) {
    PageSegment segment{place, {}, first, 1};
    if (elements[place].kind == ui::ElementKind::forEach) {
      const ui::Node* list = graph.find(elements[place].node);
      segment.list = elements[place].node;
      segment.count = list ? list->element.rowCount() : 0;
    }
    first += segment.count;
    segments.push_back(segment);
  }
  return segments;
}

ChildSteps stepsOfPage(const std::vector<PageSegment>& before,
                       const std::vector<PageSegment>& after, const ChildSteps& ofElements,
                       const std::unordered_map<ui::NodeID, ChildSteps>& ofRows) {
  ChildSteps steps;
  steps.areComplete = ofElements.areComplete;
  for (const PageSegment& segment : before) {
    if (segment.list) {
      const auto rows = ofRows.find(segment.list);
      if (rows == ofRows.end()) continue;
      steps.areComplete = steps.areComplete && rows->second.areComplete;
      for (const auto& [index, child] : rows->second.removed) {
        steps.removed.push_back({segment.first + index, child});
      }
      continue;
    }
    const auto removed =
        std::ranges::find(ofElements.removed, segment.slot, &ChildSteps::Removed::index);
    if (removed != ofElements.removed.end())
      steps.removed.push_back({segment.first, removed->child});
  }
  for (const PageSegment& segment : after) {
    if (segment.list) {
      const ChildSteps& rows = ofRows.at(segment.list);
      steps.areComplete = steps.areComplete && rows.areComplete;
      for (const std::size_t index : rows.inserted) steps.inserted.push_back(segment.first + index);
    } else if (std::ranges::binary_search(ofElements.inserted, segment.slot)) {
      steps.inserted.push_back(segment.first);
    }
  }
  return steps;
}

}  // namespace vemra::qt
