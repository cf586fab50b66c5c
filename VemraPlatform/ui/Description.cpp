// Makes descriptions: the functions of View.hpp, which only here know what a view contains.

#include "VemraPlatform/ui/Description.hpp"

namespace vemra::ui {

namespace {

// Reserves space for a usual chain of modifiers, so that it allocates once.
constexpr std::size_t usualModifiers = 4;

}  // namespace

View::View(std::shared_ptr<const AnyComposite> composite)
    : View(Description{CompositeContent{std::move(composite)}, {}, {}}) {}

View::View(Description description)
    : description_(std::make_shared<Description>(std::move(description))) {}

Description& View::ownDescription() {
  if (description_.use_count() > 1) description_ = std::make_shared<Description>(*description_);
  return *description_;
}

View View::modified(Modifier modifier) && {
  if (!isAbsent()) {
    std::vector<Modifier>& modifiers = ownDescription().modifiers;
    if (modifiers.empty()) modifiers.reserve(usualModifiers);
    modifiers.push_back(std::move(modifier));
  }
  return std::move(*this);
}

View View::font(Font font) const& {
  return View(*this).font(font);
}
View View::font(Font font) && {
  return std::move(*this).modified(FontModifier{font});
}

View View::fontWeight(FontWeight weight) const& {
  return View(*this).fontWeight(weight);
}
View View::fontWeight(FontWeight weight) && {
  return std::move(*this).modified(FontWeightModifier{weight});
}

View View::foregroundStyle(ForegroundStyle style) const& {
  return View(*this).foregroundStyle(style);
}
View View::foregroundStyle(ForegroundStyle style) && {
  return std::move(*this).modified(ForegroundStyleModifier{style});
}

View View::padding(Edges edges, int length) const& {
  return View(*this).padding(edges, length);
}
View View::padding(Edges edges, int length) && {
  return std::move(*this).modified(PaddingModifier{edges, length});
}

View View::buttonStyle(ButtonStyle style) const& {
  return View(*this).buttonStyle(style);
}
View View::buttonStyle(ButtonStyle style) && {
  return std::move(*this).modified(ButtonStyleModifier{style});
}

View View::pickerStyle(PickerStyle style) const& {
  return View(*this).pickerStyle(style);
}
View View::pickerStyle(PickerStyle style) && {
  return std::move(*this).modified(PickerStyleModifier{style});
}

View View::textFieldStyle(TextFieldStyle style) const& {
  return View(*this).textFieldStyle(style);
}
View View::textFieldStyle(TextFieldStyle style) && {
  return std::move(*this).modified(TextFieldStyleModifier{style});
}

View View::labelsHidden() const& {
  return View(*this).labelsHidden();
}
View View::labelsHidden() && {
  return std::move(*this).modified(LabelsHiddenModifier{});
}

View View::disabled(bool disabled) const& {
  return View(*this).disabled(disabled);
}
View View::disabled(bool disabled) && {
  return std::move(*this).modified(DisabledModifier{disabled});
}

View View::accessibilityIdentifier(std::string identifier) const& {
  return View(*this).accessibilityIdentifier(std::move(identifier));
}
View View::accessibilityIdentifier(std::string identifier) && {
  return std::move(*this).modified(AccessibilityIdentifierModifier{std::move(identifier)});
}

View View::id(std::string key) const {
  View view = *this;
  if (!isAbsent()) view.ownDescription().key = std::move(key);
  return view;
}

Text::Text(LocalizedKey key) : View(Description{TextContent{key}, {}, {}}) {}
Text::Text(Label label) : View(Description{TextContent{std::move(label)}, {}, {}}) {}
Text::Text(Verbatim text) : View(Description{TextContent{std::move(text)}, {}, {}}) {}

Button::Button(LocalizedKey title, Action action)
    : View(Description{ButtonContent{title, std::move(action)}, {}, {}}) {}
Button::Button(Verbatim title, Action action)
    : View(Description{ButtonContent{std::move(title), std::move(action)}, {}, {}}) {}

Picker::Picker(LocalizedKey title, Binding<Tag> selection, Children content)
    : View(Description{PickerContent{title, std::move(selection), std::move(content)}, {}, {}}) {}

TextField::TextField(LocalizedKey title, Binding<std::string> text)
    : View(Description{TextFieldContent{title, std::move(text), nullptr}, {}, {}}) {}

TextField TextField::onSubmit(Action action) const& {
  return TextField(*this).onSubmit(std::move(action));
}
TextField TextField::onSubmit(Action action) && {
  std::get<TextFieldContent>(ownDescription().content).submit = std::move(action);
  return std::move(*this);
}

VStack::VStack(HorizontalAlignment alignment, int spacing, Children children)
    : View(Description{VStackContent{alignment, spacing, std::move(children)}, {}, {}}) {}

HStack::HStack(VerticalAlignment alignment, int spacing, Children children)
    : View(Description{HStackContent{alignment, spacing, std::move(children)}, {}, {}}) {}

Group::Group(Children children) : View(Description{GroupContent{std::move(children)}, {}, {}}) {}

ScrollView::ScrollView(Children children, Axis axis, ScrollIndicators indicators)
    : View(Description{ScrollViewContent{axis, indicators, std::move(children)}, {}, {}}) {}

ForEach::ForEach(std::shared_ptr<const RowSource> rows)
    : View(Description{ForEachContent{std::move(rows)}, {}, {}}) {}

void If::show(View view, std::uint64_t branch) {
  if (view.isAbsent()) return;
  View::operator=(std::move(view));
  Description& description = ownDescription();
  // Branches nest; mixing into 64 bits gives each path through them a different number.
  description.branch = (description.branch + branch) * 0x9E3779B97F4A7C15ULL;
}

}  // namespace vemra::ui
