#pragma once

#include <QAccessible>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QString>

/// \file
/// How objects are named on the accessibility bus. Remove it together with the last other file of
/// this folder.

namespace vemra::qt::atspi {

/// The bus path of Qt's accessible objects; below it each object is named by its id.
inline const QString accessiblePath = QStringLiteral("/org/a11y/atspi/accessible");

/// The name of Qt's connection to the accessibility bus.
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
