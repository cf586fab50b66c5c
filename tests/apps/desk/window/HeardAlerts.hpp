#pragma once

#include "apps/desk/window/AlertFrame.hpp"

#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QEvent>
#include <QString>

namespace vemra::desk {

/// Records, while it lives, the notifications that appear: a screen reader reads the name of each.
/// Without the characters that isolate names.
class HeardAlerts : public QObject {
 public:
  HeardAlerts() { qApp->installEventFilter(this); }

  /// Those since the last call.
  std::vector<std::string> take() { return std::exchange(heard, {}); }

  std::vector<std::string> heard;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Show) return false;
    if (const auto* alert = qobject_cast<AlertFrame*>(watched)) {
      QString name = alert->accessibleName();
      heard.push_back(name.remove(QChar(0x2068)).remove(QChar(0x2069)).toStdString());
    }
    return false;
  }
};

}  // namespace vemra::desk
