#include "VemraQt/atspi/Landmarks.hpp"

#include "VemraQt/atspi/IdentifierSource.hpp"

#include <algorithm>

#include <QDBusConnection>
#include <QDBusMessage>

namespace vemra::qt::atspi {

bool isLandmark(QAccessible::Id element) {
  return std::ranges::any_of(identifierSources(), [element](const IdentifierSource* source) {
    return source->isLandmark(element);
  });
}

bool answerLandmark(const QDBusMessage& message, const QDBusConnection& connection,
                    QAccessible::Id element) {
  const QString member = message.member();
  const bool asksForNumber = member == QLatin1String("GetRole");
  const bool asksForName =
      member == QLatin1String("GetRoleName") || member == QLatin1String("GetLocalizedRoleName");
  if ((!asksForNumber && !asksForName) || !isLandmark(element)) return false;
  const QVariant role =
      asksForNumber ? QVariant(static_cast<uint>(landmarkNumber)) : QStringLiteral("landmark");
  return connection.send(message.createReply(role));
}

}  // namespace vemra::qt::atspi
