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

/// Sets the font of texts and titles.
struct FontModifier {
  Font font;  ///< with or without a weight of its own
  friend bool operator==(const FontModifier&, const FontModifier&) = default;
};
/// Sets the weight of texts and titles, whatever their font.
struct FontWeightModifier {
  FontWeight weight;  ///< for fonts without a weight of their own
  friend bool operator==(const FontWeightModifier&, const FontWeightModifier&) = default;
};
/// Sets the level of the text colour.
struct ForegroundStyleModifier {
  ForegroundStyle style;  ///< primary, secondary or tertiary
  friend bool operator==(const ForegroundStyleModifier&, const ForegroundStyleModifier&) = default;
};
/// Adds space around the view.
struct PaddingModifier {
  Edges edges;  ///< the edges that get the space
  int length;   ///< in points
  friend bool operator==(const PaddingModifier&, const PaddingModifier&) = default;
};
/// Sets how a button is drawn.
struct ButtonStyleModifier {
  ButtonStyle style;  ///< with a frame, or as a bare title
  friend bool operator==(const ButtonStyleModifier&, const ButtonStyleModifier&) = default;
};
/// Sets how a picker offers its choices.
struct PickerStyleModifier {
  PickerStyle style;  ///< the only one is a menu
  friend bool operator==(const PickerStyleModifier&, const PickerStyleModifier&) = default;
};
/// Sets how a text field is drawn.
struct TextFieldStyleModifier {
  TextFieldStyle style;  ///< the only one is a frame with round corners
  friend bool operator==(const TextFieldStyleModifier&, const TextFieldStyleModifier&) = default;
};
/// Hides the view's own title visually; assistive technology still reads it.
struct LabelsHiddenModifier {
  friend bool operator==(const LabelsHiddenModifier&, const LabelsHiddenModifier&) = default;
};
/// Inside a disabled view, nothing can be enabled again.
struct DisabledModifier {
  bool disabled;  ///< false changes nothing inside a disabled view
  friend bool operator==(const DisabledModifier&, const DisabledModifier&) = default;
};
/// Sets the view's identifier for automation, byte for byte: no escaping, no normalisation.
struct AccessibilityIdentifierModifier {
  std::string identifier;  ///< what `objectName`, `AccessibleId` and `testing::Screen` find it by
  friend bool operator==(const AccessibilityIdentifierModifier&,
                         const AccessibilityIdentifierModifier&) = default;
};
/// The value that a picker's row represents.
struct TagModifier {
  Tag tag;  ///< what the binding of the picker gets when the row is chosen
  friend bool operator==(const TagModifier&, const TagModifier&) = default;
};
/// @}

/// One change of a view.
using Modifier = std::variant<FontModifier, FontWeightModifier, ForegroundStyleModifier,
                              PaddingModifier, ButtonStyleModifier, PickerStyleModifier,
                              TextFieldStyleModifier, LabelsHiddenModifier, DisabledModifier,
                              AccessibilityIdentifierModifier, TagModifier>;

}  // namespace vemra::ui
