#include "apps/desk/window/ReadOnlyBar.hpp"

#include "apps/desk/window/Localized.hpp"

namespace vemra::desk {

ReadOnlyBar::ReadOnlyBar(QWidget* parent)
    : MessageFrame(MessageForm::bar, "desk.readOnly", parent) {
  addButton(localized("Open for recording"), "desk.readOnly.again",
            [this] { Q_EMIT tryAgainWanted(); });
}

void ReadOnlyBar::show(const QString& reason) {
  QString message =
      localized("This store is open for reading only. Nothing can be recorded in it.");
  if (!reason.isEmpty()) message += '\n' + reason;
  setMessage(message);
}

}  // namespace vemra::desk
