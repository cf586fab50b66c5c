#include "tests/VemraPlatform/page/PageStory.hpp"
#include "tests/VemraPlatform/page/Places.hpp"

#include <algorithm>

/// \file
/// The laws of a story's page.

namespace vemra::page::sample {

std::string PageStory::broken() {
  if (!host_.errors.empty()) return "something was thrown";
  for (std::string problem :
       {brokenFocus(), brokenDrawing(), brokenRows(), brokenAnchor(), brokenLikeness()}) {
    if (!problem.empty()) return problem;
  }
  return "";
}

std::string PageStory::brokenFocus() const {
  if (!host_.landedWell) return "the focus landed on what is not there or not enabled";
  if (host_.focusedElement && !host_.page.focused()) return "the focus is on what has gone";
  return "";
}

std::string PageStory::brokenDrawing() const {
  const Frames frames = host_.page.frames();
  const Viewport viewport = host_.page.viewport();
  std::size_t count = 0;
  for (const auto& [place, leaf] : placesOf(host_.page.tree())) {
    const auto found = host_.drawn.find(leaf->id);
    const std::string name = nameOf(*leaf);
    if (found == host_.drawn.end()) {
      if (viewport.shows(frames.of(*leaf))) return name + " is in view and not drawn";
      continue;
    }
    ++count;
    if (found->second != frames.of(*leaf)) return name + " is drawn elsewhere";
  }
  if (count != host_.drawn.size()) return "something is drawn that is not there";
  if (host_.maximum != std::max(0, host_.page.contentHeight() - viewport.height)) {
    return "the scroll range is not the page's";
  }
  if (host_.position != viewport.position || host_.position < 0 || host_.position > host_.maximum) {
    return "the page is scrolled out of its range";
  }
  return "";
}

std::string PageStory::brokenRows() const {
  const Viewport viewport = host_.page.viewport();
  for (const Node* list : host_.page.tree().lists()) {
    const RowHeights& heights = *list->rows;
    if (heights.count() != story_.rows.size()) return "the list has another number of rows";
    std::size_t far = 0;
    std::vector<std::size_t> there;
    for (const Node& row : list->children()) {
      there.push_back(row.rowIndex);
      if (!viewport.shows(host_.page.frames().ofRow(*list, row.rowIndex), 96 + 288)) ++far;
    }
    if (far > 17) return "more rows are kept than those with the focus or a field";
    for (std::size_t row = 0; row < heights.count(); ++row) {
      if (viewport.shows(host_.page.frames().ofRow(*list, row)) &&
          !std::ranges::binary_search(there, row)) {
        return "row " + std::to_string(row) + " is in view and not there";
      }
    }
  }
  return "";
}

std::string PageStory::brokenAnchor() const {
  if (!anchored_ || host_.position == 0 || host_.position == host_.maximum) return "";
  for (const Seen& before : *anchored_) {
    const Node* const node = host_.page.tree().find(before.node);
    if (!node) continue;
    const Rect frame = host_.page.frames().of(*node);
    const int top = frame.y - host_.position;
    if (before.top < 0 && frame.height != before.height) return "";  // a part of it stays
    if (top == before.top) return "";
    return nameOf(*node) + " moved from " + std::to_string(before.top) + " to " +
           std::to_string(top);
  }
  return "";
}

std::string PageStory::brokenLikeness() {
  // The same view with every row; the same editors are open in it.
  Story enabled = story_;
  for (Story::Row& row : enabled.rows) row.isEnabled = true;
  Laid whole(enabled.view(), 1);
  whole.ask({{0, story_.rows.size()}});
  const std::vector<std::size_t> withState =
      graph_.rowsWithState(host_.page.tree().lists().at(0)->id);
  for (const std::size_t row : withState) {
    const ui::NodeID looked = graph_.peekRow(host_.page.tree().lists().at(0)->id, row);
    bool isOpen = false;
    std::vector<const ui::Node*> pending{graph_.find(looked)};
    while (!pending.empty()) {
      const ui::Node* const node = pending.back();
      pending.pop_back();
      isOpen = isOpen || node->element.shownLabel().starts_with("save ");
      pending.insert(pending.end(), node->children.begin(), node->children.end());
    }
    if (isOpen) whole.graph.deliver(whole.leaf("open " + story_.rows[row].id).id, ui::Press{});
  }
  whole.show(story_.view());
  struct Scaled final : LeafMetrics {
    explicit Scaled(CellHost& newHost) : host(newHost) {}
    Size measure(const Node& leaf, int width) override { return host.measure(leaf, width); }
    CellHost& host;
  } metrics(host_);
  const Viewport viewport = host_.page.viewport();
  measureScope(*whole.tree.root(), viewport.width, 0, metrics);

  const Frames frames = host_.page.frames(),
               wholeFrames = whole.frames(graph_.environment().layoutDirection);
  const auto mine = placesOf(host_.page.tree());
  const auto theirs = placesOf(whole.tree);
  // The difference between the estimated and the real height of the rows above.
  std::optional<int> shift;
  std::size_t next = 0;
  for (const auto& [place, leaf] : mine) {
    const Rect frame = frames.of(*leaf);
    if (!viewport.shows(frame)) continue;
    while (next < theirs.size() && theirs[next].first != place) {
      const bool isSkipped =
          shift && viewport.shows(wholeFrames.of(*theirs[next].second).movedBy(0, *shift));
      if (isSkipped) return "in view of the whole page only: " + nameOf(*theirs[next].second);
      ++next;
    }
    if (next == theirs.size()) return "the whole page has no such place";
    const Node& other = *theirs[next++].second;
    const Rect otherFrame = wholeFrames.of(other);
    if (!shift) shift = frame.y - otherFrame.y;
    if (!(leaf->element == other.element)) return "another element than on the whole page";
    if (frame != otherFrame.movedBy(0, *shift)) {
      return nameOf(*leaf) + " stands elsewhere than on the whole page";
    }
  }
  for (; shift && next < theirs.size(); ++next) {
    if (viewport.shows(wholeFrames.of(*theirs[next].second).movedBy(0, *shift))) {
      return "in view of the whole page only: " + nameOf(*theirs[next].second);
    }
  }
  return "";
}

}  // namespace vemra::page::sample
