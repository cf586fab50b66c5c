#include "VemraPlatform/page/Page.hpp"

#include <algorithm>
#include <utility>

namespace vemra::page {

namespace {

// More rounds than any page needs, whatever the heights of its rows.
constexpr int mostRounds = 12;

/// Sets a variable until the end of the scope.
template <class Value>
class During {
 public:
  During(Value& variable, Value value)
      : variable_(variable), before_(std::exchange(variable, value)) {}
  ~During() { variable_ = before_; }
  During(const During&) = delete;
  During& operator=(const During&) = delete;

 private:
  Value& variable_;
  Value before_;
};

}  // namespace

Page::Page(ui::ViewGraph& graph, PageHost& host, Margins margins)
    : graph_(graph),
      host_(host),
      margins_(margins),
      tree_([this](Node& node) { removing(node); }) {}

Page::~Page() {
  graph_.detach(*this);
}

Viewport Page::viewport() const {
  const Size size = host_.viewportSize();
  return {size.width, size.height, position_};
}

void Page::apply(const ui::Changes& changes) {
  // Note the anchor before the first patch, which makes all frames wrong.
  if (!pass_ || !pass_->anchor) {
    beginPass(changes.environment ? Anchor::Reason::resized : Anchor::Reason::changed);
  }
  ++version_;
  attempt([&] { tree_.apply(changes); });
  if (changes.environment) takeEnvironment(*changes.environment);
  host_.patched(changes);
  if (filling_) return;
  const During inGraph(inGraph_, true);
  settle();
}

void Page::takeEnvironment(const ui::Environment& environment) {
  environment_ = environment;
  tree_.invalidateAll();
  const During filling(filling_, true);  // the pass that follows uses the host's new sizes
  host_.environmentChanged(environment_);
}

void Page::resized() {
  if (filling_) return;  // the host's scroll bar was shown or hidden: the next round handles it
  if (!pass_ || !pass_->anchor) beginPass(Anchor::Reason::resized);
  settle();
}

void Page::restyled() {
  beginPass(Anchor::Reason::resized);
  tree_.invalidateAll();
  settle();
}

void Page::remeasure(ui::NodeID leaf) {
  Node* const node = tree_.find(leaf);
  if (!node) return;
  remeasured_ = true;
  if (!filling_ && (!pass_ || !pass_->anchor)) {
    beginPassAtRest();
  }
  tree_.invalidate(*node);
  if (!filling_) settle();
}

void Page::scrolled(int position) {
  position_ = position;
  beginPass(position == maximum_ ? Anchor::Reason::scrolledToEnd : Anchor::Reason::scrolled);
  settle();
}

void Page::deliver(ui::NodeID node, ui::Event event) {
  {
    const bool isPress = std::holds_alternative<ui::Press>(event);
    const During pressed(pressed_, isPress ? node : pressed_);
    attempt([&] { graph_.deliver(node, std::move(event)); });
  }
  settleIfNeeded();
}

void Page::settleIfNeeded() {
  if (pass_ && !filling_ && !inGraph_) settle();
}

void Page::beginPass(Anchor::Reason reason) {
  const Node* const control = focused();
  Pass pass;
  pass.focusWasSeen = control && viewport().shows(frames().of(*control));
  pass.anchor.emplace(reason, tree_, frames(), viewport(), control, host_);
  pass_ = std::move(pass);
}

/// Begins a pass in which only sizes change: the elements in view stay in place, and the page's end
/// if the page is there.
void Page::beginPassAtRest() {
  const bool isAtEnd = maximum_ > 0 && position_ == maximum_;
  beginPass(isAtEnd ? Anchor::Reason::scrolledToEnd : Anchor::Reason::resized);
}

void Page::settle() {
  if (!pass_) beginPassAtRest();
  if (!host_.isShown() || filling_) return;
  if (!fill()) return;
  host_.placed();
  restoreFocus();
}

/// Repeats layout and requests until no row is missing; false when rows arrive only with the
/// graph's next pass.
bool Page::fill() {
  const During filling(filling_, true);
  for (int round = 0; round < mostRounds; ++round) {
    const Size size = host_.viewportSize();
    layout();
    takeAnchorPosition();
    if (host_.viewportSize() != size || layOutParts()) continue;
    if (!askForRows()) break;
    if (inGraph_) return false;  // the rows come in the graph's next pass
  }
  pass_.reset();
  place();
  return true;
}

/// Whether leaves with estimated sizes have new ones.
bool Page::layOutParts() {
  remeasured_ = false;
  host_.arranged();
  return remeasured_;
}

void Page::layout() {
  Node* const root = tree_.root();
  if (!root) return;
  if (root->measuredWidth < 0) {
    std::int64_t rows = 0;
    for (const Node* list : tree_.lists()) {
      rows += static_cast<std::int64_t>(list->element.rowCount()) * list->rows->estimate();
    }
    if (rows > viewport().height) host_.expectScrolling();
  }
  measureScope(*root, viewport().width, 0, host_);
}

void Page::takeAnchorPosition() {
  if (pass_ && pass_->anchor)
    position_ = pass_->anchor->position(tree_, frames(), viewport(), host_);
  maximum_ = std::max(0, contentHeight() - viewport().height);
  position_ = std::clamp(position_, 0, maximum_);
  host_.showScrollRange(maximum_, position_);
}

PinnedRows Page::pinnedRows() const {
  PinnedRows pinned;
  pinned.focused = rowOf(focused());
  pinned.next = focusKeeper_.row();
  return pinned;
}

bool Page::askForRows() {
  noteFocus();
  const PinnedRows pinned = pinnedRows();
  // Collect all requests before the first one: new rows may contain lists of their own.
  std::vector<RowRequest> requests = rowRequests(tree_, viewport(), margins_, pinned);
  for (RowRequest& request : requests) {
    attempt([&] { graph_.showRows(request.list, std::move(request.ranges)); });
  }
  return !requests.empty();
}

/// Notes that the focused row is the last one that had the focus.
void Page::noteFocus() {
  if (const Node* const row = rowOf(focused())) tree_.find(row->id)->focusedAt = ++focusCount_;
}

void Page::place() {
  host_.place(placeLeaves(tree_, frames(), viewport(), margins_.keep, pinnedRows(), focused()));
}

const Node* Page::focused() const {
  return tree_.find(host_.focused());
}

bool Page::focusNext(Direction direction) {
  Node* const from = tree_.find(host_.focused());
  return from && moveFocus(FocusOrder(tree_, *this).next(*from, direction), direction);
}

bool Page::focusNextRow(Direction direction) {
  const Node* row = focused();
  if (!row || row->element.kind() != ui::ElementKind::button) return false;
  while (row && !row->isWindowedRow()) row = row->parent;
  const bool forward = direction == Direction::forward;
  if (!row || (!forward && row->rowIndex == 0)) return false;
  const std::size_t next = forward ? row->rowIndex + 1 : row->rowIndex - 1;
  return moveFocus(FocusOrder(tree_, *this).firstOfRows(*row->parent, next, direction), direction);
}

bool Page::focusFirst(Direction direction) {
  Node* const root = tree_.root();
  return root && moveFocus(FocusOrder(tree_, *this).firstIn(*root, direction), direction);
}

bool Page::moveFocus(const Node* control, Direction direction) {
  endSearch(control);
  if (!control) return false;
  focus(*control, direction == Direction::forward ? FocusReason::forward : FocusReason::backward);
  return true;
}

/// Ends a search for a control; scrolls back if the search has found none.
void Page::endSearch(const Node* control) {
  const std::optional<Anchor> before = std::exchange(beforeSearch_, std::nullopt);
  if (!control && before) host_.scrollTo(before->position(tree_, frames(), viewport(), host_));
}

bool Page::focus(ui::NodeID element, FocusReason reason) {
  const Node* const node = tree_.find(element);
  if (!node || !takesFocus(*node)) return false;
  focus(*node, reason);
  return true;
}

void Page::focus(const Node& control, FocusReason reason) {
  const ui::NodeID id = control.id;
  if (!control.isPlaced) reveal(control);
  const Node* still = tree_.find(id);
  if (!still || !still->isPlaced) return;
  host_.giveFocus(*still, reason);
  noteFocus();  // without scrolling, no pass would do this
  still = tree_.find(id);
  if (still) reveal(*still);
}

void Page::focusInPlace(ui::NodeID within, ui::NodeID after) {
  focusKeeper_.moveTo({within, after, std::nullopt});
  restoreFocus();
}

void Page::removing(Node& node) {
  const bool isInView = pass_ && pass_->focusWasSeen;
  focusKeeper_.removing(node, focused(), tree_.find(pressed_),
                        isInView ? FocusKeeper::Sight::inView : FocusKeeper::Sight::outOfView);
  host_.removing(node);
}

/// Gives a lost focus to the next control. Where rows on the way arrive only with the graph's next
/// pass, the search continues after that pass.
void Page::restoreFocus() {
  if (restoringFocus_) return;
  const During restoring(restoringFocus_, true);
  if (focusKeeper_.isSearching()) {
    const Node* const control = focusKeeper_.control();
    if (control) focus(*control, FocusReason::other);
    if (pass_ && focusKeeper_.isUnfinished(focused())) return;
    focusKeeper_.end();
    endSearch(control);
    if (!control) host_.loseFocus();
  }
  host_.atRest();
}

}  // namespace vemra::page
