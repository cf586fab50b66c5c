// A host's own widgets on the accessibility bus, beside a page.

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/atspi/BusReference.hpp"
#include "VemraQt/atspi/IdentifierBus.hpp"

#include <QAccessible>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>
#include <QTableWidget>
#include <QTest>
#include <gmock/gmock.h>

using namespace vemra;

namespace {

/// A client's connection to the bus that this program's window is on.
class Client {
 public:
  Client() : bus_(QDBusConnection::connectToBus(address(), name())) {}
  ~Client() { QDBusConnection::disconnectFromBus(name()); }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;

  QDBusConnection& bus() { return bus_; }

 private:
  static QString name() { return QStringLiteral("client"); }
  static QString address() {
    const QDBusMessage answer = QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
    return answer.arguments().value(0).toString();
  }

  QDBusConnection bus_;
};

QString pathOf(QAccessibleInterface& object) {
  if (object.object() == qApp) return qt::atspi::accessiblePath + QLatin1String("/root");
  const QDBusConnection program(qt::atspi::accessibilityConnection);
  return qt::atspi::busReference(program, QAccessible::uniqueId(&object)).path.path();
}

template <typename Answer>
QDBusPendingReply<Answer> replyTo(Client& client, QAccessibleInterface& object,
                                  const char* interface, const char* method,
                                  const QVariantList& arguments = {}) {
  const QDBusConnection program(qt::atspi::accessibilityConnection);
  QDBusMessage call = QDBusMessage::createMethodCall(
      program.baseService(), pathOf(object), QLatin1String(interface), QLatin1String(method));
  call.setArguments(arguments);
  QDBusPendingReply<Answer> reply = client.bus().asyncCall(call);
  EXPECT_TRUE(QTest::qWaitFor([&] { return reply.isFinished(); }));
  return reply;
}

template <typename Answer>
Answer ask(Client& client, QAccessibleInterface& object, const char* interface, const char* method,
           const QVariantList& arguments = {}) {
  const auto reply = replyTo<Answer>(client, object, interface, method, arguments);
  EXPECT_FALSE(reply.isError()) << qPrintable(reply.error().message());
  return reply.value();
}

/// A property's value, to be compared and read in a message.
std::string shown(const QVariant& value) {
  if (value.canConvert<QDBusArgument>()) {
    const auto reference = qdbus_cast<qt::atspi::BusReference>(value);
    return (reference.service + QLatin1Char(' ') + reference.path.path()).toStdString();
  }
  return (QLatin1String(value.typeName()) + QLatin1Char(' ') + value.toString()).toStdString();
}

std::vector<std::string> interfacesThatQtDescribes(const QString& introspection) {
  std::vector<std::string> names;
  const QRegularExpression named(QStringLiteral("<interface name=\"(org.a11y[^\"]+)\""));
  for (const auto& match : named.globalMatch(introspection)) {
    names.push_back(match.captured(1).toStdString());
  }
  return names;
}

}  // namespace

TEST(OtherWidgets, KeepTheInterfacesThatQtGivesThem) {
  qt::ViewWidget page;
  page.setRoot(ui::Text(ui::verbatim("a page")));
  page.show();
  QTableWidget table(1, 1);
  table.setItem(0, 0, new QTableWidgetItem(QStringLiteral("cell")));
  table.show();
  ASSERT_TRUE(QTest::qWaitFor([] { return qt::atspi::areIdentifiersPublished(); }));
  Client client;
  ASSERT_TRUE(client.bus().isConnected());
  QAccessibleInterface* object = QAccessible::queryAccessibleInterface(&table);
  ASSERT_TRUE(object && object->tableInterface());
  for (QAccessibleInterface* one : {object, object->tableInterface()->cellAt(0, 0)}) {
    const auto described = interfacesThatQtDescribes(
        ask<QString>(client, *one, "org.freedesktop.DBus.Introspectable", "Introspect"));
    ASSERT_THAT(described, ::testing::Contains("org.a11y.atspi.Accessible"));
    std::vector<std::string> named;
    for (const QString& name :
         ask<QStringList>(client, *one, "org.a11y.atspi.Accessible", "GetInterfaces")) {
      named.push_back(name.toStdString());
    }
    EXPECT_THAT(named, ::testing::IsSupersetOf(described));
    EXPECT_THAT(named, ::testing::Contains("org.a11y.atspi.Collection"));
  }
}

TEST(OtherWidgets, HaveTheSamePropertiesTogetherAsOneByOne) {
  qt::ViewWidget page;
  page.setRoot(ui::Text(ui::verbatim("a page")));
  page.show();
  QWidget window;
  auto* table = new QTableWidget(2, 3, &window);
  table->setObjectName(QStringLiteral("table"));
  table->selectRow(1);
  auto* slider = new QSlider(&window);
  auto* field = new QLineEdit(QStringLiteral("text"), &window);
  auto* button = new QPushButton(QStringLiteral("title"), &window);
  window.show();
  ASSERT_TRUE(QTest::qWaitFor([] { return qt::atspi::areIdentifiersPublished(); }));
  Client client;
  ASSERT_TRUE(client.bus().isConnected());
  const std::string accessible = "org.a11y.atspi.Accessible";
  const auto compare = [&](QObject* object, const std::string& interface) {
    QAccessibleInterface* one = QAccessible::queryAccessibleInterface(object);
    const QString name = QString::fromStdString(interface);
    const auto all =
        ask<QVariantMap>(client, *one, "org.freedesktop.DBus.Properties", "GetAll", {name});
    for (auto each = all.begin(); each != all.end(); ++each) {
      const auto alone = ask<QDBusVariant>(client, *one, "org.freedesktop.DBus.Properties", "Get",
                                           {name, each.key()});
      EXPECT_EQ(shown(each.value()), shown(alone.variant()))
          << object->metaObject()->className() << ' ' << interface << ' ' << qPrintable(each.key());
    }
    return all.keys();
  };
  for (QObject* object :
       {static_cast<QObject*>(qApp), static_cast<QObject*>(&page), static_cast<QObject*>(&window),
        static_cast<QObject*>(table), static_cast<QObject*>(slider), static_cast<QObject*>(field),
        static_cast<QObject*>(button)}) {
    EXPECT_THAT(compare(object, accessible), ::testing::Contains(QStringLiteral("Name")));
  }
  const auto offers = [](const char* property) {
    return ::testing::Contains(QLatin1String(property));
  };
  EXPECT_THAT(compare(qApp, "org.a11y.atspi.Application"), offers("ToolkitName"));
  EXPECT_THAT(compare(table, "org.a11y.atspi.Table"), offers("NSelectedRows"));
  EXPECT_THAT(compare(slider, "org.a11y.atspi.Value"), offers("CurrentValue"));
  EXPECT_THAT(compare(field, "org.a11y.atspi.Text"), offers("CharacterCount"));
  EXPECT_THAT(compare(button, "org.a11y.atspi.Action"), offers("NActions"));
}
