#pragma once

#include <QSettings>

namespace vemra::desk {

/// What the desk keeps about its user between two starts; for this program only, whatever name the
/// application has.
QSettings userSettings();

}  // namespace vemra::desk
