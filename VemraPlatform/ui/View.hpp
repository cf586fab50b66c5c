#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Binding.hpp"
#include "VemraPlatform/ui/Composite.hpp"
#include "VemraPlatform/ui/Label.hpp"
#include "VemraPlatform/ui/Modifier.hpp"
#include "VemraPlatform/ui/RowSource.hpp"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vemra::ui {

struct Description;
class View;

/// What a container holds, in order. An absent view keeps its place among them.
using Children = std::vector<View>;
/// What a button does; an empty one does nothing.
using Action = std::function<void()>;

/// A view: a description of a piece of the screen, not the piece itself.
///
/// A view is a value. Making one puts nothing on a screen and remembers nothing; copying one costs
/// one reference count. What lives on a screen are the nodes of a `ViewGraph`, and which node a
/// view describes is decided by *identity*, never by the view object:
///
///     return VStack(HorizontalAlignment::leading, 4,
///         {
///             Button(verbatim(name), open),                   // slot 0
///             If(hasSource, [&] { return sourceButton(); }),  // slot 1, also while absent
///             NoteEditor{name},                               // slot 2: keeps its state
///         });
///
/// The editor stays the same node, with the text typed into it, whether or not the source button
/// above it comes or goes, because an absent view still holds its slot. Two branches of an
/// `If` are two identities: switching forgets what was there. A row of a `ForEach` is its id.
///
/// Modifiers are applied with dots and kept in order; each returns a new view.
class VEMRA_EXPORT View {
 public:
  /// The absent view: it shows nothing and holds its slot.
  View() = default;

  /// A composite: a plain struct with a `body`.
  template <class Struct>
  requires(!std::derived_from<Struct, View> && CompositeView<Struct>) View(Struct composite)
      : View(std::shared_ptr<const AnyComposite>(
            std::make_shared<ErasedComposite<Struct>>(std::move(composite)))) {}

  /// \name Modifiers
  /// Of a view that is kept, each makes another one; a temporary is changed itself, so that a chain
  /// of them copies nothing. On an absent view they do nothing.
  ///
  /// Font, weight, foreground style and disabled reach down to everything the view holds; the
  /// others are the view's own. Of two of a kind the inner one, which is the one applied first,
  /// wins where nothing else is said. Lengths are in points.
  /// @{

  /// The font of all texts and titles; reaches down.
  View font(Font font) const&;
  View font(Font font) &&;
  /// The weight of all texts and titles; reaches down. A font that names a weight counts as one
  /// too.
  View fontWeight(FontWeight weight) const&;
  View fontWeight(FontWeight weight) &&;
  /// The level of the text colour; reaches down.
  View foregroundStyle(ForegroundStyle style) const&;
  View foregroundStyle(ForegroundStyle style) &&;
  /// Space around the view, in points, on all four edges or on some. Several add up.
  View padding(int length) const& { return padding(Edges::all, length); }
  View padding(int length) && { return std::move(*this).padding(Edges::all, length); }
  View padding(Edges edges, int length) const&;
  View padding(Edges edges, int length) &&;
  /// How a button is drawn: with the platform's frame, or as its bare title.
  View buttonStyle(ButtonStyle style) const&;
  View buttonStyle(ButtonStyle style) &&;
  /// How a picker lets choose.
  View pickerStyle(PickerStyle style) const&;
  View pickerStyle(PickerStyle style) &&;
  /// How a text field is drawn.
  View textFieldStyle(TextFieldStyle style) const&;
  View textFieldStyle(TextFieldStyle style) &&;
  /// Hides the view's title from the eye; assistive technology still has it.
  View labelsHidden() const&;
  View labelsHidden() &&;
  /// With `true`, nothing in the view takes events; reaches down, where nothing enables it again.
  View disabled(bool disabled) const&;
  View disabled(bool disabled) &&;
  /// Names the view for automation, byte for byte. Of several, the one applied last counts.
  View accessibilityIdentifier(std::string identifier) const&;
  View accessibilityIdentifier(std::string identifier) &&;
  /// The value that the view stands for as a row of a picker.
  template <Choice Value>
  View tag(Value value) const {
    return View(*this).modified(TagModifier{Tag(std::move(value))});
  }
  /// Gives the view an identity of its own among its siblings, in place of its slot. Keys are
  /// compared under canonical equivalence.
  View id(std::string key) const;
  /// @}

  bool isAbsent() const { return description_ == nullptr; }
  /// What the view says (Description.hpp); must not be absent.
  const Description& description() const { return *description_; }

 protected:
  explicit View(std::shared_ptr<const AnyComposite> composite);
  explicit View(Description description);
  /// The description, to be changed: this view's own, or a copy of one that others share. The view
  /// must not be absent.
  Description& ownDescription();

 private:
  friend class Element;
  View modified(Modifier modifier) &&;

  std::shared_ptr<Description> description_;
};

/// Where a column puts children that are narrower than it; `leading` is where lines begin: on the
/// left, or on the right in a layout from right to left.
enum class HorizontalAlignment { leading, center };
/// Where a row of views puts children that are lower than it.
enum class VerticalAlignment { top, center };

/// A piece of text, of one line or as many as it takes. Not for a name or a note without
/// `verbatim`: what is shown as it is says so.
class VEMRA_EXPORT Text : public View {
 public:
  explicit Text(LocalizedKey key);
  explicit Text(Verbatim text);
};

/// A title to press. The action runs on the main thread, once a press, and may replace the whole
/// tree.
class VEMRA_EXPORT Button : public View {
 public:
  Button(LocalizedKey title, Action action);
  Button(Verbatim title, Action action);
};

/// A choice among tagged rows, shown as a menu.
class VEMRA_EXPORT Picker : public View {
 public:
  template <Choice Value>
  Picker(LocalizedKey title, Binding<Value> selection, Children content)
      : Picker(title, asTag(std::move(selection)), std::move(content)) {}
  Picker(LocalizedKey title, Binding<Tag> selection, Children content);
};

/// A single-line text field; its title is the placeholder.
class VEMRA_EXPORT TextField : public View {
 public:
  TextField(LocalizedKey title, Binding<std::string> text);
};

/// Its children below each other, the first on top.
class VEMRA_EXPORT VStack : public View {
 public:
  /// `spacing` is the room between two neighbours, in points; an absent child takes none.
  VStack(HorizontalAlignment alignment, int spacing, Children children);
};

/// Its children beside each other, from where lines begin.
class VEMRA_EXPORT HStack : public View {
 public:
  /// `spacing` is the room between two neighbours, in points; an absent child takes none.
  HStack(VerticalAlignment alignment, int spacing, Children children);
};

/// Holds views without laying them out: for modifiers that several share.
class VEMRA_EXPORT Group : public View {
 public:
  explicit Group(Children children);
};

/// The direction in which a view scrolls.
enum class Axis { vertical };
/// Whether a scroll view shows where it stands and how much there is.
enum class ScrollIndicators { hidden, shown };

/// A window onto children that may be larger than the screen has room for; they stand below each
/// other.
class VEMRA_EXPORT ScrollView : public View {
 public:
  explicit ScrollView(Children children, Axis axis = Axis::vertical,
                      ScrollIndicators indicators = ScrollIndicators::shown);
};

/// One row for each element, described when something asks for it.
///
/// `elements` is copied and must be cheap to copy; `id` gives each element's id (a member pointer
/// or a function that returns a reference or a string_view into the element); `row` makes the view.
/// Ids are compared under canonical equivalence; equal ids are told apart by their order.
class VEMRA_EXPORT ForEach : public View {
 public:
  template <class Elements, RowIDOf<Elements> ID, class Row>
  ForEach(Elements elements, ID id, Row row)
      : ForEach(std::make_shared<RowsOf<Elements, ID, Row>>(std::move(elements), std::move(id),
                                                            std::move(row))) {}
  explicit ForEach(std::shared_ptr<const RowSource> rows);
};

/// Conditional content. Every branch is an identity of its own:
///
///     If(isEditing, [&] { return editor(); })
///         .elseIf(isRecorded, [&] { return summary(); })
///         .otherwise([&] { return startButton(); })
///
/// Without `otherwise`, nothing is shown and the slot is kept. Only the branch taken is made.
class VEMRA_EXPORT If : public View {
 public:
  template <class Make>
  If(bool condition, Make make) {
    branch(condition, make);
  }

  template <class Make>
  If elseIf(bool condition, Make make) const {
    If next = *this;
    next.branch(condition, make);
    return next;
  }

  template <class Make>
  View otherwise(Make make) const {
    return elseIf(true, make);
  }

 private:
  template <class Make>
  void branch(bool condition, Make& make) {
    ++branches_;
    if (taken_ || !condition) return;
    taken_ = true;
    show(make(), branches_);
  }
  void show(View view, std::uint64_t branch);

  bool taken_ = false;
  std::uint64_t branches_ = 0;
};

/// Content for a value that may be absent; an absent one keeps the slot.
template <class Value, class Make>
If IfPresent(const std::optional<Value>& value, Make make) {
  return If(value.has_value(), [&]() -> View { return make(*value); });
}

template <class Struct>
View ErasedComposite<Struct>::body(const std::shared_ptr<StateCell>& state,
                                   const Environment& environment) const {
  if constexpr (StatefulComposite<Struct>) {
    using State = typename Struct::State;
    return value_.body(LocalState<State>(std::static_pointer_cast<StateCellOf<State>>(state)));
  } else if constexpr (requires { value_.body(environment); }) {
    return value_.body(environment);
  } else {
    return value_.body();
  }
}

template <class Elements, class ID, class Row>
View RowsOf<Elements, ID, Row>::row(std::size_t index) const {
  return row_(elements_[index]);
}

}  // namespace vemra::ui
