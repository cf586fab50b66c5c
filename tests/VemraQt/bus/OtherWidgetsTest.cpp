// A host's own widgets on the accessibility bus, beside a page.

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/atspi/BusReference.hpp"
#include "VemraQt/atspi/IdentifierBus.hpp"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QRegularExpression>
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

template <typename Answer>
Answer ask(Client& client, QAccessibleInterface& object, const char* interface,
           const char* method) {
  const QDBusConnection program(qt::atspi::accessibilityConnection);
  const auto path = qt::atspi::busReference(program, QAccessible::uniqueId(&object)).path.path();
  QDBusPendingReply<Answer> reply = client.bus().asyncCall(QDBusMessage::createMethodCall(
      program.baseService(), path, QLatin1String(interface), QLatin1String(method)));
  EXPECT_TRUE(QTest::qWaitFor([&] { return reply.isFinished(); }));
  EXPECT_FALSE(reply.isError()) << qPrintable(reply.error().message());
  return reply.value();
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
