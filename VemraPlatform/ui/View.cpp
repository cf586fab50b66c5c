#include "VemraPlatform/ui/View.hpp"

namespace vemra::ui {

View::View(std::shared_ptr<const AnyComposite> composite)
    : View(Description{CompositeContent{std::move(composite)}, {}, {}}) {}

View::View(Description description)
    : description_(std::make_shared<const Description>(std::move(description))) {}

void View::become(Description description) {
  description_ = std::make_shared<const Description>(std::move(description));
}

View View::modified(Modifier modifier) const {
  if (isAbsent()) return *this;
  Description description = *description_;
  description.modifiers.push_back(std::move(modifier));
  return View(std::move(description));
}

View View::font(Font font) const {
  return modified(FontModifier{font});
}

View View::fontWeight(FontWeight weight) const {
  return modified(FontWeightModifier{weight});
}

View View::foregroundStyle(ForegroundStyle style) const {
  return modified(ForegroundStyleModifier{style});
}

View View::padding(int length) const {
  return padding(Edges::all, length);
}

View View::padding(Edges edges, int length) const {
  return modified(PaddingModifier{edges, length});
}

View View::buttonStyle(ButtonStyle style) const {
  return modified(ButtonStyleModifier{style});
}

View View::pickerStyle(PickerStyle style) const {
  return modified(PickerStyleModifier{style});
}

View View::textFieldStyle(TextFieldStyle style) const {
  return modified(TextFieldStyleModifier{style});
}

View View::labelsHidden() const {
  return modified(LabelsHiddenModifier{});
}

View View::disabled(bool disabled) const {
  return modified(DisabledModifier{disabled});
}

View View::accessibilityIdentifier(std::string identifier) const {
  return modified(AccessibilityIdentifierModifier{std::move(identifier)});
}

View View::id(std::string key) const {
  if (isAbsent()) return *this;
  Description description = *description_;
  description.key = std::move(key);
  return View(std::move(description));
}

Text::Text(LocalizedKey key) : View(Description{TextContent{key}, {}, {}}) {}
Text::Text(Verbatim text) : View(Description{TextContent{std::move(text)}, {}, {}}) {}

Button::Button(LocalizedKey title, Action action)
    : View(Description{ButtonContent{title, std::move(action)}, {}, {}}) {}
Button::Button(Verbatim title, Action action)
    : View(Description{ButtonContent{std::move(title), std::move(action)}, {}, {}}) {}

Picker::Picker(LocalizedKey title, Binding<Tag> selection, Children content)
    : View(Description{PickerContent{title, std::move(selection), std::move(content)}, {}, {}}) {}

TextField::TextField(LocalizedKey title, Binding<std::string> text)
    : View(Description{TextFieldContent{title, std::move(text)}, {}, {}}) {}

VStack::VStack(HorizontalAlignment alignment, int spacing, Children children)
    : View(Description{VStackContent{alignment, spacing, std::move(children)}, {}, {}}) {}

HStack::HStack(VerticalAlignment alignment, int spacing, Children children)
    : View(Description{HStackContent{alignment, spacing, std::move(children)}, {}, {}}) {}

Group::Group(Children children) : View(Description{GroupContent{std::move(children)}, {}, {}}) {}

ScrollView::ScrollView(Children children, Axis axis, ScrollIndicators indicators)
    : View(Description{ScrollViewContent{axis, indicators, std::move(children)}, {}, {}}) {}

ForEach::ForEach(std::shared_ptr<const RowSource> rows)
    : View(Description{ForEachContent{std::move(rows)}, {}, {}}) {}

void If::show(const View& view, std::uint64_t branch) {
  if (view.isAbsent()) return;
  Description description = view.description();
  // Branches nest: 64-bit mixing keeps every path through them apart.
  description.branch = (description.branch + branch) * 0x9E3779B97F4A7C15ULL;
  become(std::move(description));
}

}  // namespace vemra::ui
