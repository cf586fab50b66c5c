#pragma once

#include <QAccessible>
#include <QString>

class QDBusConnection;
class QDBusMessage;

/// \file
/// Answers to requests for all properties of an object on the accessibility bus. Qt 6.4.2 ends the
/// process on such a request, which tools send that list an object's properties; so every one of
/// them is answered here.

namespace vemra::qt::atspi {

/// Answers `GetAll` with the properties of the interface that it names; with none for an interface
/// that the object does not have, and for an object that is gone. `element` is 0 for the
/// application; `identifier` is the answer for `AccessibleId`. With a null one, that is the empty
/// text, or no property where Qt makes up an identifier: each property here agrees with `Get`.
bool answerAllProperties(const QDBusMessage& message, const QDBusConnection& connection,
                         QAccessible::Id element, const QString& identifier);

}  // namespace vemra::qt::atspi
