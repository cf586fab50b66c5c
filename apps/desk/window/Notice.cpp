#include "apps/desk/window/Notice.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <utility>

#include <QHBoxLayout>
#include <QPushButton>

namespace vemra::desk {

Notice::Notice(QWidget* parent) : AlertFrame(parent), label_(makeLabel({}, TextRole::body)) {
  setObjectName("desk.notice");
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(16, 8, 12, 8);
  row->addWidget(label_, 1);
  again_ = new QPushButton(localized("Try again"));
  again_->setObjectName("desk.notice.again");
  auto* dismiss = new QPushButton(localized("Dismiss"));
  dismiss->setObjectName("desk.notice.dismiss");
  row->addWidget(again_);
  row->addWidget(dismiss);
  connect(dismiss, &QPushButton::clicked, this, &QWidget::hide);
  connect(again_, &QPushButton::clicked, this, [this] {
    hide();
    const auto tryAgain = std::exchange(tryAgain_, nullptr);
    if (tryAgain) tryAgain();
  });
  hide();
}

void Notice::show(const QString& text, std::function<void()> again) {
  const QString shown = firstPiece(text);
  label_->setText(shown);
  tryAgain_ = std::move(again);
  again_->setVisible(tryAgain_ != nullptr);
  announce(shown);
}

}  // namespace vemra::desk
