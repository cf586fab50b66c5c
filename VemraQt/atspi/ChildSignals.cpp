#include "VemraQt/atspi/ChildSignals.hpp"

#include "VemraQt/atspi/BusReference.hpp"
#include "VemraQt/atspi/IdentifierBus.hpp"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

namespace vemra::qt::atspi {

namespace {

void send(QAccessible::Id parent, const QString& what, int index, QAccessible::Id child) {
  const QDBusConnection connection(accessibilityConnection);
  const BusReference root{connection.baseService(),
                          QDBusObjectPath(accessiblePath + QStringLiteral("/root"))};
  const BusReference changed = child ? busReference(connection, child) : referenceToNothing();
  QDBusMessage signal = QDBusMessage::createSignal(busReference(connection, parent).path.path(),
                                                   QStringLiteral("org.a11y.atspi.Event.Object"),
                                                   QStringLiteral("ChildrenChanged"));
  signal << what << index << 0 << QVariant::fromValue(QDBusVariant(QVariant::fromValue(changed)))
         << QVariant::fromValue(root);
  connection.send(signal);
}

}  // namespace

bool sendsChildSignals() {
  return areIdentifiersPublished();
}

void sendChildSignal(QAccessible::Id parent, const ChildChange& change) {
  const QString remove = QStringLiteral("remove"), add = QStringLiteral("add");
  switch (change.kind) {
    case ChildChange::Kind::removed:
      send(parent, remove, static_cast<int>(change.index), change.child);
      break;
    case ChildChange::Kind::added:
      send(parent, add, static_cast<int>(change.index), change.child);
      break;
    case ChildChange::Kind::unlisted:
      send(parent, remove, -1, 0);
      send(parent, add, -1, change.child);
      break;
  }
}

}  // namespace vemra::qt::atspi
