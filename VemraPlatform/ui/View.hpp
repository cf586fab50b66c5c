#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Binding.hpp"
#include "VemraPlatform/ui/Conditional.hpp"
#include "VemraPlatform/ui/Label.hpp"
#include "VemraPlatform/ui/RowSource.hpp"
#include "VemraPlatform/ui/ViewValue.hpp"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace vemra::ui {

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
  /// Shows a label, which is one or the other.
  explicit Text(Label label);
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

/// A function that makes the label of a choice: a `LocalizedKey`, or a text through `verbatim`.
template <class MakeLabel, class Value>
concept ChoiceLabelOf = requires(const MakeLabel& label, const Value& value) {
  { std::invoke(label, value) } -> std::convertible_to<Label>;
};

/// A choice among tagged rows, shown as a menu. Its title is shown before the choice, unless
/// `labelsHidden` hides it.
class VEMRA_EXPORT Picker : public View {
 public:
  /// A picker of values. The views in `content` with a `tag` of the same type are its choices.
  template <Choice Value>
  Picker(LocalizedKey title, Binding<Value> selection, Children content)
      : Picker(title, asTag(std::move(selection)), std::move(content)) {}
  /// The same with tags of any type.
  Picker(LocalizedKey title, Binding<Tag> selection, Children content);

  /// A picker of `values`, each shown as its label:
  ///
  ///     Picker("Team", state.binding(&State::team), teams,
  ///            [](const Team& team) { return verbatim(team.name); })
  ///
  /// The values need `==` only. The name of a choice in reports and tests is its canonical text if
  /// it has one, else its label without translation. A plain enumerator, whose text would be its
  /// number, has the name of its label.
  template <ChoiceValue Value, class Values, class MakeLabel>
  Picker(LocalizedKey title, Binding<Value> selection, const Values& values, MakeLabel label)
      : Picker(title, asTag(std::move(selection), tagsLabelled<Value>(label)),
               choices<Value>(values, label)) {}
  /// The same with the values in braces.
  template <ChoiceValue Value, class MakeLabel>
  Picker(LocalizedKey title, Binding<Value> selection,
         std::initializer_list<std::type_identity_t<Value>> values, MakeLabel label)
      : Picker(title, asTag(std::move(selection), tagsLabelled<Value>(label)),
               choices<Value>(values, label)) {}

 private:
  /// The label of a value; stops the compiler with the reason when `make` makes none.
  template <class Value, class MakeLabel>
  static Label labelOf(const MakeLabel& make, const Value& value) {
    constexpr bool isLabel = ChoiceLabelOf<MakeLabel, Value>;
    static_assert(isLabel,
                  "the label of a choice is a LocalizedKey, or a text that is shown unchanged: "
                  "verbatim(text)");
    if constexpr (isLabel) {
      return Label(std::invoke(make, value));
    } else {
      return Label(LocalizedKey(""));
    }
  }
  /// A function that makes the tag of a value.
  template <class Value, class MakeLabel>
  static auto tagsLabelled(const MakeLabel& label) {
    if constexpr (HasCanonicalText<Value> && !PlainEnumerator<Value>) {
      return [](Value value) { return Tag(std::move(value)); };
    } else {
      return [label](Value value) {
        std::string name = labelOf<Value>(label, value).source();
        return Tag(std::move(value), std::move(name));
      };
    }
  }
  template <class Value, class Values, class MakeLabel>
  static Children choices(const Values& values, const MakeLabel& label) {
    Children rows;
    for (const Value& value : values) {
      rows.push_back(Text(labelOf<Value>(label, value)).tag(tagsLabelled<Value>(label)(value)));
    }
    return rows;
  }
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

/// A row of its children, beginning at the leading edge. Text fields take the room that the other
/// children leave, and give it back. Only when even the narrowest fields leave too little room, the
/// next child begins a further line, with the same spacing below the previous one, so that nothing
/// is cut off.
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

/// One row for each element, described on request:
///
///     ForEach(contacts, &Contact::id, [](const Contact& each) { return ContactRow{each}; })
///
/// The list takes `elements` over without copying one of them; the type or the call says how:
///
///     a SharedArray              shares its elements
///     a std::span                refers to elements that outlive the list, so not to a member of
///                                the view, which ends with the view
///     std::move(v), or a result  is moved into the list (a std::vector, a std::array, …)
///     std::vector(v)             copies every element, on purpose
///
/// `id` returns an element's id: a text, a whole number, an enumerator, or a value with an `idText`
/// (CanonicalText.hpp). A text in the element costs nothing; of other ids the list keeps the texts
/// that it has needed. Ids are compared under canonical equivalence; equal ids are distinguished by
/// their order. `row` makes the view, and may refer to the element as long as the view lives in the
/// list.
class VEMRA_EXPORT ForEach : public View {
 public:
  /// `id` and `row` are called on the main thread, for the rows that are needed.
  ///
  /// With `IdentifiersInRows::containRowID` the host promises that every accessibility identifier
  /// in a row contains the text of the row's id, byte for byte. A search for an identifier then
  /// describes only the rows whose id the identifier contains, and one that is missing costs no
  /// more than one that is there. A row that breaks the promise is shown as ever, but a search for
  /// its identifier does not find it; so a host that composes identifiers by hand must put in the
  /// unchanged id, not a shortened, escaped, normalized or differently cased one.
  template <class Elements, class ID, class Row>
  ForEach(Elements&& elements, ID id, Row row,
          IdentifiersInRows identifiers = IdentifiersInRows::any)
      : ForEach(
            rowsOf(std::forward<Elements>(elements), std::move(id), std::move(row), identifiers)) {
    using Range = std::remove_cvref_t<Elements>;
    static_assert(StoresElements<Range>, "a list needs a range that stores its elements");
    constexpr bool isConst = std::is_const_v<std::remove_reference_t<Elements>>;
    static_assert(CopiesNoElement<Elements> || isConst,
                  "this would copy every element of the range: share the elements (SharedArray), "
                  "refer to them (std::span), move the range (std::move), or copy it on purpose "
                  "(std::vector(range))");
    static_assert(CopiesNoElement<Elements> || !isConst,
                  "this would copy every element of a range that is const, such as a member of a "
                  "view in its body, and a const range cannot be moved: keep the elements in a "
                  "SharedArray, or copy them on purpose (std::vector(range))");
    static_assert(RowIDOf<ID, Range>,
                  "the id of a row is a text, a whole number, an enumerator, or a value with a "
                  "function std::string idText(const Value&) beside its type");
    static_assert(RowViewOf<Row, Range>,
                  "the row of a list is a view: return one from the function, such as "
                  "Text(verbatim(text))");
  }
  /// Takes rows from a source, for lists that are not in memory.
  explicit ForEach(std::shared_ptr<const RowSource> rows);

 private:
  template <class Elements, class ID, class Row>
  static std::shared_ptr<const RowSource> rowsOf(Elements&& elements, ID id, Row row,
                                                 IdentifiersInRows identifiers) {
    using Range = std::remove_cvref_t<Elements>;
    if constexpr (StoresElements<Range> && CopiesNoElement<Elements> && RowIDOf<ID, Range> &&
                  RowViewOf<Row, Range>) {
      return std::make_shared<RowsOf<Range, ID, Row>>(std::forward<Elements>(elements),
                                                      std::move(id), std::move(row), identifiers);
    } else {
      return nullptr;
    }
  }
};

template <class Elements, class ID, class Row>
View RowsOf<Elements, ID, Row>::row(std::size_t index) const {
  return row_(elements_[index]);
}

}  // namespace vemra::ui
