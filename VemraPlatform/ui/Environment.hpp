#pragma once

#include "VemraPlatform/Export.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vemra::ui {

/// Whether the page is light with dark text, or dark with light text.
enum class ColorScheme { light, dark };
/// The reading direction: on which side lines, columns and rows begin.
enum class LayoutDirection { leftToRight, rightToLeft };

/// Translations of the screen's own texts.
class VEMRA_EXPORT StringsTable {
 public:
  virtual ~StringsTable() = default;
  /// The translation of `key` (which may be ""), or nil when there is none and the key is shown.
  virtual std::optional<std::string> lookup(std::string_view key) const = 0;
};

/// The settings under which a tree is shown: an input of the tree, never a global.
///
/// Two trees in one process may have different languages. A body that needs the environment takes
/// it as an argument.
///
/// The default is fixed (en_US, UTC, no translations), so that tests and reproducible output do not
/// depend on the machine. It is not the user's environment: a `qt::ViewWidget` takes the system's;
/// a host without one passes `Environment::system()` with its own strings table.
struct VEMRA_EXPORT Environment {
  std::string locale = "en_US";  ///< an ICU locale identifier; decides how dates are written
  std::string timeZone = "UTC";  ///< a name of the tz database, or a POSIX rule as in TZ
  std::shared_ptr<const StringsTable> strings = {};  ///< none: every key is shown unchanged
  double textScale = 1.0;                        ///< the user's text size relative to the usual one
  ColorScheme colorScheme = ColorScheme::light;  ///< light or dark
  LayoutDirection layoutDirection = LayoutDirection::leftToRight;  ///< the side where lines begin

  /// Reads the user's locale and time zone from the system now; everything else has its default.
  static Environment system();

  friend bool operator==(const Environment&, const Environment&) = default;
};

}  // namespace vemra::ui
