#include "VemraQt/atspi/SelectionSignal.hpp"

#include "VemraQt/atspi/BusReference.hpp"
#include "VemraQt/atspi/IdentifierBus.hpp"
#include "VemraQt/atspi/LaterQt.hpp"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace vemra::qt::atspi {

void sendSelectionSignal(QAccessible::Id container) {
  if (qtSendsSelectionChanged || !areIdentifiersPublished()) return;
  const QDBusConnection connection(accessibilityConnection);
  const BusReference root{connection.baseService(),
                          QDBusObjectPath(accessiblePath + QStringLiteral("/root"))};
  const BusReference changed = busReference(connection, container);
  QDBusMessage signal =
      QDBusMessage::createSignal(changed.path.path(), QStringLiteral("org.a11y.atspi.Event.Object"),
                                 QStringLiteral("SelectionChanged"));
  signal << QString() << 0 << 0 << QVariant::fromValue(QDBusVariant(QVariant::fromValue(changed)))
         << QVariant::fromValue(root);
  connection.send(signal);
}

}  // namespace vemra::qt::atspi
