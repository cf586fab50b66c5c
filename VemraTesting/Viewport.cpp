#include "VemraTesting/Viewport.hpp"

#include "VemraPlatform/page/Choices.hpp"
#include "VemraPlatform/text/Columns.hpp"
#include "VemraPlatform/text/OneLine.hpp"
#include "VemraTesting/LeafText.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace vemra::testing {

namespace {

/// A rectangle of cells. The second cell of a wide character contains "".
class Cells {
 public:
  explicit Cells(page::Size size)
      : size_(size),
        cells_(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height), " ") {}

  /// Writes into a line from a column on; omits what does not fit.
  void write(int line, int column, std::string_view text) {
    if (line < 0 || line >= size_.height) return;
    for (const text::Glyph& glyph : text::glyphs(text)) {
      if (glyph.columns == 0) {  // a mark goes into the previous cell, if there is one
        if (column > 0 && column <= size_.width) at(line, column - 1) += glyph.bytes;
        continue;
      }
      if (column + glyph.columns > size_.width) return;
      at(line, column) = glyph.bytes;
      for (int i = 1; i < glyph.columns; ++i) at(line, column + i).clear();
      column += glyph.columns;
    }
  }

  std::string text() {
    std::string all;
    for (int line = 0; line < size_.height; ++line) {
      for (int column = 0; column < size_.width; ++column) all += at(line, column);
      while (all.ends_with(' ')) all.pop_back();
      all += '\n';
    }
    return all;
  }

 private:
  std::string& at(int line, int column) {
    return cells_[static_cast<std::size_t>(line) * static_cast<std::size_t>(size_.width) +
                  static_cast<std::size_t>(column)];
  }

  page::Size size_;
  std::vector<std::string> cells_;
};

page::Size atLeastOneCell(page::Size size) {
  return {std::max(1, size.width), std::max(1, size.height)};
}

// In lines of the terminal.
constexpr page::Margins margins{.ask = 6, .keep = 18, .air = 1};

}  // namespace

/// Does `work`, which changes the tree, and then rethrows the first error.
template <class Work>
void Viewport::call(const Work& work) {
  try {
    work();
  } catch (...) {
    failed(std::current_exception());
  }
  page_.settleIfNeeded();
  rethrow();
}

Viewport::Viewport(ui::View root, page::Size size, ui::Environment environment)
    : size_(atLeastOneCell(size)),
      ownGraph_(std::make_unique<ui::ViewGraph>(std::move(environment))),
      graph_(*ownGraph_),
      page_(graph_, *this, margins) {
  graph_.attach(page_);
  show(std::move(root));
}

Viewport::Viewport(ui::ViewGraph& graph, page::Size size)
    : size_(atLeastOneCell(size)), graph_(graph), page_(graph_, *this, margins) {
  call([&] { graph_.attach(page_); });
}

Viewport::~Viewport() = default;

void Viewport::show(ui::View root) {
  call([&] { graph_.setRoot(std::move(root)); });
}

void Viewport::setEnvironment(ui::Environment environment) {
  call([&] { graph_.setEnvironment(std::move(environment)); });
}

void Viewport::resize(page::Size size) {
  size_ = atLeastOneCell(size);
  page_.resized();
  rethrow();
}

std::string Viewport::text() const {
  Cells cells(size_);
  const bool rightToLeft = page_.environment().layoutDirection == ui::LayoutDirection::rightToLeft;
  for (const auto& [id, frame] : drawn_) {
    const page::Node* const leaf = page_.tree().find(id);
    if (!leaf) continue;
    int line = frame.y - position_;
    const ui::Insets padding = page::paddingIn(grid(), *leaf);
    const int room = leaf->measuredWidth - padding.leading - padding.trailing;
    for (const std::string& text : linesOfLeaf(*leaf, room, id == focus_)) {
      const int slack = rightToLeft ? frame.width - text::columns(text) : 0;
      cells.write(line++, frame.x + std::max(0, slack), text);
    }
  }
  return cells.text();
}

void Viewport::wheel(int lines) {
  scrollToLine(position_ + lines);
}

void Viewport::scrollToLine(int line) {
  scrollTo(line);
  rethrow();
}

bool Viewport::moveFocus(page::Page::Direction direction) {
  const bool moved = focus_ ? page_.focusNext(direction) : page_.focusFirst(direction);
  rethrow();
  return moved;
}

const ui::Element* Viewport::focusedElement() const {
  const page::Node* const node = page_.tree().find(focus_);
  return node ? &node->element : nullptr;
}

void Viewport::press() {
  deliver(focusedControl(ui::ElementKind::button, "button").id, ui::Press{});
}

void Viewport::choose(std::string_view label) {
  const page::Node& picker = focusedControl(ui::ElementKind::picker, "picker");
  const std::vector<page::Choice> choices = page::choicesOf(picker);
  const auto choice = std::ranges::find(choices, label, &page::Choice::label);
  if (choice == choices.end()) {
    std::string labels;
    for (const page::Choice& each : choices) {
      labels += (labels.empty() ? "" : ", ") + text::quotedOnOneLine(each.label);
    }
    throw ElementError("no choice " + text::quotedOnOneLine(label) + ": there are " +
                           (labels.empty() ? "none" : labels),
                       "\n" + text());
  }
  deliver(picker.id, ui::Select{choice->tag});
}

void Viewport::type(std::string_view text) {
  const page::Node& field = focusedControl(ui::ElementKind::textField, "text field");
  deliver(field.id, ui::EditText{field.element.text() + std::string(text)});
}

void Viewport::clear() {
  deliver(focusedControl(ui::ElementKind::textField, "text field").id, ui::EditText{});
}

void Viewport::submit() {
  deliver(focusedControl(ui::ElementKind::textField, "text field").id, ui::Submit{});
}

const page::Node& Viewport::focusedControl(ui::ElementKind kind, std::string_view name) {
  page_.scrollIn(focus_);
  rethrow();
  const page::Node* const node = page_.tree().find(focus_);
  if (!node || node->element.kind() != kind) {
    throw ElementError("the focus is not on a " + std::string(name), "\n" + text());
  }
  return *node;
}

void Viewport::click(const Query& query) {
  std::size_t toSkip = query.index;
  const page::Viewport seen = page_.viewport();
  std::vector<std::pair<page::Rect, ui::NodeID>> inOrder;
  inOrder.reserve(drawn_.size());
  for (const auto& [id, frame] : drawn_) inOrder.emplace_back(frame, id);
  std::ranges::sort(inOrder, {},
                    [](const auto& each) { return std::pair(each.first.y, each.first.x); });
  for (const auto& [frame, id] : inOrder) {
    const page::Node* const leaf = page_.tree().find(id);
    if (!leaf || !seen.shows(frame) || !query.matches(leaf->element) || toSkip-- > 0) continue;
    if (!leaf->element.style().enabled) {
      throw ElementError(query.description() + " is disabled", "\n" + text());
    }
    page_.focus(id, page::FocusReason::other);
    deliver(id, ui::Press{});
    return;
  }
  throw ElementError("no " + query.description() + " in view", "\n" + text());
}

void Viewport::deliver(ui::NodeID node, ui::Event event) {
  page_.deliver(node, std::move(event));
  rethrow();
}

void Viewport::rethrow() {
  if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
}

page::Size Viewport::measure(const page::Node& leaf, int width) {
  page::Size size;
  for (const std::string& line : linesOfLeaf(leaf, width, false)) {
    size.width = std::max(size.width, text::columns(line));
    ++size.height;
  }
  return size;
}

void Viewport::showScrollRange(int maximum, int position) {
  maximum_ = maximum;
  position_ = position;
}

void Viewport::scrollTo(int position) {
  const int possible = std::clamp(position, 0, maximum_);
  if (possible == position_) return;
  position_ = possible;
  page_.scrolled(possible);
}

void Viewport::place(const page::Placements& placements) {
  for (const page::Node* leaf : placements.released) drawn_.erase(leaf->id);
  for (const page::Placement& each : placements.placed) drawn_[each.leaf->id] = each.frame;
}

void Viewport::removing(page::Node& node) {
  page::forEachLeaf(node, [&](const page::Node& leaf) { drawn_.erase(leaf.id); });
}

void Viewport::giveFocus(const page::Node& control, page::FocusReason) {
  focus_ = control.id;
}

void Viewport::failed(std::exception_ptr error) {
  if (!error_) error_ = std::move(error);
}

}  // namespace vemra::testing
