#pragma once

#include <any>
#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace vemra::ui {

/// A type whose values can be choices: copyable, with a name from `caseName`.
template <class Value>
concept Choice = std::copyable<Value> && requires(const Value& value) {
  { caseName(value) } -> std::convertible_to<std::string_view>;
};

class Tag;

/// A choice that is not itself a tag; checked first, so that copying a tag never depends on
/// `Choice`.
template <class Value>
concept Taggable = !std::same_as<Value, Tag> && Choice<Value>;

/// The value that a picker's row represents: a value of the picker's own type, and its name.
class Tag {
 public:
  /// Makes a tag from a value of any type with `==` and a name.
  template <Taggable Value>
  explicit Tag(Value value) : name_(caseName(value)), value_(std::move(value)) {}

  /// The name of the value in reports and tests.
  const std::string& name() const { return name_; }

  /// The value, or nullptr when the tag holds another type.
  template <class Value>
  const Value* as() const {
    return std::any_cast<Value>(&value_);
  }

  /// Tags are equal when their types and names are equal.
  friend bool operator==(const Tag& a, const Tag& b) {
    return a.name_ == b.name_ && a.value_.type() == b.value_.type();
  }

 private:
  std::string name_;
  std::any value_;
};

}  // namespace vemra::ui
