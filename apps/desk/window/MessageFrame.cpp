#include "apps/desk/window/MessageFrame.hpp"

#include "apps/desk/window/NextTabStop.hpp"
#include "apps/desk/window/Pages.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/WrappingButton.hpp"
#include "apps/desk/window/WrappingRow.hpp"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vemra::desk {
namespace {

constexpr int abovePage = 24;
constexpr int fewestCharactersBesideButtons = 36;

}  // namespace

MessageFrame::MessageFrame(MessageForm form, const QString& name, QWidget* parent)
    : AlertFrame(parent),
      form_(form),
      message_(makeLabel({}, TextRole::body)),
      buttons_(new WrappingRow),
      tabStop_(new NextTabStop(*this)) {
  setObjectName(name);
  if (form_ == MessageForm::page) {
    setFrameShape(QFrame::NoFrame);
    setBackgroundRole(QPalette::Base);
    content_ = new QVBoxLayout(this);
    content_->setSpacing(8);
    content_->addWidget(message_);
    content_->addSpacing(10);
    content_->addLayout(buttons_);
    content_->addStretch(1);
  } else {
    content_ = new QHBoxLayout(this);
    content_->setContentsMargins(16, 8, 12, 8);
    content_->addWidget(message_, 1);
    content_->addLayout(buttons_);
    content_->setAlignment(buttons_, Qt::AlignTop);
    hide();
  }
}

void MessageFrame::setTitle(const QString& title) {
  title_ = title;
  content_->insertWidget(0, makeLabel(title, TextRole::title));
}

void MessageFrame::addRemark(const QString& remark) {
  content_->insertWidget(content_->indexOf(message_) + 1, makeLabel(remark, TextRole::quiet));
}

QPushButton* MessageFrame::addButton(const QString& title, const QString& name,
                                     std::function<void()> pressed) {
  auto* button = new WrappingButton(title);
  button->setObjectName(name);
  button->setAutoDefault(true);  // otherwise Return presses it on some desktops only
  connect(button, &QPushButton::clicked, this, std::move(pressed));
  buttons_->addWidget(button);
  return button;
}

void MessageFrame::setMessage(const QString& whole) {
  setMessage(whole, firstPiece(whole));
}

void MessageFrame::setMessage(const QString& whole, const QString& news) {
  const QString message = firstPiece(whole);
  message_->setText(message);
  if (form_ == MessageForm::page) {
    rename(title_ + ". " + message);
    return;
  }
  const bool isNews = isHidden() || !news.isEmpty();
  announce(message, news);
  placeButtons();
  if (!nextTabStop_) {
    tabStop_->forget();
  } else if (isNews) {
    tabStop_->expect(*nextTabStop_);
  }
}

void MessageFrame::dismiss() {
  tabStop_->giveBack();
  hide();
}

void MessageFrame::changeEvent(QEvent* event) {
  AlertFrame::changeEvent(event);
  switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
      arrange();
      break;
    default:
      break;
  }
}

void MessageFrame::resizeEvent(QResizeEvent* event) {
  AlertFrame::resizeEvent(event);
  arrange();
}

void MessageFrame::arrange() {
  form_ == MessageForm::page ? limitLines() : placeButtons();
}

void MessageFrame::limitLines() {
  const int besidePage = marginBesidePage(width());
  const int beyond = width() - besidePage - longestLine(*this);
  QMargins margins(besidePage, abovePage, std::max(besidePage, beyond), abovePage);
  if (isRightToLeft()) margins = {margins.right(), abovePage, margins.left(), abovePage};
  content_->setContentsMargins(margins);
}

void MessageFrame::placeButtons() {
  const int text = fewestCharactersBesideButtons * fontMetrics().averageCharWidth();
  placeBesideOrBelow(*content_, *buttons_, width(), text);
}

}  // namespace vemra::desk
