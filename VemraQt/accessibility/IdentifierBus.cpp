#include "VemraQt/accessibility/IdentifierBus.hpp"

#include <algorithm>
#include <memory>
#include <vector>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QMap>
#include <QPointer>
#include <QTimer>

namespace vemra::qt {

namespace {

const QString accessiblePath = QStringLiteral("/org/a11y/atspi/accessible");
const QString accessibleInterface = QStringLiteral("org.a11y.atspi.Accessible");
const QString collectionInterface = QStringLiteral("org.a11y.atspi.Collection");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

// Qt puts the id on the bus itself from this version on.
constexpr bool qtPublishesIdentifiers = QT_VERSION >= QT_VERSION_CHECK(6, 9, 0);

std::vector<const IdentifierSource*>& sources() {
  static std::vector<const IdentifierSource*> list;
  return list;
}

/// An object of the bus, as AT-SPI names it.
struct Reference {
  QString service;
  QDBusObjectPath path;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Reference& reference) {
  argument.beginStructure();
  argument << reference.service << reference.path;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Reference& reference) {
  argument.beginStructure();
  argument >> reference.service >> reference.path;
  argument.endStructure();
  return argument;
}

/// The element that a bus path speaks of: the last part of the path is its id.
QAccessible::Id elementAt(const QString& path) {
  bool isNumber = false;
  const QAccessible::Id id = path.section(QLatin1Char('/'), -1).toUInt(&isNumber);
  return isNumber ? id : 0;
}

QString identifierOf(QAccessible::Id element) {
  for (const IdentifierSource* source : sources()) {
    const QString identifier = source->identifier(element);
    if (!identifier.isNull()) return identifier;
  }
  return QString();
}

/// Whether an element lies below another one; walks upward, which is short.
bool isWithin(QAccessible::Id element, QAccessible::Id ancestor) {
  const QAccessibleInterface* place = QAccessible::accessibleInterface(element);
  for (; place; place = place->parent()) {
    if (QAccessible::uniqueId(const_cast<QAccessibleInterface*>(place)) == ancestor) return true;
  }
  return false;
}

/// The identifier that a match rule asks for, null when the rule asks anything else.
///
/// The rule is read through a const argument: the other overloads would write to it.
QString identifierSought(const QVariant& rule) {
  const QDBusArgument argument = rule.value<QDBusArgument>();
  if (argument.currentType() != QDBusArgument::StructureType) return QString();
  QList<int> states, roles;
  int statesMatch = 0, attributesMatch = 0, rolesMatch = 0, interfacesMatch = 0;
  QMap<QString, QString> attributes;
  QStringList interfaces;
  bool isInverted = false;
  argument.beginStructure();
  argument >> states >> statesMatch >> attributes >> attributesMatch >> roles >> rolesMatch >>
      interfaces >> interfacesMatch >> isInverted;
  argument.endStructure();
  const bool asksStates =
      std::any_of(states.begin(), states.end(), [](int bits) { return bits != 0; });
  const bool asksRoles =
      std::any_of(roles.begin(), roles.end(), [](int bits) { return bits != 0; });
  if (isInverted || asksStates || asksRoles || !interfaces.isEmpty() || attributes.size() != 1) {
    return QString();
  }
  return attributes.value(QStringLiteral("id"));
}

/// Stands in front of Qt's object on the accessibility bus.
class IdentifierBus final : public QDBusVirtualObject {
 public:
  explicit IdentifierBus(QDBusVirtualObject& original) : original_(&original) {}

  QString introspect(const QString& path) const override {
    return original_ ? original_->introspect(path) : QString();
  }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (const QAccessible::Id element = elementAt(message.path())) {
      if (answer(message, connection, element)) return true;
    } else if (message.interface() == collectionInterface &&
               answerMatches(message, connection, 0)) {
      return true;
    }
    return original_ && original_->handleMessage(message, connection);
  }

  const QDBusVirtualObject* original() const { return original_; }

 private:
  bool answer(const QDBusMessage& message, const QDBusConnection& connection,
              QAccessible::Id element) const {
    const QString member = message.member();
    const QList<QVariant> arguments = message.arguments();
    if (!qtPublishesIdentifiers && message.interface() == propertiesInterface &&
        member == QLatin1String("Get") && arguments.size() == 2 &&
        arguments[0].toString() == accessibleInterface &&
        arguments[1].toString() == QLatin1String("AccessibleId")) {
      // An element of no tree of ours has no identifier: the empty one.
      const QString identifier = identifierOf(element);
      const QVariant text = identifier.isNull() ? QStringLiteral("") : identifier;
      return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(text))));
    }
    if (message.interface() == collectionInterface) {
      return answerMatches(message, connection, element);
    }
    if (message.interface() != accessibleInterface) return false;
    if (member == QLatin1String("GetAttributes")) return answerAttributes(message, connection);
    if (member == QLatin1String("GetInterfaces")) return answerInterfaces(message, connection);
    if (member == QLatin1String("GetState")) return answerState(message, connection);
    return false;
  }

  bool answerAttributes(const QDBusMessage& message, const QDBusConnection& connection) const {
    const QString identifier = identifierOf(elementAt(message.path()));
    if (identifier.isEmpty()) return false;
    const QMap<QString, QString> attributes{{QStringLiteral("id"), identifier}};
    return connection.send(message.createReply(QVariant::fromValue(attributes)));
  }

  bool answerInterfaces(const QDBusMessage& message, const QDBusConnection& connection) const {
    QAccessibleInterface* interface = QAccessible::accessibleInterface(elementAt(message.path()));
    if (!interface || !interface->isValid() || identifierOf(elementAt(message.path())).isNull()) {
      return false;
    }
    QStringList names{accessibleInterface, QStringLiteral("org.a11y.atspi.Component"),
                      collectionInterface};
    if (interface->actionInterface()) names << QStringLiteral("org.a11y.atspi.Action");
    if (interface->textInterface()) names << QStringLiteral("org.a11y.atspi.Text");
    if (interface->editableTextInterface()) names << QStringLiteral("org.a11y.atspi.EditableText");
    if (interface->valueInterface()) names << QStringLiteral("org.a11y.atspi.Value");
    if (interface->tableInterface()) names << QStringLiteral("org.a11y.atspi.Table");
    return connection.send(message.createReply(QVariant::fromValue(names)));
  }

  /// Qt takes what is outside the viewport for invisible as well, and knows no single line.
  bool answerState(const QDBusMessage& message, const QDBusConnection& connection) const {
    const QAccessible::Id element = elementAt(message.path());
    QAccessibleInterface* interface = QAccessible::accessibleInterface(element);
    if (!interface || identifierOf(element).isNull()) return false;
    const QAccessible::State state = interface->state();
    // The places of the bits are those of AtspiStateType.
    const std::pair<bool, int> bits[] = {
        {state.active, 1},      {state.collapsed, 5},
        {state.editable, 7},    {!state.disabled, 8},
        {state.expandable, 9},  {state.expanded, 10},
        {state.focusable, 11},  {state.focused, 12},
        {state.selectable, 22}, {state.selected, 23},
        {!state.disabled, 24},  {!state.invisible && !state.offscreen, 25},
        {state.editable, 26},   {interface->role() == QAccessible::ListItem, 28},
        {!state.invisible, 30}, {state.selectableText, 38},
        {state.hasPopup, 42},
    };
    quint64 set = 0;
    for (const auto& [isSet, bit] : bits) {
      if (isSet) set |= quint64{1} << bit;
    }
    const QList<uint> words{static_cast<uint>(set), static_cast<uint>(set >> 32)};
    return connection.send(message.createReply(QVariant::fromValue(words)));
  }

  bool answerMatches(const QDBusMessage& message, const QDBusConnection& connection,
                     QAccessible::Id within) const {
    if (message.member() != QLatin1String("GetMatches")) return false;
    const QList<QVariant> arguments = message.arguments();
    if (arguments.size() < 3) return false;
    const QString identifier = identifierSought(arguments[0]);
    if (identifier.isNull()) return false;
    const int most = std::max(0, arguments[2].toInt());
    QList<Reference> found;
    for (const IdentifierSource* source : sources()) {
      for (const QAccessible::Id element : source->find(identifier, 0)) {
        if (within && !isWithin(element, within)) continue;
        found.push_back(
            {connection.baseService(),
             QDBusObjectPath(accessiblePath + QLatin1Char('/') + QString::number(element))});
        if (most && found.size() == most) break;
      }
    }
    return connection.send(message.createReply(QVariant::fromValue(found)));
  }

  QPointer<QDBusVirtualObject> original_;
};

/// Tries to get in front of Qt's object until it is there.
class Installer final : public QObject, public QAccessible::ActivationObserver {
 public:
  Installer() : QObject(qApp) {
    qDBusRegisterMetaType<Reference>();
    qDBusRegisterMetaType<QList<Reference>>();
    qDBusRegisterMetaType<QMap<QString, QString>>();
    qDBusRegisterMetaType<QList<uint>>();
    retry_.setInterval(20);
    connect(&retry_, &QTimer::timeout, this, [this] { attempt(); });
    QAccessible::installActivationObserver(this);
    if (QAccessible::isActive()) accessibilityActiveChanged(true);
  }
  ~Installer() override { QAccessible::removeActivationObserver(this); }

  bool isInstalled() const { return bus_ && bus_->original(); }

  void accessibilityActiveChanged(bool active) override {
    if (!active || isInstalled()) return;
    attempts_ = 0;
    if (attempt()) return;
    // Qt puts its object on the bus right after it has told of being active. A posted call comes
    // before any that a client can make.
    QMetaObject::invokeMethod(
        this,
        [this] {
          if (!isInstalled() && !attempt()) retry_.start();
        },
        Qt::QueuedConnection);
  }

 private:
  bool attempt() {
    constexpr int most = 500;  // ten seconds; then the next activation tries again
    QDBusConnection connection(QStringLiteral("a11y"));
    if (connection.isConnected()) {
      auto* original =
          dynamic_cast<QDBusVirtualObject*>(connection.objectRegisteredAt(accessiblePath));
      if (original && original != bus_.get()) {
        auto bus = std::make_unique<IdentifierBus>(*original);
        connection.unregisterObject(accessiblePath);
        if (connection.registerVirtualObject(accessiblePath, bus.get(), QDBusConnection::SubPath)) {
          bus_ = std::move(bus);
        } else {
          connection.registerVirtualObject(accessiblePath, original, QDBusConnection::SubPath);
        }
        retry_.stop();
        return true;
      }
    }
    if (++attempts_ >= most) retry_.stop();
    return false;
  }

  QTimer retry_;
  int attempts_ = 0;
  std::unique_ptr<IdentifierBus> bus_;
};

QPointer<Installer> installer;

}  // namespace

void publishIdentifiers() {
  if (!installer && qApp) installer = new Installer;
}

void addIdentifierSource(const IdentifierSource& source) {
  sources().push_back(&source);
}

void removeIdentifierSource(const IdentifierSource& source) {
  std::erase(sources(), &source);
}

bool identifiersArePublished() {
  return installer && installer->isInstalled();
}

}  // namespace vemra::qt
