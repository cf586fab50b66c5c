#include "VemraTesting/LeafText.hpp"

#include "VemraPlatform/page/Choices.hpp"
#include "VemraPlatform/text/Columns.hpp"
#include "VemraPlatform/text/OneLine.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

namespace vemra::testing {

namespace {

using ui::ElementKind;
using Lines = std::vector<std::string>;

// The greatest width of a field, title included.
constexpr int widestField = 48;

std::string repeated(char c, int times) {
  return std::string(static_cast<std::size_t>(std::max(times, 0)), c);
}

std::string padded(std::string text, int columns, char with = ' ') {
  const int missing = columns - text::columns(text);
  return std::move(text) + repeated(with, missing);
}

/// The characters before and after a control.
std::pair<char, char> frameOf(const page::Node& leaf, bool hasFocus) {
  if (hasFocus) return {'>', '<'};
  if (!leaf.element.style().enabled) return {'(', ')'};
  const bool isPlain = leaf.element.kind() == ElementKind::button &&
                       leaf.element.buttonStyle() == ui::ButtonStyle::plain;
  return isPlain ? std::pair('<', '>') : std::pair('[', ']');
}

Lines framed(Lines lines, std::pair<char, char> frame) {
  for (std::string& line : lines) line.insert(0, 1, ' ');
  lines.front().front() = frame.first;
  lines.back() += frame.second;
  return lines;
}

/// The title before the content of a control; empty when the control has none, or when it would
/// take more than half the columns.
std::string titleOf(const page::Node& leaf, int columns) {
  if (leaf.element.shownLabel().empty()) return "";
  std::string title = text::onOneLine(leaf.element.shownLabel()) + ": ";
  return text::columns(title) > columns / 2 ? "" : title;
}

std::string pickerText(const page::Node& leaf, int room) {
  const std::vector<page::Choice> choices = page::choicesOf(leaf);
  int widest = 0;
  for (const page::Choice& choice : choices) {
    widest = std::max(widest, text::columns(text::onOneLine(choice.label)));
  }
  const std::string title = leaf.element.labelsHidden() ? "" : titleOf(leaf, room);
  const int left = std::max(1, room - 2 - text::columns(title));
  const auto chosen = page::chosenAmong(choices, leaf.element);
  std::string shown = chosen ? text::linesOf(choices[*chosen].label, left).front() : "";
  return title + padded(std::move(shown), std::min(widest, left)) + " v";
}

/// The end of a text, where the cursor is, in at most `columns` columns.
std::string endOf(const std::string& text, int columns) {
  const std::vector<text::Glyph> glyphs = text::glyphs(text);
  std::string end;
  int used = 0;
  for (auto glyph = glyphs.rbegin(); glyph != glyphs.rend(); ++glyph) {
    if (used + glyph->columns > columns) break;
    used += glyph->columns;
    end.insert(0, glyph->bytes);
  }
  return end;
}

std::string fieldText(const page::Node& leaf, int room) {
  const int columns = std::min(room, widestField);
  const std::string title = titleOf(leaf, columns);
  const int left = std::max(1, columns - text::columns(title));
  return title + padded(endOf(text::onOneLine(leaf.element.text()), left - 1), left, '_');
}

}  // namespace

Lines linesOfLeaf(const page::Node& leaf, int most, bool hasFocus) {
  const int room = std::max(1, most - 2);
  const auto frame = frameOf(leaf, hasFocus);
  switch (leaf.element.kind()) {
    case ElementKind::button:
      return framed(text::linesOf(leaf.element.shownLabel(), room), frame);
    case ElementKind::picker:
      return framed({pickerText(leaf, std::max(3, room))}, frame);
    case ElementKind::textField:
      return framed({fieldText(leaf, room)}, frame);
    default:
      return text::linesOf(leaf.element.shownLabel(), most);
  }
}

}  // namespace vemra::testing
