#pragma once

#include "VemraPlatform/ui/Tag.hpp"

#include <functional>
#include <utility>

namespace vemra::ui {

/// A way to a value that lives elsewhere: read it, write it.
///
/// What a picker or a text field is given in place of a value of its own.
template <class Value>
class Binding {
 public:
  Binding(std::function<Value()> get, std::function<void(Value)> set)
      : get_(std::move(get)), set_(std::move(set)) {}

  Value get() const { return get_(); }
  void set(Value value) const { set_(std::move(value)); }

 private:
  std::function<Value()> get_;
  std::function<void(Value)> set_;
};

/// The same place seen as a tag. Writing a tag that holds another type changes nothing.
template <Choice Value>
Binding<Tag> asTag(Binding<Value> binding) {
  return Binding<Tag>([binding] { return Tag(binding.get()); },
                      [binding](const Tag& tag) {
                        if (const Value* value = tag.as<Value>()) binding.set(*value);
                      });
}

}  // namespace vemra::ui
