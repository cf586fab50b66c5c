#pragma once

#include <QFont>
#include <QPalette>
#include <QPointer>
#include <QString>
#include <QStyle>

namespace vemra::qttest {

/// Restores the application's own style, palette and font in its destructor.
class AsBefore {
 public:
  AsBefore();
  ~AsBefore();
  AsBefore(const AsBefore&) = delete;
  AsBefore& operator=(const AsBefore&) = delete;

  const QString style;
  const QPalette palette;
  const QFont font;

 private:
  QPointer<QStyle> styleObject_;
};

}  // namespace vemra::qttest
