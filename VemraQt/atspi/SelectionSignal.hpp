#pragma once

#include "VemraPlatform/Export.hpp"

#include <QAccessible>

namespace vemra::qt::atspi {

/// Sends `selection-changed` of an object on the accessibility bus: another of its children is
/// selected. Does nothing without a bus, and with a version of Qt that sends the signal itself when
/// it is notified of `QAccessible::Selection`.
///
/// Qt 6.4.2 reports the state of the selected child only; it has no event for the object around it.
VEMRA_EXPORT void sendSelectionSignal(QAccessible::Id container);

}  // namespace vemra::qt::atspi
