#pragma once

#include "VemraPlatform/ui/View.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// \file
/// The content of views, for the view graph. Screens are written with View.hpp only, and renderers
/// read elements.

namespace vemra::ui {

/// \name The content of a view
/// The closed set of primitives. Lengths are in points.
/// @{

/// A `Text`.
struct TextContent {
  Label text;  ///< what it shows
};
/// A `Button`.
struct ButtonContent {
  Label title;    ///< what it shows
  Action action;  ///< what a press does
};
/// A `Picker`.
struct PickerContent {
  Label title;             ///< its name
  Binding<Tag> selection;  ///< reads and writes the tag of the selected row
  Children children;       ///< its rows: the tagged ones are choices
};
/// A `TextField`.
struct TextFieldContent {
  Label title;                ///< its name and placeholder
  Binding<std::string> text;  ///< reads and writes the typed text
  Action submit;              ///< what Return does
};
/// A `VStack`.
struct VStackContent {
  HorizontalAlignment alignment;  ///< of children that are narrower than the stack
  int spacing;                    ///< between two children that are there
  Children children;              ///< from top to bottom
};
/// An `HStack`.
struct HStackContent {
  VerticalAlignment alignment;  ///< of children that are lower than the line
  int spacing;                  ///< between two children, and between two lines
  Children children;            ///< from the leading edge
};
/// A `Group`.
struct GroupContent {
  Children children;  ///< what the group contains
};
/// A `ScrollView`.
struct ScrollViewContent {
  Axis axis;                    ///< the direction in which it scrolls
  ScrollIndicators indicators;  ///< whether the page shows a scroll bar
  Children children;            ///< from top to bottom
};
/// A `ForEach`.
struct ForEachContent {
  std::shared_ptr<const RowSource> rows;  ///< describes each row on request
};
/// A composite: a struct with a `body`.
struct CompositeContent {
  std::shared_ptr<const AnyComposite> composite;  ///< makes its body
};
/// @}

/// The content of a view: exactly one of the primitives.
using Content =
    std::variant<TextContent, ButtonContent, PickerContent, TextFieldContent, VStackContent,
                 HStackContent, GroupContent, ScrollViewContent, ForEachContent, CompositeContent>;

/// The content of a view, its modifiers and its identity.
struct Description {
  Content content;                  ///< the primitive that the view is
  std::vector<Modifier> modifiers;  ///< in the order in which they were applied
  std::optional<std::string> key;   ///< the identity given with `View::id`
  std::uint64_t branch = 0;         ///< identifies the branches of conditions around it; 0: none
};

}  // namespace vemra::ui
