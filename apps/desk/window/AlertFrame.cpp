#include "apps/desk/window/AlertFrame.hpp"

#include <utility>

#include <QAccessibleWidget>

namespace vemra::desk {
namespace {

constexpr int millisecondsOfAMoment = 400;
/// Longer than a screen reader takes until it reads the name.
constexpr int millisecondsInTheTree = 5000;

QAccessibleInterface* makeAlert(const QString&, QObject* object) {
  auto* frame = qobject_cast<AlertFrame*>(object);
  return frame != nullptr ? new QAccessibleWidget(frame, QAccessible::Notification) : nullptr;
}

}  // namespace

AlertFrame::AlertFrame(QWidget* parent) : QFrame(parent) {
  static const bool installed = (QAccessible::installFactory(makeAlert), true);
  static_cast<void>(installed);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
}

void AlertFrame::announce(const QString& message, const QString& news) {
  const bool wasShown = !isHidden();
  setAccessibleName(message);
  show();
  if (wasShown) say(news);
}

void AlertFrame::rename(const QString& message) {
  setAccessibleName(message);
  if (isVisible()) say(message);
}

/// A screen reader reads a notification when it appears. It reads no name that changes later, and
/// Qt 6.4 does not send the event of an alert to the accessibility bus. So another notification
/// appears, with the news as its name.
void AlertFrame::say(const QString& news) {
  if (news.isEmpty()) return;
  if (!news_) news_ = new Announcement(this);
  news_->announce(news);
}

Announcement::Announcement(QWidget* parent) : AlertFrame(parent) {
  setFrameShape(QFrame::NoFrame);
  setAutoFillBackground(false);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  resize(1, 1);
  hide();
  moment_.setSingleShot(true);
  moment_.setInterval(millisecondsOfAMoment);
  connect(&moment_, &QTimer::timeout, this,
          [this] { announce(std::exchange(soon_, {}).join(QLatin1Char(' '))); });
  heard_.setSingleShot(true);
  heard_.setInterval(millisecondsInTheTree);
  connect(&heard_, &QTimer::timeout, this, &QWidget::hide);
}

void Announcement::announce(const QString& message) {
  heard_.stop();  // of the announcement before: this one may have to wait for its parent
  hide();
  AlertFrame::announce(message, {});
}

void Announcement::announceSoon(const QString& message) {
  soon_.append(message);
  if (!moment_.isActive()) moment_.start();  // not again: sentences may follow without an end
}

void Announcement::showEvent(QShowEvent* event) {
  AlertFrame::showEvent(event);
  heard_.start();
}

}  // namespace vemra::desk
