#include "tests/VemraPlatform/page/PageStory.hpp"

#include <algorithm>
#include <iterator>
#include <ranges>

namespace vemra::page::sample {

using ui::View;

namespace {

/// A button that is replaced by an editor; Save closes the editor.
struct Editor {
  static constexpr std::string_view name = "Editor";
  struct State {
    bool isOpen = false;
    friend bool operator==(const State&, const State&) = default;
  };
  std::string id;
  bool isEnabled = true;

  View body(const ui::LocalState<State>& state) const {
    if (!state->isOpen) {
      return ui::Button(ui::verbatim("open " + id), [state] { state.set(&State::isOpen, true); })
          .disabled(!isEnabled);
    }
    return column({field("note " + id), ui::Button(ui::verbatim("save " + id),
                                                   [state] { state.set(&State::isOpen, false); })});
  }
  ui::Properties properties(const State&) const { return {}; }
};

/// Identifies a leaf in two pages with the same view: its row, and its number in the row, or on the
/// page outside the list.
using Place = std::pair<std::optional<std::size_t>, std::size_t>;

std::vector<std::pair<Place, const Node*>> placesOf(const WindowedTree& tree) {
  std::vector<std::pair<Place, const Node*>> places;
  const Node* lastRow = nullptr;
  std::size_t inRow = 0, outside = 0;
  if (!tree.root()) return places;
  forEachLeaf(*tree.root(), [&](const Node& leaf) {
    const Node* const row = rowOf(&leaf);
    if (!row) {
      places.push_back({{std::nullopt, outside++}, &leaf});
      return;
    }
    inRow = row == lastRow ? inRow + 1 : 0;
    lastRow = row;
    places.push_back({{row->rowIndex, inRow}, &leaf});
  });
  return places;
}

}  // namespace

View Story::view() const {
  const auto viewOf = [rows = rows](const std::string& id) -> View {
    const Row& row = *std::ranges::find(rows, id, &Row::id);
    ui::Children children{text(std::string(static_cast<std::size_t>(row.lines) * 12, 'x')),
                          View(Editor{id, row.isEnabled})};
    if (row.hasField) children.push_back(field("field " + id));
    return column(std::move(children), 2);
  };
  IDs ids;
  for (const Row& each : rows) ids.push_back(each.id);
  ui::Children children{text(std::string(static_cast<std::size_t>(headLines) * 15, 'h')),
                        button("top"), list(std::move(ids), viewOf)};
  if (hasFoot) children.push_back(button("bottom"));
  return column(std::move(children), spacing);
}

PageStory::PageStory(testing::Random& random) : random_(random) {
  story_.spacing = static_cast<int>(random_.below(12));
  story_.headLines = 1 + static_cast<int>(random_.below(20));
  for (std::size_t i = random_.below(60); i > 0; --i) {
    story_.rows.push_back({"r" + std::to_string(newID_++), 1 + static_cast<int>(random_.below(9)),
                           random_.oneIn(12), !random_.oneIn(4)});
  }
  ui::Environment environment;
  if (random_.oneIn(4)) environment.layoutDirection = ui::LayoutDirection::rightToLeft;
  graph_.setEnvironment(environment);
  host_.size = {60 + static_cast<int>(random_.below(300)),
                40 + static_cast<int>(random_.below(500))};
  show();
}

void PageStory::show() {
  graph_.setRoot(story_.view());
  host_.page.settleIfNeeded();
}

std::string PageStory::step() {
  anchored_ = seen();
  host_.landed.clear();
  const int position = host_.position;
  std::string what;
  switch (random_.below(12)) {
    case 0:
    case 1:
    case 2:
      what = change();
      show();
      break;
    case 3:
      host_.resize({60 + static_cast<int>(random_.below(300)), host_.size.height});
      what = "width " + std::to_string(host_.size.width);
      break;
    case 4:
      host_.resize({host_.size.width, 40 + static_cast<int>(random_.below(500))});
      what = "height " + std::to_string(host_.size.height);
      break;
    case 5:
      host_.setScale(1 + static_cast<int>(random_.below(3)));
      what = "scale " + std::to_string(host_.scale);
      break;
    case 6: {
      const int to = static_cast<int>(random_.below(static_cast<std::size_t>(host_.maximum) + 1));
      host_.scrollTo(random_.oneIn(4) ? host_.maximum : to);
      what = "scroll to " + std::to_string(to);
      break;
    }
    case 7:
      host_.scrollTo(host_.position + static_cast<int>(random_.below(200)) - 100);
      what = "scroll a little";
      break;
    case 8:
      host_.page.focusFirst(random_.oneIn(2) ? Page::Direction::forward
                                             : Page::Direction::backward);
      what = "focus an end";
      break;
    case 9:
      host_.page.focusNext(random_.oneIn(3) ? Page::Direction::backward : Page::Direction::forward);
      what = "focus the next";
      break;
    default:
      what = press();
  }
  // A person's action may scroll the page, and the page may scroll to the control that gets a lost
  // focus.
  if (!host_.landed.empty() || what.starts_with("scroll")) anchored_.reset();
  // At its very top the page stays there, unless the focused element is in view.
  const auto isFocused = [&](const Seen& each) { return each.node == host_.focusedElement; };
  if (anchored_ && position == 0 &&
      (anchored_->empty() || !isFocused(anchored_->front()) || !what.starts_with("change"))) {
    anchored_.reset();
  }
  return what;
}

std::string PageStory::change() {
  const std::size_t count = story_.rows.size();
  switch (random_.below(6)) {
    case 0: {
      const std::size_t place = random_.below(count + 1);
      story_.rows.insert(story_.rows.begin() + static_cast<std::ptrdiff_t>(place),
                         {"r" + std::to_string(newID_++), 1 + static_cast<int>(random_.below(9)),
                          random_.oneIn(12), !random_.oneIn(4)});
      return "change: a row at " + std::to_string(place);
    }
    case 1: {
      if (count == 0) return "change: nothing";
      const std::size_t place = random_.below(count);
      const std::size_t last = std::min(count, place + 1 + random_.below(5));
      story_.rows.erase(story_.rows.begin() + static_cast<std::ptrdiff_t>(place),
                        story_.rows.begin() + static_cast<std::ptrdiff_t>(last));
      return "change: without rows from " + std::to_string(place);
    }
    case 2: {
      if (count == 0) return "change: nothing";
      std::swap(story_.rows[random_.below(count)], story_.rows[random_.below(count)]);
      return "change: two rows change places";
    }
    case 3:
      if (count > 0) {
        Story::Row& row = story_.rows[random_.below(count)];
        row.lines = 1 + static_cast<int>(random_.below(9));
        row.isEnabled = !random_.oneIn(3);
      }
      return "change: another height";
    case 4:
      story_.headLines = 1 + static_cast<int>(random_.below(20));
      return "change: another head";
    default:
      story_.hasFoot = !story_.hasFoot;
      return "change: the foot comes or goes";
  }
}

std::string PageStory::press() {
  std::vector<const Node*> buttons;
  for (const auto& [place, leaf] : placesOf(host_.page.tree())) {
    if (takesFocus(*leaf) && leaf->element.kind() == ui::ElementKind::button) {
      buttons.push_back(leaf);
    }
  }
  if (buttons.empty()) return "press nothing";
  const Node& button = *buttons[random_.below(buttons.size())];
  std::string what = "press " + std::string(button.element.shownLabel());
  host_.page.deliver(button.id, ui::Press{});
  return what;
}

std::vector<PageStory::Seen> PageStory::seen() const {
  std::vector<Seen> seen;
  const Frames frames = host_.page.frames();
  const Viewport viewport = host_.page.viewport();
  const auto add = [&](const Node& leaf) {
    const Rect frame = frames.of(leaf);
    if (viewport.shows(frame)) {
      seen.push_back({leaf.id, frame.y - viewport.position, frame.height});
    }
  };
  if (const Node* const focused = host_.page.focused()) add(*focused);
  for (const auto& [place, leaf] : placesOf(host_.page.tree())) add(*leaf);
  return seen;
}

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
