#pragma once

#include "VemraPlatform/ui/Font.hpp"
#include "VemraPlatform/ui/Tag.hpp"

#include <string>
#include <variant>
#include <vector>

namespace vemra::ui {

enum class Edges { all, horizontal, vertical };
enum class ButtonStyle { automatic, plain };
enum class PickerStyle { menu };
enum class TextFieldStyle { roundedBorder };

/// \name Modifiers
/// What can be said of a view beside what it is. The order in which they were applied is kept:
/// where two of a kind meet, the one applied first is the inner one and wins.
/// Font, foreground style and disabled reach down to what a view holds; the others do not.
/// @{
struct FontModifier {
  Font font;
  friend bool operator==(const FontModifier&, const FontModifier&) = default;
};
struct FontWeightModifier {
  FontWeight weight;
  friend bool operator==(const FontWeightModifier&, const FontWeightModifier&) = default;
};
struct ForegroundStyleModifier {
  ForegroundStyle style;
  friend bool operator==(const ForegroundStyleModifier&, const ForegroundStyleModifier&) = default;
};
struct PaddingModifier {
  Edges edges;
  int length;  ///< in points
  friend bool operator==(const PaddingModifier&, const PaddingModifier&) = default;
};
struct ButtonStyleModifier {
  ButtonStyle style;
  friend bool operator==(const ButtonStyleModifier&, const ButtonStyleModifier&) = default;
};
struct PickerStyleModifier {
  PickerStyle style;
  friend bool operator==(const PickerStyleModifier&, const PickerStyleModifier&) = default;
};
struct TextFieldStyleModifier {
  TextFieldStyle style;
  friend bool operator==(const TextFieldStyleModifier&, const TextFieldStyleModifier&) = default;
};
/// Hides the view's own title from the eye; assistive technology still has it.
struct LabelsHiddenModifier {
  friend bool operator==(const LabelsHiddenModifier&, const LabelsHiddenModifier&) = default;
};
/// Inside a disabled view nothing can be enabled again.
struct DisabledModifier {
  bool disabled;
  friend bool operator==(const DisabledModifier&, const DisabledModifier&) = default;
};
/// Names the view for automation. Byte for byte: no escaping, no normalisation.
struct AccessibilityIdentifierModifier {
  std::string identifier;
  friend bool operator==(const AccessibilityIdentifierModifier&,
                         const AccessibilityIdentifierModifier&) = default;
};
/// The value that a picker's row stands for.
struct TagModifier {
  Tag tag;
  friend bool operator==(const TagModifier&, const TagModifier&) = default;
};
/// @}

using Modifier = std::variant<FontModifier, FontWeightModifier, ForegroundStyleModifier,
                              PaddingModifier, ButtonStyleModifier, PickerStyleModifier,
                              TextFieldStyleModifier, LabelsHiddenModifier, DisabledModifier,
                              AccessibilityIdentifierModifier, TagModifier>;

}  // namespace vemra::ui
