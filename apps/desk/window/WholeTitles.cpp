#include "apps/desk/window/WholeTitles.hpp"

#include <algorithm>

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QScreen>

namespace vemra::desk {

int widestBox(int screen) {
  return screen <= 1024 ? screen : std::min(screen - 480, 1000);
}

void keepTitlesWhole(QMessageBox& box) {
  for (QAbstractButton* button : box.buttons()) button->setIcon({});
  constexpr int around = 48;  // the margins of the box, and the frame of the window manager
  auto* buttons = box.findChild<QDialogButtonBox*>();
  const int room = widestBox(box.screen()->availableSize().width()) - around;
  if (buttons->sizeHint().width() > room) buttons->setOrientation(Qt::Vertical);
}

}  // namespace vemra::desk
