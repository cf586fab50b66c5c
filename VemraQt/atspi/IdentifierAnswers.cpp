#include "VemraQt/atspi/IdentifierAnswers.hpp"

#include "VemraQt/atspi/BusReference.hpp"
#include "VemraQt/atspi/IdentifierSource.hpp"
#include "VemraQt/atspi/Landmarks.hpp"
#include "VemraQt/atspi/LaterQt.hpp"
#include "VemraQt/atspi/MatchRule.hpp"
#include "VemraQt/atspi/PropertyAnswers.hpp"
#include "VemraQt/atspi/RoleSearch.hpp"
#include "VemraQt/atspi/SelectionAnswers.hpp"

#include <algorithm>
#include <optional>
#include <vector>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QMap>
#include <QRegularExpression>
#include <QRegularExpressionMatchIterator>

namespace vemra::qt::atspi {

namespace {

const QString accessibleInterface = QStringLiteral("org.a11y.atspi.Accessible");
const QString collectionInterface = QStringLiteral("org.a11y.atspi.Collection");
const QString componentInterface = QStringLiteral("org.a11y.atspi.Component");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

/// The element at a bus path: the last part of the path is the element's id.
QAccessible::Id elementAt(const QString& path) {
  bool isNumber = false;
  const QAccessible::Id id = path.section(QLatin1Char('/'), -1).toUInt(&isNumber);
  return isNumber ? id : 0;
}

QString identifierOf(QAccessible::Id element) {
  for (IdentifierSource* source : identifierSources()) {
    QString identifier = source->identifier(element);
    if (!identifier.isNull()) return identifier;
  }
  return QString();
}

/// Whether an element is `ancestor` or below it; walks upward, which is short.
bool isWithin(QAccessible::Id element, QAccessible::Id ancestor) {
  const QAccessibleInterface* place = QAccessible::accessibleInterface(element);
  for (; place; place = place->parent()) {
    if (QAccessible::uniqueId(const_cast<QAccessibleInterface*>(place)) == ancestor) return true;
  }
  return false;
}

/// The identifier that a match rule looks for; null when the rule looks for anything else.
QString identifierSought(const MatchRule& rule) {
  const bool isOther = rule.isInverted || rule.states != 0 || !rule.roles.isEmpty() ||
                       rule.hasInterfaces || rule.attributes.size() != 1;
  return isOther ? QString() : rule.attributes.value(QStringLiteral("id"));
}

/// Answers `AccessibleId`. For an element outside our trees, Qt answers if its version can, else
/// the answer is the empty string. For an element of our trees without an identifier the answer is
/// the empty string too, where Qt would make one up.
bool answerProperty(const QDBusMessage& message, const QDBusConnection& connection,
                    QAccessible::Id element) {
  const QList<QVariant> arguments = message.arguments();
  if (arguments.size() != 2) return false;
  const QString interface = arguments[0].toString(), name = arguments[1].toString();
  if (interface == QLatin1String(selectionInterface)) {
    return !qtPublishesSelections && answerSelectionProperty(name, message, connection, element);
  }
  if (interface != accessibleInterface || name != QLatin1String("AccessibleId")) return false;
  const QString identifier = element ? identifierOf(element) : QString();
  if (identifier.isNull() && qtPublishesIdentifiers) return false;
  const QVariant text = identifier.isNull() ? QStringLiteral("") : identifier;
  return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(text))));
}

bool answerAttributes(const QDBusMessage& message, const QDBusConnection& connection) {
  const QAccessible::Id element = elementAt(message.path());
  QMap<QString, QString> attributes;
  for (const IdentifierSource* source : identifierSources()) {
    attributes.insert(source->attributes(element));
  }
  const QString identifier = identifierOf(element);
  if (!identifier.isEmpty()) attributes.insert(QStringLiteral("id"), identifier);
  if (attributes.isEmpty()) return false;
  return connection.send(message.createReply(QVariant::fromValue(attributes)));
}

/// Adds `Collection` to the interfaces that Qt reports: a client may search below any element, and
/// also below the window or the application that contains a page. A host's own widget may have an
/// interface that only a later Qt knows; Qt names it in its introspection.
bool answerInterfaces(const QDBusMessage& message, const QDBusConnection& connection,
                      QAccessible::Id element, const QDBusVirtualObject* original) {
  QAccessibleInterface* interface = element ? QAccessible::accessibleInterface(element)
                                            : QAccessible::queryAccessibleInterface(qApp);
  if (!interface || !interface->isValid()) return false;
  QStringList names{accessibleInterface, collectionInterface};
  const auto add = [&names](bool offered, const char* name) {
    if (offered) names << QLatin1String("org.a11y.atspi.") + QLatin1String(name);
  };
  add(element != 0, "Component");
  add(element == 0, "Application");
  add(interface->actionInterface(), "Action");
  add(interface->textInterface(), "Text");
  add(interface->editableTextInterface(), "EditableText");
  add(interface->valueInterface(), "Value");
  add(interface->tableInterface(), "Table");
  add(offersSelection(element), "Selection");
  if (original && identifierOf(element).isNull()) {
    static const QRegularExpression named(QStringLiteral("<interface name=\"([^\"]+)\""));
    for (const auto& match : named.globalMatch(original->introspect(message.path()))) {
      if (!names.contains(match.captured(1))) names << match.captured(1);
    }
  }
  return connection.send(message.createReply(QVariant::fromValue(names)));
}

/// Corrects two states: Qt reports every element outside the viewport as invisible, and never
/// reports a single line.
bool answerState(const QDBusMessage& message, const QDBusConnection& connection) {
  const QAccessible::Id element = elementAt(message.path());
  QAccessibleInterface* interface = QAccessible::accessibleInterface(element);
  if (!interface || identifierOf(element).isNull()) return false;
  const QAccessible::State state = interface->state();
  const quint64 set = stateBits(state);
  const QList<uint> words{static_cast<uint>(set), static_cast<uint>(set >> 32)};
  return connection.send(message.createReply(QVariant::fromValue(words)));
}

bool answerRoles(const MatchRule& rule, int most, const QDBusMessage& message,
                 const QDBusConnection& connection, QAccessible::Id within) {
  QAccessibleInterface* top = within ? QAccessible::accessibleInterface(within)
                                     : QAccessible::queryAccessibleInterface(qApp);
  if (!top || !top->isValid()) return false;
  const auto matches = findByRole(*top, rule, most);
  if (!matches) return false;
  QList<BusReference> found;
  for (const QAccessible::Id id : *matches) found.push_back(busReference(connection, id));
  return connection.send(message.createReply(QVariant::fromValue(found)));
}

bool answerMatches(const QDBusMessage& message, const QDBusConnection& connection,
                   QAccessible::Id within) {
  const QList<QVariant> arguments = message.arguments();
  if (arguments.size() < 3) return false;
  const std::optional<MatchRule> rule = matchRuleIn(arguments[0]);
  if (!rule) return false;
  const QString identifier = identifierSought(*rule);
  const int most = std::max(0, arguments[2].toInt());
  if (identifier.isNull()) return answerRoles(*rule, most, message, connection, within);
  QList<BusReference> found;
  for (IdentifierSource* source : identifierSources()) {
    for (const QAccessible::Id element : source->find(identifier)) {
      if (within && !isWithin(element, within)) continue;
      if (!most || found.size() < most) found.push_back(busReference(connection, element));
    }
  }
  return connection.send(message.createReply(QVariant::fromValue(found)));
}

/// Answers what Qt does not: Qt gives the focus only to elements that can have it, and Qt 6.4 does
/// not implement `ScrollTo`.
bool answerScrolling(const QDBusMessage& message, const QDBusConnection& connection,
                     QAccessible::Id element) {
  const bool grabsFocus = message.member() == QLatin1String("GrabFocus");
  if (!grabsFocus && message.member() != QLatin1String("ScrollTo")) return false;
  QAccessibleInterface* interface = QAccessible::accessibleInterface(element);
  if (!interface || (grabsFocus && interface->actionInterface())) return false;
  const bool scrolled = std::ranges::any_of(
      identifierSources(), [&](IdentifierSource* tree) { return tree->scrollIn(element); });
  return scrolled && connection.send(message.createReply(!grabsFocus));
}

/// Answers a message if this library can; `element` is 0 for the application.
bool answer(const QDBusMessage& message, const QDBusConnection& connection, QAccessible::Id element,
            const QDBusVirtualObject* original) {
  const QString member = message.member();
  if (message.interface() == propertiesInterface) {
    if (member == QLatin1String("GetAll")) {
      return answerAllProperties(message, connection, element, identifierOf(element));
    }
    return member == QLatin1String("Get") && answerProperty(message, connection, element);
  }
  if (message.interface() == QLatin1String(selectionInterface)) {
    return !qtPublishesSelections && answerSelection(message, connection, element);
  }
  if (message.interface() == collectionInterface) {
    return member == QLatin1String("GetMatches") && answerMatches(message, connection, element);
  }
  if (message.interface() == componentInterface) {
    return answerScrolling(message, connection, element);
  }
  if (message.interface() != accessibleInterface) return false;
  if (member == QLatin1String("GetInterfaces")) {
    return answerInterfaces(message, connection, element, original);
  }
  if (!element) return false;
  if (member == QLatin1String("GetAttributes")) return answerAttributes(message, connection);
  if (member == QLatin1String("GetState")) return answerState(message, connection);
  return answerLandmark(message, connection, element);
}

}  // namespace

QString IdentifierAnswers::introspect(const QString& path) const {
  return original_ ? original_->introspect(path) : QString();
}

bool IdentifierAnswers::handleMessage(const QDBusMessage& message,
                                      const QDBusConnection& connection) {
  if (answer(message, connection, elementAt(message.path()), original_)) return true;
  return original_ && original_->handleMessage(message, connection);
}

void IdentifierAnswers::registerTypes() {
  qDBusRegisterMetaType<BusReference>();
  qDBusRegisterMetaType<QList<BusReference>>();
  qDBusRegisterMetaType<QMap<QString, QString>>();
  qDBusRegisterMetaType<QList<uint>>();
}

}  // namespace vemra::qt::atspi
