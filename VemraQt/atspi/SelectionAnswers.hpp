#pragma once

#include <QAccessible>

class QDBusConnection;
class QDBusMessage;
class QString;

/// \file
/// Answers for the selected children of an element on the accessibility bus. Qt has no such
/// interface before 6.5, and without it a screen reader is silent when a picker's choice changes.
/// Remove it once Qt 6.5 is the oldest supported version.

namespace vemra::qt::atspi {

inline constexpr char selectionInterface[] = "org.a11y.atspi.Selection";

/// Whether the element has selectable children, as a picker has.
bool offersSelection(QAccessible::Id element);

/// The number of the element's selected children; 0 when it offers no selection.
int selectedChildren(QAccessible::Id element);

/// Answers a call of the selection interface; false when the message is not a known one.
bool answerSelection(const QDBusMessage& message, const QDBusConnection& connection,
                     QAccessible::Id element);

/// Answers a request for a property of the selection interface; false when it has no such property.
bool answerSelectionProperty(const QString& name, const QDBusMessage& message,
                             const QDBusConnection& connection, QAccessible::Id element);

}  // namespace vemra::qt::atspi
