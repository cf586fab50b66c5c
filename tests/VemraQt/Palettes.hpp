#pragma once

#include <QFont>
#include <QPalette>
#include <QPointer>
#include <QString>
#include <QStyle>

namespace vemra::qttest {

/// A system palette as users set it who need every edge and letter to stand out: white on black,
/// buttons as black as the page.
QPalette highContrast();

/// Puts the application's own style, palette and font back when it goes.
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
