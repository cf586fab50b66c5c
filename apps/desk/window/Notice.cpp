#include "apps/desk/window/Notice.hpp"

#include "apps/desk/window/Localized.hpp"

#include <utility>

#include <QPushButton>

namespace vemra::desk {

Notice::Notice(QWidget* parent) : MessageFrame(MessageForm::bar, "desk.notice", parent) {
  again_ = addButton(localized("Try again"), "desk.notice.again", [this] {
    dismiss();
    const auto tryAgain = std::exchange(tryAgain_, nullptr);
    if (tryAgain) tryAgain();
  });
  addButton(localized("Dismiss"), "desk.notice.dismiss", [this] { dismiss(); });
}

void Notice::show(const QString& text, std::function<void()> again) {
  tryAgain_ = std::move(again);
  again_->setVisible(tryAgain_ != nullptr);
  setNextTabStop(tryAgain_ ? again_ : nullptr);
  setMessage(text);
}

}  // namespace vemra::desk
