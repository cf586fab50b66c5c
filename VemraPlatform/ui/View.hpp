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

/// The children of a container, in order. An absent view keeps its slot.
using Children = std::vector<View>;
/// The action of a button, or of Return in a text field; an empty one does nothing.
using Action = std::function<void()>;

/// A view: a description of a piece of the screen, not the piece itself.
///
/// A view is a value. Making a view shows nothing and stores nothing; copying one costs one
/// reference count. A screen consists of the nodes of a `ViewGraph`, and *identity*, never the view
/// object, decides which node a view describes:
///
///     return VStack(HorizontalAlignment::leading, 4,
///         {
///             Button(verbatim(name), open),                   // slot 0
///             If(hasSource, [&] { return sourceButton(); }),  // slot 1, also while absent
///             NoteEditor{name},                               // slot 2: keeps its state
///         });
///
/// The editor stays the same node, with its typed text, when the source button above it appears or
/// disappears, because an absent view still holds its slot. Two branches of an `If` are two
/// identities: switching branches discards the state of the previous branch. A row of a `ForEach`
/// is identified by its id.
///
/// Modifiers are applied with dots and kept in order; each call returns a new view.
class VEMRA_EXPORT View {
 public:
  /// The absent view: it shows nothing and holds its slot.
  View() = default;

  /// A composite: a plain struct with a `body`.
  template <class Struct>
  requires(!std::derived_from<Struct, View> && CompositeView<Struct>) View(Struct composite)
      : View(std::shared_ptr<const AnyComposite>(
            std::make_shared<ErasedComposite<Struct>>(std::move(composite)))) {}

  /// Does not compile: the message says what is wrong with the struct's `body`.
  template <class Struct>
  requires(!std::derived_from<Struct, View> && MisshapenComposite<Struct>) View(Struct) {
    explainBody<Struct>();
  }

  /// \name Modifiers
  /// Applied to an lvalue, each makes a new view; applied to a temporary, it changes the temporary,
  /// so that a chain of modifiers copies nothing. On an absent view they do nothing.
  ///
  /// Font, weight, foreground style and disabled also apply to all views inside; the others apply
  /// to the view only. Of two modifiers of the same kind, the inner one, which is applied first,
  /// wins unless stated otherwise. Lengths are in points.
  /// @{

  /// The font of all texts and titles; also applies to the views inside.
  View font(Font font) const&;
  View font(Font font) &&;
  /// The weight of all texts and titles; also applies to the views inside. A font with an explicit
  /// weight counts as a weight modifier too.
  View fontWeight(FontWeight weight) const&;
  View fontWeight(FontWeight weight) &&;
  /// The level of the text colour; also applies to the views inside.
  View foregroundStyle(ForegroundStyle style) const&;
  View foregroundStyle(ForegroundStyle style) &&;
  /// Adds space around the view, in points, on all or some edges. Several paddings add up. On a
  /// Group, a ForEach or a composite, which have no layout, it applies to each child.
  View padding(int length) const& { return padding(Edges::all, length); }
  View padding(int length) && { return std::move(*this).padding(Edges::all, length); }
  View padding(Edges edges, int length) const&;
  View padding(Edges edges, int length) &&;
  /// How a button is drawn: with the platform's frame, or as its bare title.
  View buttonStyle(ButtonStyle style) const&;
  View buttonStyle(ButtonStyle style) &&;
  /// How a picker offers its choices.
  View pickerStyle(PickerStyle style) const&;
  View pickerStyle(PickerStyle style) &&;
  /// How a text field is drawn.
  View textFieldStyle(TextFieldStyle style) const&;
  View textFieldStyle(TextFieldStyle style) &&;
  /// Hides the view's title visually; assistive technology still reads it.
  View labelsHidden() const&;
  View labelsHidden() &&;
  /// With `true`, nothing in the view accepts events, and no view inside can be enabled again.
  View disabled(bool disabled) const&;
  View disabled(bool disabled) &&;
  /// Sets the view's identifier for automation, byte for byte. The last one applied wins.
  View accessibilityIdentifier(std::string identifier) const&;
  View accessibilityIdentifier(std::string identifier) &&;
  /// The value that the view represents as a row of a picker.
  template <Choice Value>
  View tag(Value value) const {
    return View(*this).modified(TagModifier{Tag(std::move(value))});
  }
  /// Gives the view an explicit identity among its siblings, instead of its slot. Keys are compared
  /// under canonical equivalence.
  View id(std::string key) const;
  /// @}

  /// Whether this is the absent view, which shows nothing and holds its slot.
  bool isAbsent() const { return description_ == nullptr; }
  /// The view's description (Description.hpp); the view must not be absent.
  const Description& description() const { return *description_; }

 protected:
  explicit View(std::shared_ptr<const AnyComposite> composite);
  explicit View(Description description);
  /// The description for a change: this view's own, or a copy when other views share it. The view
  /// must not be absent.
  Description& ownDescription();

 private:
  friend class Element;
  View modified(Modifier modifier) &&;

  std::shared_ptr<Description> description_;
};

/// How a column aligns children that are narrower than itself; `leading` is the side where lines
/// begin: left, or right in a right-to-left layout.
enum class HorizontalAlignment { leading, center };
/// How a row of views aligns children that are lower than the row.
enum class VerticalAlignment { top, center };

/// A text of one or more lines. Shows a name or a note only through `verbatim`, which marks text
/// that is shown unchanged.
class VEMRA_EXPORT Text : public View {
 public:
  /// A text of the screen itself, translated by the environment's strings table.
  explicit Text(LocalizedKey key);
  /// A text that is shown unchanged, such as a name.
  explicit Text(Verbatim text);
};

/// A button with a title. The action runs on the main thread, once for each press, and may replace
/// the whole tree.
class VEMRA_EXPORT Button : public View {
 public:
  /// A button with a title of the screen itself. An empty action does nothing.
  Button(LocalizedKey title, Action action);
  /// A button whose title is shown unchanged. An empty action does nothing.
  Button(Verbatim title, Action action);
};

/// A choice among tagged rows, shown as a menu.
class VEMRA_EXPORT Picker : public View {
 public:
  /// A picker of values. The views in `content` with a `tag` of the same type are its choices.
  template <Choice Value>
  Picker(LocalizedKey title, Binding<Value> selection, Children content)
      : Picker(title, asTag(std::move(selection)), std::move(content)) {}
  /// The same with tags of any type.
  Picker(LocalizedKey title, Binding<Tag> selection, Children content);
};

/// A single-line text field; its title is the placeholder.
///
///     TextField("Name", state.binding(&State::draft)).onSubmit(keep)
class VEMRA_EXPORT TextField : public View {
 public:
  /// A field for `text`. Every keystroke sets the binding.
  TextField(LocalizedKey title, Binding<std::string> text);

  /// Runs `action` when the user presses Return in the field; without an action, Return does
  /// nothing. Comes before the modifiers, which return a `View`; the last one applied wins.
  TextField onSubmit(Action action) const&;
  TextField onSubmit(Action action) &&;
};

/// A column of its children, the first on top.
class VEMRA_EXPORT VStack : public View {
 public:
  /// `spacing` is the space between two neighbours, in points; an absent child takes none.
  VStack(HorizontalAlignment alignment, int spacing, Children children);
};

/// A row of its children, beginning at the leading edge. A child that does not fit the width begins
/// a further line, with the same spacing below the previous one, so that nothing is cut off.
class VEMRA_EXPORT HStack : public View {
 public:
  /// `spacing` is the space between two neighbours, in points; an absent child takes none.
  HStack(VerticalAlignment alignment, int spacing, Children children);
};

/// Groups views without laying them out, to apply modifiers to several views at once.
class VEMRA_EXPORT Group : public View {
 public:
  /// The children keep their slots in the group.
  explicit Group(Children children);
};

/// The direction in which a view scrolls.
enum class Axis { vertical };
/// Whether a scroll view shows a scroll bar.
enum class ScrollIndicators { hidden, shown };

/// A scrolling view of children that may need more space than the screen has; it stacks them
/// vertically, without spacing.
///
/// A page scrolls as a whole, so a ScrollView makes no scrolling area of its own: it is a column
/// that decides whether the page shows a scroll bar. Only one at the root has that effect, or one
/// reached from the root through views with one child each.
class VEMRA_EXPORT ScrollView : public View {
 public:
  /// The children from top to bottom.
  explicit ScrollView(Children children, Axis axis = Axis::vertical,
                      ScrollIndicators indicators = ScrollIndicators::shown);
};

/// One row for each element, described on request.
///
/// `elements` is copied and must be cheap to copy; `id` returns each element's id (a member
/// pointer, or a function that returns a reference or a string_view into the element); `row` makes
/// the view. Ids are compared under canonical equivalence; equal ids are distinguished by their
/// order.
class VEMRA_EXPORT ForEach : public View {
 public:
  /// Copies `elements`; `id` and `row` are called on the main thread, for the rows that are needed.
  template <class Elements, RowIDOf<Elements> ID, class Row>
  ForEach(Elements elements, ID id, Row row)
      : ForEach(std::make_shared<RowsOf<Elements, ID, Row>>(std::move(elements), std::move(id),
                                                            std::move(row))) {}
  /// Takes rows from a source, for lists that are not in memory.
  explicit ForEach(std::shared_ptr<const RowSource> rows);
};

/// Conditional content. Every branch is an identity of its own:
///
///     If(isEditing, [&] { return editor(); })
///         .elseIf(isRecorded, [&] { return summary(); })
///         .otherwise([&] { return startButton(); })
///
/// Without `otherwise`, a false condition shows nothing and keeps the slot. Only the taken branch
/// is made.
class VEMRA_EXPORT If : public View {
 public:
  /// Shows what `make` returns when the condition holds; otherwise `make` is not called.
  template <class Make>
  If(bool condition, Make make) {
    branch(condition, make);
  }

  /// Adds a branch that is taken when no earlier one is and its condition holds.
  template <class Make>
  If elseIf(bool condition, Make make) const {
    If next = *this;
    next.branch(condition, make);
    return next;
  }

  /// Adds the branch that is taken when no other one is.
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

/// Content for an optional value; an absent value keeps the slot.
template <class Value, class Make>
If IfPresent(const std::optional<Value>& value, Make make) {
  return If(value.has_value(), [&]() -> View { return make(*value); });
}

template <class Struct>
View ErasedComposite<Struct>::body(const std::shared_ptr<StateCell>& state,
                                   const Environment& environment) const {
  if constexpr (StatefulComposite<Struct>) {
    using State = LocalState<typename Struct::State>;
    const State local(std::static_pointer_cast<StateCellOf<typename Struct::State>>(state));
    if constexpr (HasBodyOf<Struct, State, Environment>) {
      return value_.body(local, environment);
    } else {
      return value_.body(local);
    }
  } else if constexpr (HasBodyOf<Struct, Environment>) {
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
