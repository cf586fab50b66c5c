#pragma once

#include "VemraPlatform/ui/Tag.hpp"

#include <functional>
#include <utility>

namespace vemra::ui {

/// Reads and writes a value that lives elsewhere.
///
/// A picker or a text field gets a binding instead of a value of its own.
template <class Value>
class Binding {
 public:
  /// Makes a binding from a function that reads the value and one that writes it. Both run on the
  /// main thread.
  Binding(std::function<Value()> get, std::function<void(Value)> set)
      : get_(std::move(get)), set_(std::move(set)) {}

  /// Reads the value.
  Value get() const { return get_(); }
  /// Writes the value; when it belongs to a view, the view is described again.
  void set(Value value) const { set_(std::move(value)); }

 private:
  std::function<Value()> get_;
  std::function<void(Value)> set_;
};

/// The same binding with the value as the tag that `tagOf` makes of it. Writing a tag of another
/// type changes nothing.
template <ChoiceValue Value, class TagOf>
Binding<Tag> asTag(Binding<Value> binding, TagOf tagOf) {
  return Binding<Tag>([binding, tagOf] { return tagOf(binding.get()); },
                      [binding](const Tag& tag) {
                        if (const Value* value = tag.as<Value>()) binding.set(*value);
                      });
}

/// The same binding with the value as a tag.
template <Choice Value>
Binding<Tag> asTag(Binding<Value> binding) {
  return asTag(std::move(binding), [](Value value) { return Tag(std::move(value)); });
}

}  // namespace vemra::ui
