#include "VemraQt/atspi/SelectionAnswers.hpp"

#include "VemraQt/atspi/BusReference.hpp"
#include "VemraQt/atspi/LaterQt.hpp"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

namespace vemra::qt::atspi {

namespace {

SelectionInterface* selectionOf(QAccessible::Id element) {
  return dynamic_cast<SelectionInterface*>(QAccessible::accessibleInterface(element));
}

}  // namespace

bool offersSelection(QAccessible::Id element) {
  return selectionOf(element) != nullptr;
}

int selectedChildren(QAccessible::Id element) {
  const SelectionInterface* selection = selectionOf(element);
  return selection ? selection->selectedItemCount() : 0;
}

bool answerSelection(const QDBusMessage& message, const QDBusConnection& connection,
                     QAccessible::Id element) {
  SelectionInterface* selection = selectionOf(element);
  if (!selection) return false;
  const auto reply = [&](const QVariant& answer) {
    return connection.send(message.createReply(answer));
  };
  const QString member = message.member();
  const int place = message.arguments().isEmpty() ? -1 : message.arguments().front().toInt();
  QAccessibleInterface* child = QAccessible::accessibleInterface(element)->child(place);
  const QList<QAccessibleInterface*> selected = selection->selectedItems();
  QAccessibleInterface* chosen = selected.value(place, nullptr);
  if (member == QLatin1String("GetSelectedChild")) {
    return reply(QVariant::fromValue(
        chosen ? busReference(connection, QAccessible::uniqueId(chosen)) : referenceToNothing()));
  }
  if (member == QLatin1String("IsChildSelected")) return reply(child && selected.contains(child));
  if (member == QLatin1String("SelectChild")) return reply(child && selection->select(child));
  if (member == QLatin1String("DeselectChild")) return reply(child && selection->unselect(child));
  if (member == QLatin1String("DeselectSelectedChild")) {
    return reply(chosen && selection->unselect(chosen));
  }
  if (member == QLatin1String("SelectAll")) return reply(selection->selectAll());
  if (member == QLatin1String("ClearSelection")) return reply(selection->clear());
  return false;
}

bool answerSelectionProperty(const QString& name, const QDBusMessage& message,
                             const QDBusConnection& connection, QAccessible::Id element) {
  const SelectionInterface* selection = selectionOf(element);
  if (name != QLatin1String("NSelectedChildren") || !selection) return false;
  const QDBusVariant count(selection->selectedItemCount());
  return connection.send(message.createReply(QVariant::fromValue(count)));
}

}  // namespace vemra::qt::atspi
