#include "VemraTesting/Screen.hpp"

#include "VemraTesting/Outline.hpp"

#include <algorithm>
#include <numeric>

namespace vemra::testing {

namespace {

/// How many single bytes must change to make one identifier the other.
std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] != b[j - 1]);
      diagonal = row[j];
      row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row[b.size()];
}

}  // namespace

Screen::Screen(ui::View root, ui::Environment environment) : graph_(std::move(environment)) {
  graph_.attach(tree_);
  graph_.setRoot(std::move(root));
}

const RenderedTree::Node* Screen::find(const Query& query) const {
  std::size_t toSkip = query.index;
  for (const RenderedTree::Node* node : tree_.nodes()) {
    if (query.matches(node->element) && toSkip-- == 0) return node;
  }
  return nullptr;
}

std::size_t Screen::count(const Query& query) const {
  return static_cast<std::size_t>(std::ranges::count_if(
      tree_.nodes(), [&](const RenderedTree::Node* node) { return query.matches(node->element); }));
}

const RenderedTree::Node& Screen::get(const Query& query) const {
  if (const RenderedTree::Node* node = find(query)) return *node;
  if (query.by == Query::By::identifier) {
    fail("no element with " + query.description(), query.value);
  }
  if (query.index == 0) fail("no " + query.description());
  fail("no " + query.description() + " at index " + std::to_string(query.index) + ": there are " +
       std::to_string(count(query)));
}

void Screen::press(const Query& query) {
  act(query, get(query), ui::Press{});
}

void Screen::select(std::string_view identifier, std::string_view tagName) {
  const Query query = byIdentifier(std::string(identifier));
  const RenderedTree::Node& node = get(query);
  if (node.element.kind() == ui::ElementKind::picker) {
    std::vector<ui::NodeID> pending(node.children.rbegin(), node.children.rend());
    while (!pending.empty()) {
      const RenderedTree::Node& row = *tree_.find(pending.back());
      pending.pop_back();
      if (const ui::Tag* tag = row.element.tag(); tag && tag->name() == tagName) {
        act(query, node, ui::Select{*tag});
        return;
      }
      pending.insert(pending.end(), row.children.rbegin(), row.children.rend());
    }
    fail("no choice \"" + std::string(tagName) + "\" in element with " + query.description());
  }
  fail("element with " + query.description() + " is not a picker");
}

void Screen::type(std::string_view identifier, std::string_view text) {
  const Query query = byIdentifier(std::string(identifier));
  act(query, get(query), ui::EditText{std::string(text)});
}

void Screen::submit(std::string_view identifier) {
  const Query query = byIdentifier(std::string(identifier));
  act(query, get(query), ui::Submit{});
}

void Screen::act(const Query& query, const RenderedTree::Node& node, ui::Event event) {
  const std::string who = query.by == Query::By::identifier ? "element with " + query.description()
                                                            : query.description();
  const char* const wanted = std::holds_alternative<ui::Press>(event)    ? "button"
                             : std::holds_alternative<ui::Select>(event) ? "picker"
                                                                         : "text field";
  switch (graph_.deliver(node.id, std::move(event))) {
    case ui::Delivery::acted:
    case ui::Delivery::queued:
      return;
    case ui::Delivery::disabled:
      fail(who + " is disabled");
    case ui::Delivery::refused:
      fail(who + " is not a " + wanted);
    case ui::Delivery::gone:
      fail(who + " is gone");
  }
}

std::vector<std::string> Screen::shownTexts() const {
  std::vector<std::string> texts;
  for (const RenderedTree::Node* node : tree_.nodes()) {
    if (node->element.label()) texts.emplace_back(node->element.shownLabel());
  }
  return texts;
}

std::vector<std::string> Screen::identifiers() const {
  std::vector<std::string> identifiers;
  for (const RenderedTree::Node* node : tree_.nodes()) {
    const std::string_view identifier = node->element.accessibilityIdentifier();
    if (!identifier.empty()) identifiers.emplace_back(identifier);
  }
  return identifiers;
}

std::string Screen::outline() const {
  return testing::outline(tree_, graph_);
}

void Screen::fail(std::string reason, std::string_view sought) const {
  std::string context;
  if (!sought.empty()) {
    std::vector<std::string> nearest = identifiers();
    const std::size_t shown = std::min<std::size_t>(3, nearest.size());
    std::ranges::partial_sort(nearest, nearest.begin() + static_cast<std::ptrdiff_t>(shown), {},
                              [&](const std::string& id) { return editDistance(id, sought); });
    for (std::size_t i = 0; i < shown; ++i) {
      context += (i == 0 ? "\nnearest: " : ", ") + nearest[i];
    }
  }
  throw ElementError(std::move(reason), context + "\nthe tree:\n" + outline());
}

}  // namespace vemra::testing
