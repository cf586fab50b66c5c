#pragma once

#include "VemraPlatform/ui/Event.hpp"
#include "VemraRecording/Call.hpp"
#include "VemraRecording/ElementName.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// \file
/// The steps of a case as JSON texts.

namespace vemra::recording {

/// An event for the element of that name; `index` is written where it is not 0.
std::string eventStep(const ElementName& name, const ui::Event& event);
/// A result, a document's text, shown on the present screen or on that one.
std::string resultStep(std::string_view document, std::optional<std::size_t> screen);
/// The screen of that number is shown again.
std::string screenStep(std::size_t number);
/// A call that the steps so far have made.
std::string callStep(const Call& call);

}  // namespace vemra::recording
