#include "VemraTesting/Screen.hpp"

#include "VemraPlatform/page/Choices.hpp"
#include "VemraPlatform/task/MainActor.hpp"
#include "VemraPlatform/text/OneLine.hpp"
#include "VemraTesting/Outline.hpp"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace vemra::testing {

namespace {

// Identifiers may have any length; those of interest differ within their first bytes.
constexpr std::size_t comparedLength = 256;

/// The number of single-byte edits that turn one identifier into the other.
std::size_t editDistance(std::string_view a, std::string_view b) {
  a = a.substr(0, comparedLength);
  b = b.substr(0, comparedLength);
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

/// Describes the element as the subject of a sentence.
std::string subject(const Query& query) {
  return query.by == Query::By::identifier ? "element with " + query.description()
                                           : query.description();
}

/// The names that `select` takes, quoted, in the order of the choices.
std::string namesOfChoices(const RenderedTree::Node& picker) {
  std::string names;
  for (const page::Choice& choice : page::choicesOf(picker)) {
    names += (names.empty() ? "" : ", ") + text::quotedOnOneLine(choice.tag.name());
  }
  return names.empty() ? "none" : names;
}

}  // namespace

Screen::Screen(ui::View root, ui::Environment environment) : graph_(std::move(environment)) {
  task::MainActor::assertIsolated("testing::Screen");
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
  fail(query, missing(query));
}

std::string Screen::missing(const Query& query) const {
  std::string reason = "no " + subject(query);
  if (query.index > 0) {
    reason +=
        " at index " + std::to_string(query.index) + ": there are " + std::to_string(count(query));
  }
  return reason;
}

void Screen::carryOut(const Query& query, const Act& act) {
  if (auto reason = attempt(query, act)) fail(query, *std::move(reason));
}

std::optional<std::string> Screen::attempt(const Query& query, const Act& act) {
  const RenderedTree::Node* const node = find(query);
  if (!node) return missing(query);
  const std::string who = subject(query);
  const auto* const choose = std::get_if<Choose>(&act);
  const std::optional<ui::Event> event = eventOf(*node, act);
  if (!event) {
    if (!node->element.style().enabled) return who + " is disabled";
    if (node->element.kind() != ui::ElementKind::picker) return who + " is not a picker";
    return "no choice " + text::quotedOnOneLine(choose->tagName) + " in " + who + ": it has " +
           namesOfChoices(*node);
  }
  switch (graph_.deliver(node->id, *event)) {
    case ui::Delivery::acted:
    case ui::Delivery::queued:
      return std::nullopt;
    case ui::Delivery::disabled:
      return who + " is disabled";
    case ui::Delivery::refused:
      return who + " is not a " +
             (choose                                   ? "picker"
              : std::holds_alternative<ui::Press>(act) ? "button"
                                                       : "text field");
    case ui::Delivery::gone:
      return who + " is gone";
  }
  return std::nullopt;
}

/// Converts the act to an event for this element; nil when it has no such choice.
std::optional<ui::Event> Screen::eventOf(const RenderedTree::Node& node, const Act& act) const {
  if (const auto* press = std::get_if<ui::Press>(&act)) return *press;
  if (const auto* edit = std::get_if<ui::EditText>(&act)) return *edit;
  if (const auto* submit = std::get_if<ui::Submit>(&act)) return *submit;
  if (node.element.kind() != ui::ElementKind::picker) return std::nullopt;
  for (const page::Choice& choice : page::choicesOf(node)) {
    if (choice.tag.name() == std::get<Choose>(act).tagName) return ui::Select{choice.tag};
  }
  return std::nullopt;
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

void Screen::fail(const Query& query, std::string reason) const {
  const bool unknown = query.by == Query::By::identifier && count(query) == 0;
  const std::string nearest = unknown ? nearestIdentifiers(query.value) : "";
  throw ElementError(std::move(reason), nearest + "\nthe tree:\n" + outline());
}

std::string Screen::nearestIdentifiers(std::string_view sought) const {
  std::vector<std::pair<std::size_t, std::string>> byDistance;
  for (std::string& identifier : identifiers()) {
    byDistance.emplace_back(editDistance(identifier, sought), std::move(identifier));
  }
  const std::size_t shown = std::min<std::size_t>(3, byDistance.size());
  std::ranges::partial_sort(byDistance, byDistance.begin() + static_cast<std::ptrdiff_t>(shown));
  std::string line;
  for (std::size_t i = 0; i < shown; ++i) {
    line += (i == 0 ? "\nnearest: " : ", ") + text::onOneLine(byDistance[i].second);
  }
  return line;
}

}  // namespace vemra::testing
