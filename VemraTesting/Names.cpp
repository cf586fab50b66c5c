#include "VemraTesting/Names.hpp"

#include <array>
#include <cstddef>

namespace vemra::testing {

using namespace vemra::ui;

namespace {

template <class Value, std::size_t count>
std::string_view nameIn(const std::array<std::string_view, count>& names, Value value) {
  return names.at(static_cast<std::size_t>(value));
}

}  // namespace

// Each list of names is in the order of its enumeration.

std::string_view name(TextStyle style) {
  return nameIn<TextStyle, 6>({"title2", "headline", "body", "subheadline", "caption", "caption2"},
                              style);
}

std::string_view name(FontWeight weight) {
  return nameIn<FontWeight, 4>({"regular", "medium", "semibold", "bold"}, weight);
}

std::string_view name(ForegroundStyle style) {
  return nameIn<ForegroundStyle, 3>({"primary", "secondary", "tertiary"}, style);
}

std::string_view name(Edges edges) {
  return nameIn<Edges, 3>({"all", "horizontal", "vertical"}, edges);
}

std::string_view name(ButtonStyle style) {
  return nameIn<ButtonStyle, 2>({"automatic", "plain"}, style);
}

std::string_view name(PickerStyle style) {
  return nameIn<PickerStyle, 1>({"menu"}, style);
}

std::string_view name(TextFieldStyle style) {
  return nameIn<TextFieldStyle, 1>({"roundedBorder"}, style);
}

std::string_view name(HorizontalAlignment alignment) {
  return nameIn<HorizontalAlignment, 2>({"leading", "center"}, alignment);
}

std::string_view name(VerticalAlignment alignment) {
  return nameIn<VerticalAlignment, 2>({"top", "center"}, alignment);
}

}  // namespace vemra::testing
