#include "tests/VemraPlatform/page/PageStory.hpp"

#include "tests/VemraPlatform/page/Places.hpp"

#include <algorithm>

namespace vemra::page::sample {

using ui::View;

namespace {

View line(ui::Children children) {
  return ui::HStack(ui::VerticalAlignment::center, 5, std::move(children));
}

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
    return line(
        {column({text("note"), field("note " + id)}),
         ui::Button(ui::verbatim("save " + id), [state] { state.set(&State::isOpen, false); })});
  }
  ui::Properties properties(const State&) const { return {}; }
};

}  // namespace

View Story::view() const {
  const auto viewOf = [rows = rows](const std::string& id) -> View {
    const Row& row = *std::ranges::find(rows, id, &Row::id);
    ui::Children children{text(std::string(static_cast<std::size_t>(row.lines) * 12, 'x')),
                          View(Editor{id, row.isEnabled})};
    if (row.hasField) children.push_back(line({text("name"), field("field " + id)}));
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

}  // namespace vemra::page::sample
