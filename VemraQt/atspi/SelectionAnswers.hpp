#pragma once

#include <QAccessible>

class QDBusConnection;
class QDBusMessage;
class QString;

/// \file
/// What is chosen among an element's children, on the accessibility bus. Qt has no interface for it
/// before 6.5, and without it a screen reader is silent when another choice is made in a picker. Not
/// needed from Qt 6.5 on.

namespace vemra::qt::atspi {

inline constexpr char selectionInterface[] = "org.a11y.atspi.Selection";

/// Whether the element is one that chooses among its children: a picker.
bool offersSelection(QAccessible::Id element);

/// Answers a call of the selection interface; false when it is none, or none that is known.
bool answerSelection(const QDBusMessage& message, const QDBusConnection& connection,
                     QAccessible::Id element);

/// Answers for a property of the selection interface; false when there is none of that name.
bool answerSelectionProperty(const QString& name, const QDBusMessage& message,
                             const QDBusConnection& connection, QAccessible::Id element);

}  // namespace vemra::qt::atspi
