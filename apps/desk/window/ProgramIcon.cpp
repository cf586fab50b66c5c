#include "apps/desk/window/ProgramIcon.hpp"

// The resources of a static library are linked only when the program uses Q_INIT_RESOURCE, which
// must be called outside any namespace.
static void bringInDeskIcons() {
  Q_INIT_RESOURCE(vemra_desk_icons);
}

namespace vemra::desk {

QIcon programIcon() {
  bringInDeskIcons();
  QIcon icon;
  for (const char* file :
       {":/vemra-desk-icons/org.vemra.Desk-48.png", ":/vemra-desk-icons/org.vemra.Desk-256.png"}) {
    icon.addFile(QLatin1String(file));
  }
  return icon;
}

}  // namespace vemra::desk
