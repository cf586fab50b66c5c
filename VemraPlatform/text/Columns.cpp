#include "VemraPlatform/text/Columns.hpp"

#include "VemraPlatform/text/OneLine.hpp"
#include "VemraPlatform/text/UTF8.hpp"

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <utility>

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

namespace vemra::text {

namespace {

using Breaks = std::unique_ptr<icu::BreakIterator>;

Breaks checked(icu::BreakIterator* made, UErrorCode status) {
  Breaks breaks(made);
  if (U_FAILURE(status) || !breaks) throw std::runtime_error("ICU cannot break texts");
  return breaks;
}

/// Calls `visit` with each piece between two breaks.
template <class Visit>
void forEachPiece(icu::BreakIterator& breaks, std::string_view text, const Visit& visit) {
  UErrorCode status = U_ZERO_ERROR;
  UText* const opened =
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status);
  const std::unique_ptr<UText, decltype(&utext_close)> close(opened, &utext_close);
  breaks.setText(opened, status);
  if (U_FAILURE(status)) throw std::runtime_error("ICU cannot read a text");
  std::int32_t start = breaks.first();
  for (std::int32_t end = breaks.next(); end != icu::BreakIterator::DONE; end = breaks.next()) {
    visit(text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
    start = end;
  }
}

constexpr char32_t joiner = 0x200D, emojiVariation = 0xFE0F;

int columnsOf(char32_t scalar) {
  const auto point = static_cast<UChar32>(scalar);
  if (scalar >= 0x1160 && scalar <= 0x11FF) return 0;  // the later parts of a Hangul syllable
  switch (u_charType(point)) {
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
    case U_FORMAT_CHAR:
    case U_CONTROL_CHAR:
      return 0;
    default:
      break;
  }
  const int width = u_getIntPropertyValue(point, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

int columnsOfCluster(std::string_view cluster) {
  int columns = 0;
  int regions = 0;
  bool isPicture = false, isJoined = false, isEmoji = false;
  while (!cluster.empty()) {
    const auto [scalar, length] = firstStep(cluster);
    cluster.remove_prefix(length);
    const auto point = static_cast<UChar32>(scalar.value_or(0xFFFD));
    columns += columnsOf(scalar.value_or(0xFFFD));
    isPicture = isPicture || u_hasBinaryProperty(point, UCHAR_EXTENDED_PICTOGRAPHIC);
    isJoined = isJoined || scalar == joiner || u_hasBinaryProperty(point, UCHAR_EMOJI_MODIFIER);
    isEmoji = isEmoji || scalar == emojiVariation;
    regions += u_hasBinaryProperty(point, UCHAR_REGIONAL_INDICATOR) ? 1 : 0;
  }
  return isEmoji || (isPicture && isJoined) || regions == 2 ? 2 : columns;
}

constexpr std::string_view narrowBlank = " ", wideBlank = "\u3000";

bool isBlank(std::string_view bytes) {
  return bytes == narrowBlank || bytes == wideBlank;
}

/// Fills lines piece by piece.
class Filling {
 public:
  explicit Filling(int most) : most_(most) {}

  void add(std::string_view piece) {
    const std::vector<Glyph> all = glyphs(piece);
    std::size_t visible = all.size();
    while (visible > 0 && isBlank(all[visible - 1].bytes)) --visible;
    int needed = 0;
    for (std::size_t i = 0; i < visible; ++i) needed += all[i].columns;
    if (used_ > 0 && used_ + needed > most_) endLine();
    for (std::size_t i = 0; i < all.size(); ++i) {
      if (used_ > 0 && used_ + all[i].columns > most_) {
        if (i >= visible) break;  // blanks at the end of a line
        endLine();
      }
      line_ += all[i].bytes;
      used_ += all[i].columns;
    }
  }

  void endLine() {
    while (line_.ends_with(narrowBlank) || line_.ends_with(wideBlank)) {
      line_.resize(line_.size() - (line_.ends_with(wideBlank) ? wideBlank : narrowBlank).size());
    }
    lines_.push_back(std::exchange(line_, {}));
    used_ = 0;
  }

  std::vector<std::string> take() { return std::move(lines_); }

 private:
  int most_;
  int used_ = 0;
  std::string line_;
  std::vector<std::string> lines_;
};

/// The text with U+FFFD in place of each ill-formed byte.
std::string wellFormed(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const auto [scalar, length] = firstStep(text);
    out += scalar ? text.substr(0, length) : std::string_view("\uFFFD");
    text.remove_prefix(length);
  }
  return out;
}

/// Removes the first line, with its line break, from `text` and returns it without the line break.
std::string_view takeLine(std::string_view& text) {
  const std::size_t end = text.find_first_of("\r\n");
  const std::string_view line = text.substr(0, end);
  if (end == std::string_view::npos) {
    text = {};
  } else {
    text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
  }
  return line;
}

}  // namespace

std::vector<Glyph> glyphs(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  auto* const made = icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status);
  const Breaks breaks = checked(made, status);
  std::vector<Glyph> all;
  forEachPiece(*breaks, text, [&](std::string_view bytes) {
    all.push_back({bytes, columnsOfCluster(bytes)});
  });
  return all;
}

int columns(std::string_view text) {
  int sum = 0;
  for (const Glyph& glyph : glyphs(text)) sum += glyph.columns;
  return sum;
}

std::vector<std::string> linesOf(std::string_view text, int most) {
  UErrorCode status = U_ZERO_ERROR;
  auto* const made = icu::BreakIterator::createLineInstance(icu::Locale::getRoot(), status);
  const Breaks breaks = checked(made, status);
  Filling filling(most);
  do {
    const std::string line = onOneLine(wellFormed(takeLine(text)));
    forEachPiece(*breaks, line, [&](std::string_view piece) { filling.add(piece); });
    filling.endLine();
  } while (!text.empty());
  return filling.take();
}

}  // namespace vemra::text
