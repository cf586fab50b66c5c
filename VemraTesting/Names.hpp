#pragma once

#include "VemraPlatform/ui/Modifier.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <string_view>

/// \file
/// The names of the view layer's values, as developers and tools write them.

namespace vemra::testing {

std::string_view name(ui::TextStyle style);
std::string_view name(ui::FontWeight weight);
std::string_view name(ui::ForegroundStyle style);
std::string_view name(ui::Edges edges);
std::string_view name(ui::ButtonStyle style);
std::string_view name(ui::PickerStyle style);
std::string_view name(ui::TextFieldStyle style);
std::string_view name(ui::HorizontalAlignment alignment);
std::string_view name(ui::VerticalAlignment alignment);

}  // namespace vemra::testing
