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

/// The kinds of elements, in the order of `Content`.
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

/// The style of an element: the effect of the modifiers around it and of its own.
///
/// The innermost font, foreground style and weight win. Disabling adds up: inside a disabled view,
/// nothing can be enabled again.
struct Style {
  Font font = Font::body;  ///< the innermost font around the element
  /// The innermost level of the text colour.
  ForegroundStyle foreground = ForegroundStyle::primary;
  bool enabled = true;  ///< false inside a disabled view
  /// The weight that a `fontWeight` modifier sets; `font` already includes it. Stored so that it
  /// also applies to an inner font that sets no weight.
  std::optional<FontWeight> fontWeight = std::nullopt;
  friend bool operator==(const Style&, const Style&) = default;
};

/// The space around an element, by edge. `leading` is the side where lines begin: left, or right in
/// a right-to-left layout.
struct Insets {
  /// The space on each side. Leading is where lines begin: left, or right from right to left.
  int top = 0, leading = 0, bottom = 0, trailing = 0;
  friend bool operator==(const Insets&, const Insets&) = default;
};

/// One element as a renderer sees it: a comparable value without access to handlers or to the view.
///
/// It shares the view's description, so making and copying an element is cheap. Two elements are
/// equal when they do not differ in anything that a renderer shows or assistive technology reads.
///
/// A copy may be kept as long as needed, also after its node has been removed. The references and
/// string views that it returns are valid while the element, or a copy of it, lives. Lengths are in
/// points; a page converts them with its `page::Grid`.
class VEMRA_EXPORT Element {
 public:
  /// The element of a view, with the style that it inherits, and its keys translated for
  /// `environment`.
  Element(View view, const Style& inherited, const Environment& environment);

  /// The kind, which decides which of the functions below may be called.
  ElementKind kind() const { return static_cast<ElementKind>(description().content.index()); }
  /// The view's own modifiers, in the order in which they were applied.
  const std::vector<Modifier>& modifiers() const { return description().modifiers; }
  /// The style that holds for this element: inherited, and changed by its modifiers.
  const Style& style() const { return style_; }

  /// The text of a Text, the title of a Button, Picker or TextField; nullptr for other kinds.
  const Label* label() const;
  /// The shown text of the label: the verbatim text, or the key's translation; "" without a label.
  std::string_view shownLabel() const;

  /// The text in a TextField; "" for other kinds.
  const std::string& text() const;
  /// Whether Return in a TextField runs an action; false for other kinds.
  bool submits() const;
  /// The selected tag of a Picker; nil for other kinds.
  const std::optional<Tag>& selection() const;

  /// Space between children of a stack, in points; 0 for other kinds.
  int spacing() const;
  HorizontalAlignment horizontalAlignment() const;  ///< of a VStack's children
  VerticalAlignment verticalAlignment() const;      ///< of an HStack's children
  Axis scrollAxis() const;                          ///< of a ScrollView
  ScrollIndicators scrollIndicators() const;        ///< of a ScrollView
  /// The number of rows of a ForEach, including rows that are not described yet; 0 for other kinds.
  std::size_t rowCount() const { return rowCount_; }
  /// The composite's name for developers; "" for other kinds.
  std::string_view compositeName() const;

  /// The identifier applied last, "" when there is none.
  std::string_view accessibilityIdentifier() const;
  /// How to draw a Button.
  ButtonStyle buttonStyle() const;
  /// Whether the title of a picker is hidden from view; assistive technology reads it in any case.
  /// The title of a text field is its placeholder, which is shown in any case.
  bool labelsHidden() const;
  /// The sum of all paddings, in points.
  Insets padding() const;
  /// The value that the element represents as a choice of the picker around it; nullptr without
  /// one.
  const Tag* tag() const;

  friend VEMRA_EXPORT bool operator==(const Element& a, const Element& b);

 private:
  friend struct ElementAccess;

  const Description& description() const { return view_.description(); }

  /// The values that are read when the element is made: its translation, and the value of its
  /// binding. Few elements have any.
  struct Found;

  View view_;
  Style style_;
  std::size_t rowCount_ = 0;
  std::shared_ptr<const Found> found_;
};

/// The name of a kind as developers write it ("VStack").
VEMRA_EXPORT std::string_view kindName(ElementKind kind);

}  // namespace vemra::ui
