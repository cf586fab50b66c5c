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
struct TextContent {
  Label text;
};
struct ButtonContent {
  Label title;
  Action action;
};
struct PickerContent {
  Label title;
  Binding<Tag> selection;
  Children children;
};
struct TextFieldContent {
  Label title;
  Binding<std::string> text;
};
struct VStackContent {
  HorizontalAlignment alignment;
  int spacing;
  Children children;
};
struct HStackContent {
  VerticalAlignment alignment;
  int spacing;
  Children children;
};
struct GroupContent {
  Children children;
};
struct ScrollViewContent {
  Axis axis;
  ScrollIndicators indicators;
  Children children;
};
struct ForEachContent {
  std::shared_ptr<const RowSource> rows;
};
struct CompositeContent {
  std::shared_ptr<const AnyComposite> composite;
};
/// @}

using Content =
    std::variant<TextContent, ButtonContent, PickerContent, TextFieldContent, VStackContent,
                 HStackContent, GroupContent, ScrollViewContent, ForEachContent, CompositeContent>;

/// The content of a view, its modifiers and its identity.
struct Description {
  Content content;
  std::vector<Modifier> modifiers;  ///< in the order in which they were applied
  std::optional<std::string> key;   ///< the identity given with `View::id`
  std::uint64_t branch = 0;         ///< identifies the branches of conditions around it; 0: none
};

}  // namespace vemra::ui
