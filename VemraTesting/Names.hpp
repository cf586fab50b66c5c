#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Modifier.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <string_view>

/// \file
/// The names of the view layer's values, as developers and tools write them.

namespace vemra::testing {

/// The name of a value as outlines and reports write it. The text is static.
VEMRA_EXPORT std::string_view name(ui::TextStyle style);
VEMRA_EXPORT std::string_view name(ui::FontWeight weight);
VEMRA_EXPORT std::string_view name(ui::ForegroundStyle style);
VEMRA_EXPORT std::string_view name(ui::Edges edges);
VEMRA_EXPORT std::string_view name(ui::ButtonStyle style);
VEMRA_EXPORT std::string_view name(ui::PickerStyle style);
VEMRA_EXPORT std::string_view name(ui::TextFieldStyle style);
VEMRA_EXPORT std::string_view name(ui::HorizontalAlignment alignment);
VEMRA_EXPORT std::string_view name(ui::VerticalAlignment alignment);

}  // namespace vemra::testing
