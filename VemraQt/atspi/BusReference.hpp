#pragma once

#include <QAccessible>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QString>

/// \file
/// How objects are named on the accessibility bus. Needed as long as any other file here is.

namespace vemra::qt::atspi {

/// Where Qt has its accessible objects on the bus; below it they are named by their ids.
inline const QString accessiblePath = QStringLiteral("/org/a11y/atspi/accessible");

/// What Qt calls its connection to the accessibility bus.
inline const QString accessibilityConnection = QStringLiteral("a11y");

/// An object of the bus, as AT-SPI names it.
struct BusReference {
  QString service;
  QDBusObjectPath path;
};

inline BusReference busReference(const QDBusConnection& connection, QAccessible::Id element) {
  return {connection.baseService(),
          QDBusObjectPath(accessiblePath + QLatin1Char('/') + QString::number(element))};
}

/// AT-SPI's reference to no object.
inline BusReference referenceToNothing() {
  return {QStringLiteral(""), QDBusObjectPath(QStringLiteral("/org/a11y/atspi/null"))};
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

}  // namespace vemra::qt::atspi
