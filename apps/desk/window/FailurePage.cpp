#include "apps/desk/window/FailurePage.hpp"

#include "apps/desk/window/Localized.hpp"

namespace vemra::desk {

FailurePage::FailurePage(QWidget* parent)
    : MessageFrame(MessageForm::page, "desk.failure", parent) {
  setTitle(localized("The goal could not be loaded"));
  addButton(localized("Try again"), "desk.failure.again", [this] { Q_EMIT tryAgainWanted(); });
}

}  // namespace vemra::desk
