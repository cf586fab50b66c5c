#pragma once

#include "VemraPlatform/ui/Tag.hpp"

#include <string>
#include <variant>

namespace vemra::ui {

/// \name Events
/// What a person can do to an element. @{
struct Press {};  ///< a button
struct Select {
  Tag tag;
};  ///< a picker
struct EditText {
  std::string text;
};                 ///< a text field; the whole new text
struct Submit {};  ///< the Return key in a text field
/// @}

using Event = std::variant<Press, Select, EditText, Submit>;

/// What became of an event.
enum class Delivery {
  acted,     ///< the element took it
  queued,    ///< another event is being handled; this one comes right after it
  gone,      ///< the element is no longer there
  disabled,  ///< the element is disabled
  refused,   ///< the element does not take such an event
};

}  // namespace vemra::ui
