#pragma once

#include <QIcon>

namespace vemra::desk {

/// The program's own icon, also where it is not installed.
QIcon programIcon();

}  // namespace vemra::desk
