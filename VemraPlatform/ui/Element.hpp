#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Description.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::ui {

/// What an element is. The order is that of `Content`.
enum class ElementKind {
  text,
  button,
  picker,
  textField,
  vStack,
  hStack,
  group,
  scrollView,
  forEach,
  composite,
};

/// What reaches an element from the modifiers above it and its own.
///
/// Of the fonts, the foreground styles and the weights, the innermost has the last word; being
/// disabled adds up, so that inside a disabled view nothing is enabled again.
struct Style {
  Font font = Font::body;
  ForegroundStyle foreground = ForegroundStyle::primary;
  bool enabled = true;
  /// The weight that a modifier beside the font asks for; `font` already has it. Kept so that it
  /// outlives a font further in that names no weight of its own.
  std::optional<FontWeight> fontWeight = std::nullopt;
  friend bool operator==(const Style&, const Style&) = default;
};

struct Insets {
  int top = 0, leading = 0, bottom = 0, trailing = 0;
  friend bool operator==(const Insets&, const Insets&) = default;
};

/// One element as a renderer sees it: a comparable value that gives no way to handlers or to the view.
///
/// It shares the view's description, so that making and copying one is cheap. Two elements are
/// equal when nothing that can be seen or heard of them differs.
class VEMRA_EXPORT Element {
 public:
  Element(View view, const Style& inherited, const Environment& environment);

  ElementKind kind() const { return static_cast<ElementKind>(description().content.index()); }
  const std::vector<Modifier>& modifiers() const { return description().modifiers; }
  const Style& style() const { return style_; }

  /// The text of a Text, the title of a Button, Picker or TextField; nullptr for other kinds.
  const Label* label() const;
  /// What is shown for the label: the verbatim text, or the key's translation; "" without a label.
  std::string_view shownLabel() const;

  /// What stands in a TextField; "" for other kinds.
  const std::string& text() const;
  /// What is chosen in a Picker; nil for other kinds.
  const std::optional<Tag>& selection() const;

  /// Space between children of a stack, in points; 0 for other kinds.
  int spacing() const;
  HorizontalAlignment horizontalAlignment() const;  ///< of a VStack's children
  VerticalAlignment verticalAlignment() const;      ///< of an HStack's children
  Axis scrollAxis() const;                          ///< of a ScrollView
  ScrollIndicators scrollIndicators() const;        ///< of a ScrollView
  /// How many rows a ForEach has, described or not; 0 for other kinds.
  std::size_t rowCount() const { return rowCount_; }
  /// The composite's name for developers; "" for other kinds.
  std::string_view compositeName() const;

  /// The identifier applied last, "" when there is none.
  std::string_view accessibilityIdentifier() const;
  ButtonStyle buttonStyle() const;
  bool labelsHidden() const;
  Insets padding() const;
  const Tag* tag() const;

  friend VEMRA_EXPORT bool operator==(const Element& a, const Element& b);

 private:
  friend struct BehindElement;

  const Description& description() const { return view_.description(); }

  /// What the description does not say by itself. Few elements have any of it.
  struct Found;

  View view_;
  Style style_;
  std::size_t rowCount_ = 0;
  std::shared_ptr<const Found> found_;
};

/// The name of a kind as developers write it ("VStack").
VEMRA_EXPORT std::string_view kindName(ElementKind kind);

}  // namespace vemra::ui
