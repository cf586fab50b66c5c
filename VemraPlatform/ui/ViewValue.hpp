#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Composite.hpp"
#include "VemraPlatform/ui/Modifier.hpp"

#include <concepts>
#include <functional>
#include <memory>
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
    return tag(Tag(std::move(value)));
  }
  /// The same for a value without a canonical text: `.tag(Tag(team, team.name))`.
  View tag(Tag tag) const { return View(*this).modified(TagModifier{std::move(tag)}); }
  /// Gives the view an explicit identity among its siblings, instead of its slot. Keys are compared
  /// under canonical equivalence.
  View id(std::string key) const;
  /// The same with the canonical text of a number, an enumerator or another value.
  template <HasCanonicalText Value>
  requires(!std::convertible_to<const Value&, std::string>) View id(const Value& value)
  const { return id(canonicalText(value)); }
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

}  // namespace vemra::ui
