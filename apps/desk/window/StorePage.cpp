#include "apps/desk/window/StorePage.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/Reasons.hpp"

#include <QPushButton>

namespace vemra::desk {

StorePage::StorePage(QWidget* parent) : MessageFrame(MessageForm::page, "desk.store", parent) {
  setTitle(localized("This store cannot be opened"));
  addRemark(localized("Nothing in it was changed."));
  addButton(localized("Open another store…"), "desk.store.another",
            [this] { Q_EMIT anotherWanted(); });
  read_ = addButton(localized("Open for reading only"), "desk.store.read",
                    [this] { Q_EMIT readingWanted(); });
  addButton(localized("Try again"), "desk.store.again", [this] { Q_EMIT tryAgainWanted(); });
}

void StorePage::setProblem(const StoreOpening& opening) {
  read_->setVisible(opening.mayBeRead);
  setMessage(localizedReason(fromUTF8(opening.problem)));
}

}  // namespace vemra::desk
