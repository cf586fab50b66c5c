#pragma once

#include "VemraPlatform/Export.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vemra::ui {

enum class ColorScheme { light, dark };
enum class LayoutDirection { leftToRight, rightToLeft };

/// Translations of the screen's own texts.
class VEMRA_EXPORT StringsTable {
 public:
  virtual ~StringsTable() = default;
  /// The translation of `key` (which may be ""), or nil when there is none and the key is shown.
  virtual std::optional<std::string> lookup(std::string_view key) const = 0;
};

/// What a tree is shown in: an input of the tree, never a global.
///
/// Two trees in one process may be in two languages. A body that needs it takes it as an argument.
///
/// A default one is fixed (en_US, UTC, no translations), so that tests and reproducible output do
/// not turn on the machine they run on. It is not the user's: a host that shows a screen hands in
/// `Environment::system()`, with its own strings table.
struct VEMRA_EXPORT Environment {
  std::string locale = "en_US";  ///< an ICU locale identifier; decides how dates are written
  std::string timeZone = "UTC";  ///< a name of the tz database, or a POSIX rule as in TZ
  std::shared_ptr<const StringsTable> strings;  ///< none: every key is shown as it is
  double textScale = 1.0;  ///< how much larger than usual the user wants text; 1: as usual
  ColorScheme colorScheme = ColorScheme::light;
  LayoutDirection layoutDirection = LayoutDirection::leftToRight;

  /// The user's own locale and time zone, asked of the system now; all else as by default.
  static Environment system();

  friend bool operator==(const Environment&, const Environment&) = default;
};

}  // namespace vemra::ui
