#include "VemraQt/atspi/PropertyAnswers.hpp"

#include "VemraQt/atspi/BusReference.hpp"
#include "VemraQt/atspi/LaterQt.hpp"
#include "VemraQt/atspi/SelectionAnswers.hpp"

#include <QAccessibleInterface>
#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QVariantMap>

namespace vemra::qt::atspi {

namespace {

/// A text that is never null: a null one has no form on the bus.
QString shown(const QString& text) {
  return text.isNull() ? QStringLiteral("") : text;
}

BusReference parentOf(const QAccessibleInterface& object, const QDBusConnection& connection) {
  QAccessibleInterface* parent = object.parent();
  if (!parent || !parent->isValid()) return referenceToNothing();
  if (parent->object() == qApp) {
    return {connection.baseService(), QDBusObjectPath(accessiblePath + QStringLiteral("/root"))};
  }
  return busReference(connection, QAccessible::uniqueId(parent));
}

QVariantMap propertiesOf(QAccessibleInterface& object, const QString& interface,
                         const QDBusConnection& connection, QAccessible::Id element,
                         const QString& identifier) {
  if (interface == QLatin1String("org.a11y.atspi.Accessible")) {
    QVariantMap properties{
        {QStringLiteral("Name"), shown(object.text(QAccessible::Name))},
        {QStringLiteral("Description"), shown(object.text(QAccessible::Description))},
        {QStringLiteral("ChildCount"), object.childCount()}};
    // The application's parent is in another process, and only Qt knows it.
    if (element) {
      properties.insert(QStringLiteral("Parent"),
                        QVariant::fromValue(parentOf(object, connection)));
    }
    // Later versions of Qt make up identifiers of other objects, and only `Get` can ask for them.
    if (!identifier.isNull() || !qtPublishesIdentifiers) {
      properties.insert(QStringLiteral("AccessibleId"), shown(identifier));
    }
    return properties;
  }
  if (interface == QLatin1String("org.a11y.atspi.Application") && !element) {
    return {{QStringLiteral("ToolkitName"), QStringLiteral("Qt")},
            {QStringLiteral("Version"), QString::fromLatin1(qVersion())}};
  }
  const QAccessibleTableInterface* table = object.tableInterface();
  if (interface == QLatin1String("org.a11y.atspi.Table") && table) {
    return {{QStringLiteral("NRows"), table->rowCount()},
            {QStringLiteral("NColumns"), table->columnCount()},
            {QStringLiteral("NSelectedRows"), table->selectedRowCount()},
            {QStringLiteral("NSelectedColumns"), table->selectedColumnCount()}};
  }
  const QAccessibleTextInterface* text = object.textInterface();
  if (interface == QLatin1String("org.a11y.atspi.Text") && text) {
    return {{QStringLiteral("CharacterCount"), text->characterCount()},
            {QStringLiteral("CaretOffset"), text->cursorPosition()}};
  }
  QAccessibleActionInterface* actions = object.actionInterface();
  if (interface == QLatin1String("org.a11y.atspi.Action") && actions) {
    return {{QStringLiteral("NActions"), static_cast<int>(actions->actionNames().size())}};
  }
  const QAccessibleValueInterface* value = object.valueInterface();
  if (interface == QLatin1String("org.a11y.atspi.Value") && value) {
    return {{QStringLiteral("CurrentValue"), value->currentValue().toDouble()},
            {QStringLiteral("MinimumValue"), value->minimumValue().toDouble()},
            {QStringLiteral("MaximumValue"), value->maximumValue().toDouble()},
            {QStringLiteral("MinimumIncrement"), value->minimumStepSize().toDouble()}};
  }
  if (interface == QLatin1String(selectionInterface) && offersSelection(element)) {
    return {{QStringLiteral("NSelectedChildren"), selectedChildren(element)}};
  }
  return {};
}

}  // namespace

bool answerAllProperties(const QDBusMessage& message, const QDBusConnection& connection,
                         QAccessible::Id element, const QString& identifier) {
  QAccessibleInterface* object = element ? QAccessible::accessibleInterface(element)
                                         : QAccessible::queryAccessibleInterface(qApp);
  const QString interface = message.arguments().value(0).toString();
  QVariantMap properties;
  if (object && object->isValid()) {
    properties = propertiesOf(*object, interface, connection, element, identifier);
  }
  connection.send(message.createReply(QVariant::fromValue(properties)));
  return true;  // also when it cannot be sent: Qt's own answer would end the program
}

}  // namespace vemra::qt::atspi
