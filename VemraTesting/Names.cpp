#include "VemraTesting/Names.hpp"

namespace vemra::testing {

using namespace vemra::ui;

std::string_view name(TextStyle style) {
  switch (style) {
    case TextStyle::title2:
      return "title2";
    case TextStyle::headline:
      return "headline";
    case TextStyle::body:
      return "body";
    case TextStyle::subheadline:
      return "subheadline";
    case TextStyle::caption:
      return "caption";
    case TextStyle::caption2:
      return "caption2";
  }
  return "";
}

std::string_view name(FontWeight weight) {
  switch (weight) {
    case FontWeight::regular:
      return "regular";
    case FontWeight::medium:
      return "medium";
    case FontWeight::semibold:
      return "semibold";
    case FontWeight::bold:
      return "bold";
  }
  return "";
}

std::string_view name(ForegroundStyle style) {
  switch (style) {
    case ForegroundStyle::primary:
      return "primary";
    case ForegroundStyle::secondary:
      return "secondary";
    case ForegroundStyle::tertiary:
      return "tertiary";
  }
  return "";
}

std::string_view name(Edges edges) {
  switch (edges) {
    case Edges::all:
      return "all";
    case Edges::horizontal:
      return "horizontal";
    case Edges::vertical:
      return "vertical";
  }
  return "";
}

std::string_view name(ButtonStyle style) {
  return style == ButtonStyle::plain ? "plain" : "automatic";
}

std::string_view name(PickerStyle) {
  return "menu";
}

std::string_view name(TextFieldStyle) {
  return "roundedBorder";
}

std::string_view name(HorizontalAlignment alignment) {
  return alignment == HorizontalAlignment::leading ? "leading" : "center";
}

std::string_view name(VerticalAlignment alignment) {
  return alignment == VerticalAlignment::top ? "top" : "center";
}

}  // namespace vemra::testing
