#include "apps/desk/window/WholeTitles.hpp"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QScreen>

namespace vemra::desk {

void keepTitlesWhole(QMessageBox& box) {
  for (QAbstractButton* button : box.buttons()) button->setIcon({});
  constexpr int around = 48;  // the margins of the box, and the frame of the window manager
  auto* buttons = box.findChild<QDialogButtonBox*>();
  const int room = box.screen()->availableSize().width() - around;
  if (buttons->sizeHint().width() > room) buttons->setOrientation(Qt::Vertical);
}

}  // namespace vemra::desk
