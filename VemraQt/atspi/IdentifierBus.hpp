#pragma once

/// \file
/// The exact identifier of every element, for assistive technology and automation over AT-SPI.
///
/// Remove this when neither `IdentifierAnswers` nor `ChildSignals` is needed any more.

namespace vemra::qt::atspi {

/// Publishes identifiers on the accessibility bus.
///
/// Before Qt 6.9 an accessible element has no exact identifier on the bus (none at all before 6.5,
/// a chain of object names up to 6.8); from 6.9 on, an element without an identifier still has that
/// chain. This object stands in front of Qt's own object on the accessibility bus. It uses public
/// interfaces only, answers six kinds of messages and forwards all others: the property
/// `AccessibleId`, the attribute `id`, the list of interfaces (with `Collection` added),
/// `Collection.GetMatches` for a rule on the attribute `id`, the states (an element outside the
/// viewport is visible and not showing), and the choice of a picker (`Selection`, which Qt has from
/// 6.5 on). If anything on the bus is not as expected, Qt's own object stays in place.
///
/// The bus appears some time after the program starts, so the object is registered whenever
/// accessibility becomes active. Call this from the main thread after QApplication is made; further
/// calls do nothing.
void publishIdentifiers();
/// Whether the object in front of Qt's is on the bus now.
bool areIdentifiersPublished();

}  // namespace vemra::qt::atspi
