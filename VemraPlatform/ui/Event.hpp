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

/// The result of delivering an event.
enum class Delivery {
  acted,     ///< the element handled it
  queued,    ///< another event is being handled; the graph handles this one next
  gone,      ///< the element is no longer there
  disabled,  ///< the element is disabled
  refused,   ///< the element does not accept this kind of event
};

}  // namespace vemra::ui
