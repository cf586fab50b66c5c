// Texts that are too long to be laid out at once.

#include "VemraQt/page/Page.hpp"
#include "VemraQt/widgets/LongText.hpp"

#include <algorithm>
#include <chrono>

namespace vemra::qt {

namespace {

using namespace std::chrono_literals;

/// How long the page lays out texts before it handles events again.
constexpr auto slice = 4ms;
/// How often the page takes over the heights of lines out of view.
constexpr auto growth = 100ms;

}  // namespace

page::Size Page::measure(const page::Node& leaf, int width) {
  const bool wasLong = shown(leaf).shape.parts();
  const page::Size size = metrics_.measure(leaf, width);
  const bool isLong = shown(leaf).shape.parts();
  if (wasLong && !isLong) std::erase(longTexts_, leaf.id);
  if (isLong && !wasLong) longTexts_.push_back(leaf.id);
  return size;
}

std::optional<std::size_t> Page::partAt(const page::Node& leaf, int y) const {
  LongText* const text = shown(leaf).shape.parts();
  if (!text) return std::nullopt;
  return static_cast<std::size_t>(text->offsetAt(y));
}

std::optional<int> Page::topOfPart(const page::Node& leaf, std::size_t part) const {
  LongText* const text = shown(leaf).shape.parts();
  if (!text) return std::nullopt;
  return text->topOf(static_cast<qsizetype>(part));
}

void Page::arranged() {
  const page::Viewport viewport = page_.viewport();
  const QRect visible(0, viewport.position, viewport.width, viewport.height);
  for (const ui::NodeID id : std::vector(longTexts_)) {
    const page::Node* const leaf = tree().find(id);
    if (!leaf || leaf->measuredWidth < 0) continue;
    const QRect frame = frameOnPage(*leaf);
    const TextShape& shape = shown(*leaf).shape;
    if (!shape.parts()->isSettled() && !idle_.isActive()) idle_.start();
    if (!viewport.shows(page_.frames().of(*leaf), viewport.height)) continue;
    if (shape.layOut(frame, visible)) page_.remeasure(id);
  }
}

/// Lays out texts away from the view until a slice of time is over, and goes on in the next turn of
/// the event loop. A hidden page goes on when it is shown.
void Page::settleTexts() {
  if (!isShown()) return;
  const QDeadlineTimer deadline(slice);
  const bool grows = !sinceTextsGrew_.isValid() || sinceTextsGrew_.hasExpired(growth.count());
  for (const ui::NodeID id : std::vector(longTexts_)) {
    const page::Node* const leaf = tree().find(id);
    LongText* const text = leaf ? shown(*leaf).shape.parts() : nullptr;
    if (!text || text->isSettled()) continue;
    if (deadline.hasExpired()) {
      idle_.start();
      break;
    }
    const bool all = text->settle(deadline);
    if (!all) idle_.start();
    if (!all && !grows) continue;
    sinceTextsGrew_.start();
    page_.remeasure(id);
  }
}

}  // namespace vemra::qt
