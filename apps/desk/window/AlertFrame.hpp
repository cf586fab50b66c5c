#pragma once

#include <QFrame>
#include <QStringList>
#include <QTimer>

namespace vemra::desk {

class Announcement;

/// A bar with a message: for assistive technology a notification, which a screen reader reads when
/// it appears. Its name is the message.
class AlertFrame : public QFrame {
  Q_OBJECT

 public:
  explicit AlertFrame(QWidget* parent = nullptr);

 protected:
  /// Shows the bar, with this message as its name. A screen reader reads the message when the bar
  /// appears, and `news` when the bar was visible before; "" says nothing then.
  void announce(const QString& message, const QString& news);
  /// The same for a frame that its parent shows and hides; the whole message is news, also in the
  /// words of the previous one.
  void rename(const QString& message);

 private:
  void say(const QString& news);

  Announcement* news_ = nullptr;  ///< made with the first news
};

/// A notification that is only heard: it takes no room and draws nothing. It is inside the widget
/// that it announces, and hides itself some seconds after it has appeared, so that no old
/// sentence stays in the accessible tree.
class Announcement : public AlertFrame {
  Q_OBJECT

 public:
  explicit Announcement(QWidget* parent);

  /// Announces a text, also one that was announced before. Before its parent is shown, a screen
  /// reader hears it when that is shown.
  void announce(const QString& message);
  /// Announces a text together with those that follow within a moment of the first: a screen reader
  /// reads the name of a notification some time after it has appeared, and would read the last of
  /// several names several times.
  void announceSoon(const QString& message);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QStringList soon_;
  QTimer moment_;  ///< runs since the first of `soon_`
  QTimer heard_;   ///< runs since the notification has appeared
};

}  // namespace vemra::desk
