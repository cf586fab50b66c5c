#include "VemraQt/accessibility/SelectionAnswers.hpp"

#include "VemraQt/accessibility/BusReference.hpp"

#include <vector>

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

namespace vemra::qt {

namespace {

std::vector<QAccessibleInterface*> chosenChildren(QAccessibleInterface& holder) {
  std::vector<QAccessibleInterface*> chosen;
  for (int i = 0; i < holder.childCount(); ++i) {
    QAccessibleInterface* child = holder.child(i);
    if (child && child->state().selected) chosen.push_back(child);
  }
  return chosen;
}

bool choose(QAccessibleInterface* child) {
  QAccessibleActionInterface* actions = child ? child->actionInterface() : nullptr;
  if (!actions || child->state().disabled) return false;
  actions->doAction(QAccessibleActionInterface::pressAction());
  return true;
}

}  // namespace

bool offersSelection(QAccessible::Id element) {
  QAccessibleInterface* interface = QAccessible::accessibleInterface(element);
  return interface && interface->role() == QAccessible::ComboBox;
}

bool answerSelection(const QDBusMessage& message, const QDBusConnection& connection,
                     QAccessible::Id element) {
  if (!offersSelection(element)) return false;
  QAccessibleInterface& holder = *QAccessible::accessibleInterface(element);
  const QString member = message.member();
  const int place = message.arguments().isEmpty() ? -1 : message.arguments().front().toInt();
  if (member == QLatin1String("GetSelectedChild")) {
    const auto chosen = chosenChildren(holder);
    const bool isThere = place >= 0 && place < static_cast<int>(chosen.size());
    const BusReference child =
        isThere ? busReference(connection,
                               QAccessible::uniqueId(chosen[static_cast<std::size_t>(place)]))
                : referenceToNothing();
    return connection.send(message.createReply(QVariant::fromValue(child)));
  }
  if (member == QLatin1String("IsChildSelected")) {
    QAccessibleInterface* child = holder.child(place);
    return connection.send(message.createReply(child && child->state().selected));
  }
  if (member == QLatin1String("SelectChild")) {
    return connection.send(message.createReply(choose(holder.child(place))));
  }
  // There is always one choice: it can be replaced, but neither taken away nor added to.
  for (const char* refused :
       {"DeselectSelectedChild", "DeselectChild", "SelectAll", "ClearSelection"}) {
    if (member == QLatin1String(refused)) return connection.send(message.createReply(false));
  }
  return false;
}

bool answerSelectionProperty(const QString& name, const QDBusMessage& message,
                             const QDBusConnection& connection, QAccessible::Id element) {
  if (name != QLatin1String("NSelectedChildren") || !offersSelection(element)) return false;
  const auto chosen = chosenChildren(*QAccessible::accessibleInterface(element));
  const QDBusVariant count(static_cast<int>(chosen.size()));
  return connection.send(message.createReply(QVariant::fromValue(count)));
}

}  // namespace vemra::qt
