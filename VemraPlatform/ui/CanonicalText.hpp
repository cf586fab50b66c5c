#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

/// \file
/// Texts that identify values: the ids of rows, and the names of choices.

namespace vemra::ui {

/// A type with a function `caseName(value)` beside it: an enumeration whose cases have names.
template <class Value>
concept HasCaseName = requires(const Value& value) {
  { caseName(value) } -> std::convertible_to<std::string_view>;
};

/// A type with a function `idText(value)` beside it. Equal values have the same text, other values
/// have another:
///
///     struct UUID { … };
///     std::string idText(const UUID& uuid);
template <class Value>
concept HasIDText = requires(const Value& value) {
  { idText(value) } -> std::convertible_to<std::string_view>;
};

/// An enumeration without a text of its own.
template <class Value>
concept PlainEnumerator = std::is_enum_v<Value> && !HasIDText<Value> && !HasCaseName<Value>;

/// A whole number; neither a truth value nor a character.
template <class Value>
concept WholeNumber = std::integral<Value> && !std::same_as<Value, bool> && requires(Value value) {
  std::to_string(value);
}
&&!std::same_as<Value, char> && !std::same_as<Value, wchar_t> && !std::same_as<Value, char8_t> &&
    !std::same_as<Value, char16_t> && !std::same_as<Value, char32_t>;

/// A value with a canonical text: a text, a whole number, an enumerator, or a value with an
/// `idText` or a `caseName`.
template <class Value>
concept HasCanonicalText = HasIDText<Value> || HasCaseName<Value> || WholeNumber<Value> ||
    std::is_enum_v<Value> || std::convertible_to<const Value&, std::string_view>;

/// The canonical text of a value: from `idText`, else from `caseName`, else the text itself, or the
/// number, of an enumerator too.
template <HasCanonicalText Value>
std::string canonicalText(const Value& value) {
  if constexpr (HasIDText<Value>) {
    return std::string(std::string_view(idText(value)));
  } else if constexpr (HasCaseName<Value>) {
    return std::string(std::string_view(caseName(value)));
  } else if constexpr (std::is_enum_v<Value>) {
    return std::to_string(static_cast<std::underlying_type_t<Value>>(value));
  } else if constexpr (WholeNumber<Value>) {
    return std::to_string(value);
  } else {
    return std::string(std::string_view(value));
  }
}

}  // namespace vemra::ui
