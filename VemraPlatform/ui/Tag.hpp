#pragma once

#include "VemraPlatform/ui/CanonicalText.hpp"

#include <any>
#include <concepts>
#include <string>
#include <type_traits>
#include <utility>

namespace vemra::ui {

class Tag;

/// A type whose values can be compared as the values of a picker.
template <class Value>
concept ChoiceValue =
    !std::same_as<Value, Tag> && !std::is_pointer_v<Value> && std::copyable<Value> &&
    (std::equality_comparable<Value> || HasCaseName<Value>);

/// A type whose values can be choices by themselves: copyable, with a name, which is the canonical
/// text, and with `==`, unless `caseName` gives the name.
template <class Value>
concept Choice = ChoiceValue<Value> && HasCanonicalText<Value>;

/// The value that a picker's row represents: a value of the picker's own type, and its name.
class Tag {
 public:
  /// Makes a tag whose name is the canonical text of the value.
  template <Choice Value>
  explicit Tag(Value value) : Tag(std::move(value), Name{canonicalText(value)}) {}

  /// Makes a tag of a value without a canonical text. Reports, recordings and tests find the choice
  /// by `name`, so it should differ from those of the other choices.
  template <ChoiceValue Value>
  Tag(Value value, std::string name) : Tag(std::move(value), Name{std::move(name)}) {}

  /// The name of the value in reports and tests.
  const std::string& name() const { return name_; }

  /// The value, or nullptr when the tag holds another type.
  template <class Value>
  const Value* as() const {
    return std::any_cast<Value>(&value_);
  }

  /// Tags are equal when their types and values are equal; values without `==` are equal when their
  /// names are.
  friend bool operator==(const Tag& a, const Tag& b) {
    return a.value_.type() == b.value_.type() && a.isSame_(a, b);
  }

 private:
  struct Name {
    std::string text;
  };

  // By reference, so that the name is made before the value is moved.
  template <class Value>
  Tag(Value&& value, Name name)
      : name_(std::move(name.text)), value_(std::forward<Value>(value)), isSame_(&isSame<Value>) {}

  /// Both tags hold a `Value`.
  template <class Value>
  static bool isSame(const Tag& a, const Tag& b) {
    if constexpr (std::equality_comparable<Value>) {
      const Value *first = a.as<Value>(), *second = b.as<Value>();
      return first && second ? *first == *second : first == second;
    } else {
      return a.name_ == b.name_;
    }
  }

  std::string name_;
  std::any value_;
  bool (*isSame_)(const Tag&, const Tag&);
};

}  // namespace vemra::ui
