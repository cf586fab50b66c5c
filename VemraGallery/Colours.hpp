#pragma once

#include "VemraPlatform/ui/Environment.hpp"

#include <array>

#include <QPalette>

namespace vemra::gallery {

/// The colours in which a gallery shows its specimens. High contrast is dark, with a palette of its
/// own.
enum class Colours { light, dark, highContrast };

inline constexpr std::array<Colours, 3> allColours{Colours::light, Colours::dark,
                                                   Colours::highContrast};

ui::ColorScheme schemeOf(Colours colours);

/// Gives the application the palette of the colours; restores the system's in its destructor.
class PaletteSwitch {
 public:
  PaletteSwitch();
  ~PaletteSwitch() { set(Colours::light); }
  PaletteSwitch(const PaletteSwitch&) = delete;
  PaletteSwitch& operator=(const PaletteSwitch&) = delete;

  /// Light and dark keep the system's palette, from which a view makes its own.
  void set(Colours colours);

 private:
  const QPalette system_;
};

}  // namespace vemra::gallery
