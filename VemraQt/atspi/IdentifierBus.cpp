#include "VemraQt/atspi/IdentifierBus.hpp"

#include "VemraQt/atspi/BusReference.hpp"
#include "VemraQt/atspi/IdentifierAnswers.hpp"

#include <memory>

#include <QAccessible>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QPointer>
#include <QTimer>

namespace vemra::qt::atspi {

namespace {

/// Tries again and again to register in front of Qt's object, until it succeeds.
class Installer final : public QObject, public QAccessible::ActivationObserver {
 public:
  Installer() : QObject(qApp) {
    IdentifierAnswers::registerTypes();
    retry_.setInterval(20);
    connect(&retry_, &QTimer::timeout, this, [this] { attempt(); });
    QAccessible::installActivationObserver(this);
    if (QAccessible::isActive()) accessibilityActiveChanged(true);
  }
  ~Installer() override { QAccessible::removeActivationObserver(this); }

  bool isInstalled() const { return answers_ && answers_->original(); }

  void accessibilityActiveChanged(bool active) override {
    if (!active || isInstalled()) return;
    attempts_ = 0;
    if (attempt()) return;
    // Qt registers its object right after it has notified the activation observers. The posted call
    // runs before any message of a client.
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
    QDBusConnection connection(accessibilityConnection);
    if (connection.isConnected()) {
      auto* original =
          dynamic_cast<QDBusVirtualObject*>(connection.objectRegisteredAt(accessiblePath));
      if (original && original != answers_.get()) {
        auto answers = std::make_unique<IdentifierAnswers>(*original);
        connection.unregisterObject(accessiblePath);
        if (connection.registerVirtualObject(accessiblePath, answers.get(),
                                             QDBusConnection::SubPath)) {
          answers_ = std::move(answers);
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
  std::unique_ptr<IdentifierAnswers> answers_;
};

QPointer<Installer> installer;

}  // namespace

void publishIdentifiers() {
  if (!installer && qApp) installer = new Installer;
}

bool areIdentifiersPublished() {
  return installer && installer->isInstalled();
}

}  // namespace vemra::qt::atspi
