#include "apps/inspect/Picture.hpp"

namespace vemra::inspect {

DrawPicture pictureDrawer() {
  return {};
}

}  // namespace vemra::inspect
