#pragma once

#include "VemraPlatform/ui/Font.hpp"
#include "VemraPlatform/ui/Tag.hpp"

#include <string>
#include <variant>
#include <vector>

namespace vemra::ui {

/// The edges to which a padding applies.
enum class Edges { all, horizontal, vertical };
/// How a button is drawn: with the platform's frame, or as its bare title.
enum class ButtonStyle { automatic, plain };
/// How a picker offers its choices: a button with the present choice opens a menu.
enum class PickerStyle { menu };
/// How a text field is drawn.
enum class TextFieldStyle { roundedBorder };

/// \name Modifiers
/// The changes that can be applied to a view. They are kept in the order of application; of two of
/// the same kind, the one applied first is the inner one and wins. Font, weight, foreground style
/// and disabled also apply to the views inside; the others do not.
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
/// Hides the view's own title visually; assistive technology still reads it.
struct LabelsHiddenModifier {
  friend bool operator==(const LabelsHiddenModifier&, const LabelsHiddenModifier&) = default;
};
/// Inside a disabled view, nothing can be enabled again.
struct DisabledModifier {
  bool disabled;
  friend bool operator==(const DisabledModifier&, const DisabledModifier&) = default;
};
/// Sets the view's identifier for automation, byte for byte: no escaping, no normalisation.
struct AccessibilityIdentifierModifier {
  std::string identifier;
  friend bool operator==(const AccessibilityIdentifierModifier&,
                         const AccessibilityIdentifierModifier&) = default;
};
/// The value that a picker's row represents.
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
