#pragma once

#include "VemraPlatform/ui/View.hpp"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// \file
/// A host with a view of its own, for the program on the page docs/gallery.md.

struct Contact {
  std::string name;
};

/// A button with the name; an editor when it has been pressed.
struct Card {
  static constexpr std::string_view name = "Card";
  struct State {
    bool isEdited = false;
    friend bool operator==(const State&, const State&) = default;
  };

  explicit Card(Contact shown) : contact(std::move(shown)) {}

  vemra::ui::View body(const vemra::ui::LocalState<State>& state) const {
    using namespace vemra::ui;
    if (state->isEdited) return Text(verbatim("Editing " + contact.name));
    return Button(verbatim(contact.name), [state] { state.set(&State::isEdited, true); })
        .accessibilityIdentifier("card.edit");
  }

  Contact contact;
};

inline const Contact ada{"Ada"};
inline const Contact longName{"Maximiliane-Friederike Rosenbaum-Oberhuber von und zu Tannenwald"};
inline const std::shared_ptr<const vemra::ui::StringsTable> germanTexts;
