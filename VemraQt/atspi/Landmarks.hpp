#pragma once

#include <QAccessible>

class QDBusConnection;
class QDBusMessage;

/// \file
/// The role of a page's sections on the accessibility bus, which Qt has not. As a panel, Orca 43
/// asks every row of a section for its role and state before it reads the first control in it.

namespace vemra::qt::atspi {

/// ATSPI_ROLE_LANDMARK.
inline constexpr int landmarkNumber = 110;

/// Whether an element is a section of a page.
bool isLandmark(QAccessible::Id element);

/// Answers `GetRole`, `GetRoleName` and `GetLocalizedRoleName` for a landmark; false for another
/// element or message.
bool answerLandmark(const QDBusMessage& message, const QDBusConnection& connection,
                    QAccessible::Id element);

}  // namespace vemra::qt::atspi
