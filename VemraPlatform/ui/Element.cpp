#include "VemraPlatform/ui/Element.hpp"

#include <array>

namespace vemra::ui {

namespace {

template <class Kind>
const Kind* firstModifier(const std::vector<Modifier>& modifiers) {
  for (const Modifier& modifier : modifiers) {
    if (auto* found = std::get_if<Kind>(&modifier)) return found;
  }
  return nullptr;
}

const Label* labelOf(const Content& content) {
  if (auto* text = std::get_if<TextContent>(&content)) return &text->text;
  if (auto* button = std::get_if<ButtonContent>(&content)) return &button->title;
  if (auto* picker = std::get_if<PickerContent>(&content)) return &picker->title;
  if (auto* field = std::get_if<TextFieldContent>(&content)) return &field->title;
  return nullptr;
}

bool submitsIn(const Content& content) {
  auto* field = std::get_if<TextFieldContent>(&content);
  return field && field->submit;
}

Style styleInside(const std::vector<Modifier>& modifiers, const Style& inherited) {
  Style style = inherited;
  // From the outermost modifier inwards, so that the innermost one wins.
  for (auto modifier = modifiers.rbegin(); modifier != modifiers.rend(); ++modifier) {
    if (auto* font = std::get_if<FontModifier>(&*modifier)) {
      style.font = font->font;
      if (font->font.explicitWeight) style.fontWeight = std::nullopt;
    } else if (auto* weight = std::get_if<FontWeightModifier>(&*modifier)) {
      style.fontWeight = weight->weight;
    } else if (auto* foreground = std::get_if<ForegroundStyleModifier>(&*modifier)) {
      style.foreground = foreground->style;
    } else if (auto* disabled = std::get_if<DisabledModifier>(&*modifier)) {
      style.enabled = style.enabled && !disabled->disabled;
    }
  }
  if (style.fontWeight) style.font.explicitWeight = style.fontWeight;
  return style;
}

bool sameOwnValues(const Content& a, const Content& b) {
  if (a.index() != b.index()) return false;
  if (auto* stack = std::get_if<VStackContent>(&a)) {
    auto& other = std::get<VStackContent>(b);
    return stack->alignment == other.alignment && stack->spacing == other.spacing;
  }
  if (auto* stack = std::get_if<HStackContent>(&a)) {
    auto& other = std::get<HStackContent>(b);
    return stack->alignment == other.alignment && stack->spacing == other.spacing;
  }
  if (auto* scroll = std::get_if<ScrollViewContent>(&a)) {
    auto& other = std::get<ScrollViewContent>(b);
    return scroll->axis == other.axis && scroll->indicators == other.indicators;
  }
  if (auto* composite = std::get_if<CompositeContent>(&a)) {
    return composite->composite->type() == std::get<CompositeContent>(b).composite->type();
  }

  if (submitsIn(a) != submitsIn(b)) return false;
  const Label* label = labelOf(a);
  return !label || *label == *labelOf(b);
}

}  // namespace

struct Element::Found {
  std::optional<std::string> translation;
  std::string text;
  std::optional<Tag> selection;
};

Element::Element(View view, const Style& inherited, const Environment& environment)
    : view_(std::move(view)) {
  // Not in the initialiser list: g++ 12 fails to compile it there when it inlines the call.
  style_ = styleInside(description().modifiers, inherited);
  const Content& content = description().content;
  Found found;
  if (const Label* label = labelOf(content); label && label->isKey() && environment.strings) {
    found.translation = environment.strings->lookup(label->source());
  }
  if (auto* field = std::get_if<TextFieldContent>(&content)) found.text = field->text.get();
  if (auto* picker = std::get_if<PickerContent>(&content)) {
    found.selection = picker->selection.get();
  }
  if (found.translation || !found.text.empty() || found.selection) {
    found_ = std::make_shared<const Found>(std::move(found));
  }
  if (auto* forEach = std::get_if<ForEachContent>(&content)) rowCount_ = forEach->rows->count();
}

const Label* Element::label() const {
  return labelOf(description().content);
}

std::string_view Element::shownLabel() const {
  if (found_ && found_->translation) return *found_->translation;
  const Label* found = label();
  return found ? std::string_view(found->source()) : std::string_view();
}

const std::string& Element::text() const {
  static const std::string none;
  return found_ ? found_->text : none;
}

bool Element::submits() const {
  return submitsIn(description().content);
}

const std::optional<Tag>& Element::selection() const {
  static const std::optional<Tag> none;
  return found_ ? found_->selection : none;
}

int Element::spacing() const {
  if (auto* stack = std::get_if<VStackContent>(&description().content)) return stack->spacing;
  if (auto* stack = std::get_if<HStackContent>(&description().content)) return stack->spacing;
  return 0;
}

HorizontalAlignment Element::horizontalAlignment() const {
  auto* stack = std::get_if<VStackContent>(&description().content);
  return stack ? stack->alignment : HorizontalAlignment::leading;
}

VerticalAlignment Element::verticalAlignment() const {
  auto* stack = std::get_if<HStackContent>(&description().content);
  return stack ? stack->alignment : VerticalAlignment::center;
}

Axis Element::scrollAxis() const {
  auto* scroll = std::get_if<ScrollViewContent>(&description().content);
  return scroll ? scroll->axis : Axis::vertical;
}

ScrollIndicators Element::scrollIndicators() const {
  auto* scroll = std::get_if<ScrollViewContent>(&description().content);
  return scroll ? scroll->indicators : ScrollIndicators::hidden;
}

std::string_view Element::compositeName() const {
  auto* composite = std::get_if<CompositeContent>(&description().content);
  return composite ? composite->composite->name() : std::string_view();
}

std::string_view Element::accessibilityIdentifier() const {
  std::string_view identifier;
  for (const Modifier& modifier : modifiers()) {
    if (auto* found = std::get_if<AccessibilityIdentifierModifier>(&modifier)) {
      identifier = found->identifier;
    }
  }
  return identifier;
}

ButtonStyle Element::buttonStyle() const {
  auto* found = firstModifier<ButtonStyleModifier>(modifiers());
  return found ? found->style : ButtonStyle::automatic;
}

bool Element::labelsHidden() const {
  return firstModifier<LabelsHiddenModifier>(modifiers());
}

Insets Element::padding() const {
  Insets insets;
  for (const Modifier& modifier : modifiers()) {
    auto* padding = std::get_if<PaddingModifier>(&modifier);
    if (!padding) continue;
    if (padding->edges != Edges::horizontal) {
      insets.top += padding->length;
      insets.bottom += padding->length;
    }
    if (padding->edges != Edges::vertical) {
      insets.leading += padding->length;
      insets.trailing += padding->length;
    }
  }
  return insets;
}

const Tag* Element::tag() const {
  auto* found = firstModifier<TagModifier>(modifiers());
  return found ? &found->tag : nullptr;
}

bool operator==(const Element& a, const Element& b) {
  const Description& left = a.description();
  const Description& right = b.description();
  const bool sameFound =
      a.found_ == b.found_ ||
      (a.shownLabel() == b.shownLabel() && a.text() == b.text() && a.selection() == b.selection());
  return sameFound && a.style_ == b.style_ && a.rowCount_ == b.rowCount_ &&
         (&left == &right ||
          (sameOwnValues(left.content, right.content) && left.modifiers == right.modifiers));
}

std::string_view kindName(ElementKind kind) {
  // In the order of `Content`, like `ElementKind`.
  constexpr std::array<std::string_view, std::variant_size_v<Content>> names = {
      "Text",   "Button", "Picker",     "TextField", "VStack",
      "HStack", "Group",  "ScrollView", "ForEach",   "Composite"};
  return names[static_cast<std::size_t>(kind)];
}

}  // namespace vemra::ui
