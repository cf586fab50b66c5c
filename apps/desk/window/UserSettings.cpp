#include "apps/desk/window/UserSettings.hpp"

namespace vemra::desk {

QSettings userSettings() {
  return QSettings(QSettings::NativeFormat, QSettings::UserScope, "vemra", "vemra-desk");
}

}  // namespace vemra::desk
