#pragma once

#include "VemraPlatform/ui/Tag.hpp"

#include <string>
#include <variant>

namespace vemra::ui {

/// \name Events
/// The actions of a user on an element. `ViewGraph::deliver` looks up the element's handler when it
/// handles the event, and refuses an event that the kind of element does not accept. @{

/// Presses a button: runs its action, if it has one.
struct Press {};
/// Chooses in a picker: sets its selection to the tag. The graph does not check that the picker has
/// such a choice; a tag of another type than the selection's has no effect.
struct Select {
  Tag tag;  ///< the tag of the chosen row
};
/// Replaces the whole text of a text field, byte for byte. The graph checks neither the length nor
/// that the text is well-formed UTF-8. A view may refuse it: then the element keeps its text and no
/// update is sent.
struct EditText {
  std::string text;  ///< the whole text of the field after the edit
};
/// The Return key in a text field: runs its `onSubmit` action, if it has one. The field's text is
/// what the last `EditText` wrote.
struct Submit {};
/// @}

/// What a renderer reports: exactly one of these.
using Event = std::variant<Press, Select, EditText, Submit>;

/// The result of delivering an event.
enum class Delivery {
  acted,   ///< the element handled it
  queued,  ///< the graph is busy (an event, a pass, `apply`); it handles this event later, in order
  gone,    ///< the element is no longer there
  disabled,  ///< the element is disabled
  refused,   ///< the element does not accept this kind of event
};

}  // namespace vemra::ui
