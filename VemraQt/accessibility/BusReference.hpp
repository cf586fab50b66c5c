#pragma once

#include <QAccessible>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QString>

namespace vemra::qt {

/// Where Qt has its accessible objects on the bus; below it they are named by their ids.
inline const QString accessiblePath = QStringLiteral("/org/a11y/atspi/accessible");

/// An object of the bus, as AT-SPI names it.
struct BusReference {
  QString service;
  QDBusObjectPath path;
};

inline BusReference busReference(const QDBusConnection& connection, QAccessible::Id element) {
  return {connection.baseService(),
          QDBusObjectPath(accessiblePath + QLatin1Char('/') + QString::number(element))};
}

inline QDBusArgument& operator<<(QDBusArgument& argument, const BusReference& reference) {
  argument.beginStructure();
  argument << reference.service << reference.path;
  argument.endStructure();
  return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, BusReference& reference) {
  argument.beginStructure();
  argument >> reference.service >> reference.path;
  argument.endStructure();
  return argument;
}

}  // namespace vemra::qt
