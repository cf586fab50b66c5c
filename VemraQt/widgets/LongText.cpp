#include "VemraQt/widgets/LongText.hpp"

#include "VemraQt/widgets/TextCuts.hpp"

#include <algorithm>
#include <cmath>
#include <ranges>
#include <utility>

namespace vemra::qt {

LongText::LongText(QString text, const QFont& font, int width)
    : text_(std::move(text)),
      breaking_{font, std::max(1, width), hasEndlessWord(text_), text_.isRightToLeft()} {
  addKnown(partFrom(0, 0, text_.size()));
  lineHeight_ = known_.front().lines->top(1);
}

/// The lines that certainly end before `limit`, where a line begins in any case.
LongText::Part LongText::partFrom(qsizetype start, int top, qsizetype limit) const {
  Part part;
  part.start = start;
  part.top = top;
  part.limit = limit;
  for (qsizetype units = unitsAtOnce;; units *= 2) {
    const Stretch stretch = stretchFrom(QStringView(text_).left(limit), start, units);
    part.lines = std::make_shared<TextLines>(text_, start, stretch.end, breaking_);
    const int count = part.lines->count();
    if (!stretch.endsLine && count < 2) continue;  // a very wide page
    // Behind a line break, a layout makes a line for the text that follows.
    const bool emptyLast = stretch.end < text_.size() && endsWithLineBreak(text_, stretch.end);
    const int whole = stretch.endsLine && !emptyLast ? count : count - 1;
    part.end = stretch.endsLine ? stretch.end : part.lines->start(whole);
    part.height = part.lines->top(whole);
    for (int i = 0; i < whole; ++i) {
      const int wide = static_cast<int>(std::ceil(part.lines->line(i).naturalTextWidth()));
      part.widest = std::max(part.widest, wide);
    }
    return part;
  }
}

TextLines& LongText::keepLines(Part& part) const {
  if (!part.lines) part.lines = partFrom(part.start, part.top, part.limit).lines;
  return *part.lines;
}

/// The lines of a part, valid until the next call.
TextLines& LongText::linesOf(const Part& part) {
  if (part.lines) return *part.lines;
  if (!asked_.lines || asked_.start != part.start || asked_.end != part.end) asked_ = part;
  return keepLines(asked_);
}

void LongText::addKnown(Part part) {
  widest_ = std::max(widest_, part.widest);
  known_.push_back(std::move(part));
}

QSize LongText::size() const {
  const int above = provisional_.empty() ? knownBottom() : provisional_.back().bottom();
  const qsizetype end = provisional_.empty() ? knownEnd() : provisional_.back().end;
  return {widest_, above + estimated(text_.size() - end)};
}

double LongText::heightOfAUnit() const {
  return static_cast<double>(knownBottom()) / static_cast<double>(knownEnd());
}

int LongText::estimated(qsizetype units) const {
  // Coordinates on a page have 32 bits.
  constexpr double farthest = 1 << 29;
  return static_cast<int>(std::min(farthest, static_cast<double>(units) * heightOfAUnit()));
}

void LongText::extendKnown() {
  addKnown(partFrom(knownEnd(), knownBottom(), text_.size()));
  dropReached();
  moveProvisional();
}

/// Drops the provisional parts that the known ones have reached.
void LongText::dropReached() {
  const auto reached = [&](const Part& part) { return part.start < knownEnd(); };
  provisional_.erase(provisional_.begin(), std::ranges::find_if_not(provisional_, reached));
}

/// Puts the provisional parts below the estimated height of the text before them.
void LongText::moveProvisional() {
  if (provisional_.empty()) return;
  int top = knownBottom() + estimated(provisional_.front().start - knownEnd());
  for (Part& part : provisional_) {
    part.top = top;
    top = part.bottom();
  }
}

bool LongText::settle(QDeadlineTimer deadline) {
  for (bool isFirst = true;; isFirst = false) {
    const Part& last = found_.empty() ? known_.back() : found_.back();
    if (last.end == text_.size()) return true;
    if (!isFirst && deadline.hasExpired()) return false;
    Part next = partFrom(last.end, last.bottom(), text_.size());
    next.lines.reset();
    found_.push_back(std::move(next));
  }
}

bool LongText::adopt() {
  if (found_.empty()) return false;
  for (Part& part : std::exchange(found_, {})) addKnown(std::move(part));
  dropReached();
  moveProvisional();
  return true;
}

bool LongText::layOut(int top, int bottom) {
  bool changed = adopt();
  bottom = std::min(bottom, size().height());
  top = std::max(0, std::min(top, bottom - 1));
  const int near = 2 * (bottom - top);
  // Provisional lines move the place of the text at `top`, and the client has to follow them before
  // others can begin there.
  bool moved = false;
  while (bottom > knownBottom() && !isSettled()) {
    const bool reaches = !provisional_.empty() && bottom > provisional_.front().top - near &&
                         top < provisional_.back().bottom() + near;
    const int gapEnd = reaches ? provisional_.front().top : size().height();
    if (top < knownBottom() + near && (top < gapEnd || !reaches)) {
      extendKnown();
    } else if (!reaches) {
      if (std::exchange(moved, true)) break;
      beginProvisional(offsetAt(top));
    } else if (top < provisional_.front().top) {
      moved = true;
      prependProvisional();
    } else if (bottom > provisional_.back().bottom() && provisional_.back().end < text_.size()) {
      appendProvisional();
    } else {
      break;
    }
    changed = true;
  }
  keepLinesNear(top, bottom);
  return changed;
}

/// Begins anew with the lines at that offset.
void LongText::beginProvisional(qsizetype offset) {
  const qsizetype start = std::max(knownEnd(), lineStartBefore(text_, offset));
  provisional_.clear();
  provisional_.push_back(
      partFrom(start, knownBottom() + estimated(start - knownEnd()), text_.size()));
  widest_ = std::max(widest_, provisional_.back().widest);
}

void LongText::appendProvisional() {
  const Part& last = provisional_.back();
  Part next = partFrom(last.end, last.bottom(), text_.size());
  widest_ = std::max(widest_, next.widest);
  provisional_.push_back(std::move(next));
}

/// Adds the part that ends where the first provisional one begins.
void LongText::prependProvisional() {
  const qsizetype end = provisional_.front().start;
  const qsizetype start =
      std::max(knownEnd(), lineStartBefore(text_, std::max(knownEnd(), end - unitsAtOnce)));
  std::vector<Part> added;
  for (qsizetype from = start; from < end; from = added.back().end) {
    added.push_back(partFrom(from, 0, end));
    widest_ = std::max(widest_, added.back().widest);
  }
  provisional_.insert(provisional_.begin(), added.begin(), added.end());
  moveProvisional();
}

/// Glyphs take far more memory than the text.
void LongText::keepLinesNear(int top, int bottom) {
  for (std::vector<Part>* const parts : {&known_, &provisional_}) {
    for (Part& part : *parts) {
      if (part.bottom() < top || part.top > bottom) {
        part.lines.reset();
      } else {
        keepLines(part);
      }
    }
  }
}

LongText::Part* LongText::partWith(qsizetype offset) {
  const auto in = [&](std::vector<Part>& parts) -> Part* {
    const auto after = std::ranges::upper_bound(parts, offset, {}, &Part::start);
    if (after == parts.begin() || offset >= std::prev(after)->end) return nullptr;
    return &*std::prev(after);
  };
  if (offset >= text_.size() && isSettled()) return &known_.back();
  Part* const part = in(known_);
  return part ? part : in(provisional_);
}

LongText::Part* LongText::partAt(int y) {
  const auto in = [&](std::vector<Part>& parts) -> Part* {
    const auto after = std::ranges::upper_bound(parts, y, {}, &Part::top);
    if (after == parts.begin() || y >= std::prev(after)->bottom()) return nullptr;
    return &*std::prev(after);
  };
  Part* const part = in(known_);
  return part ? part : in(provisional_);
}

qsizetype LongText::offsetAt(int y) {
  if (Part* const part = partAt(std::max(0, y))) {
    const TextLines& lines = linesOf(*part);
    const auto all = std::views::iota(0, lines.count());
    const auto below = [&](int i) { return part->top + lines.top(i) <= y; };
    const auto after = std::ranges::partition_point(all, below) - all.begin();
    return lines.start(std::max<int>(0, static_cast<int>(after) - 1));
  }
  const bool isBehind = !provisional_.empty() && y >= provisional_.back().bottom();
  const int top = isBehind ? provisional_.back().bottom() : knownBottom();
  const qsizetype start = isBehind ? provisional_.back().end : knownEnd();
  const auto units = static_cast<qsizetype>(std::max(0, y - top) / heightOfAUnit());
  return std::min(start + units, text_.size() - 1);
}

qsizetype LongText::offsetAt(int y, qreal x) {
  const qsizetype start = offsetAt(y);
  Part* const laidOut = partWith(start);
  const TextLines& lines = linesOf(laidOut ? *laidOut : guessedPart(start));
  return lines.offsetAt(lines.lineWith(start), x);
}

int LongText::topOf(qsizetype offset) {
  if (Part* const part = partWith(offset)) {
    const TextLines& lines = linesOf(*part);
    return part->top + lines.top(lines.lineWith(offset));
  }
  const bool isBehind = !provisional_.empty() && offset >= provisional_.back().end;
  const int top = isBehind ? provisional_.back().bottom() : knownBottom();
  return top + estimated(offset - (isBehind ? provisional_.back().end : knownEnd()));
}

std::vector<LongText::PlacedLine> LongText::linesBetween(int top, int bottom) {
  std::vector<PlacedLine> found;
  for (std::vector<Part>* parts : {&known_, &provisional_}) {
    auto part = std::ranges::lower_bound(*parts, top, {}, &Part::bottom);
    for (; part != parts->end() && part->top <= bottom; ++part) {
      const TextLines& lines = keepLines(*part);
      for (int i = 0; i < lines.count() && lines.top(i) < part->height; ++i) {
        const QTextLine line = lines.line(i);
        const int y = part->top + lines.top(i);
        if (y >= top && y <= bottom) found.push_back({line, part->top});
      }
    }
  }
  return found;
}

/// The part with an offset whose lines are not laid out; at the place of the estimate.
LongText::Part& LongText::guessedPart(qsizetype offset) {
  if (!asked_.lines || offset < asked_.start || offset >= asked_.end) {
    const qsizetype start = std::max(knownEnd(), lineStartBefore(text_, offset));
    asked_ = partFrom(start, 0, text_.size());
  }
  asked_.top = topOf(asked_.start);
  return asked_;
}

LongText::PlacedCharacter LongText::character(qsizetype offset) {
  Part* const laidOut = partWith(offset);
  Part& part = laidOut ? *laidOut : guessedPart(offset);
  const TextLines& lines = linesOf(part);
  return {{lines.line(lines.lineWith(offset)), part.top}, lines.edges(offset)};
}

}  // namespace vemra::qt
